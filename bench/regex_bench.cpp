// The engine beside POSIX regexec, std::regex and RE2: every pattern on every text, each engine
// given the text as our callers have it, ending in a NUL, and asked for all sub-matches.
#include "qzregex.h"

#include <benchmark/benchmark.h>
#include <regex.h>
#ifdef QZ_BENCH_RE2
#include <re2/re2.h>
#endif

#include <cstdlib>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr size_t kGroups = 10;

class Ours {
public:
    static constexpr const char *kName = "qz";

    explicit Ours(const std::string &pattern) : program_(qz_regcomp(pattern.c_str())) {}

    bool operator()(const std::string &text)
    {
        return qz_regexec(program_.get(), text.c_str()) == 1;
    }

private:
    struct Free {
        void operator()(qz_regexp *program) const { std::free(program); }
    };

    std::unique_ptr<qz_regexp, Free> program_;
};

class Posix {
public:
    static constexpr const char *kName = "posix";

    explicit Posix(const std::string &pattern)
    {
        if (regcomp(&program_, pattern.c_str(), REG_EXTENDED) != 0)
            throw std::invalid_argument(pattern);
    }

    Posix(const Posix &) = delete;
    Posix &operator=(const Posix &) = delete;

    ~Posix() { regfree(&program_); }

    bool operator()(const std::string &text)
    {
        regmatch_t found[kGroups];
        return regexec(&program_, text.c_str(), kGroups, found, 0) == 0;
    }

private:
    regex_t program_{};
};

class Standard {
public:
    static constexpr const char *kName = "std";

    explicit Standard(const std::string &pattern) : program_(pattern) {}

    bool operator()(const std::string &text)
    {
        return std::regex_search(text.c_str(), found_, program_);
    }

private:
    std::regex program_;
    std::cmatch found_;
};

#ifdef QZ_BENCH_RE2
class Re2 {
public:
    static constexpr const char *kName = "re2";

    explicit Re2(const std::string &pattern) : program_(pattern, options()) {}

    bool operator()(const std::string &text)
    {
        const re2::StringPiece piece(text.c_str());
        re2::StringPiece found[kGroups];
        const int groups = program_.NumberOfCapturingGroups() + 1;
        return program_.Match(piece, 0, piece.size(), RE2::UNANCHORED, found, groups);
    }

private:
    static RE2::Options options()
    {
        RE2::Options options(RE2::Latin1);
        options.set_dot_nl(true);
        return options;
    }

    RE2 program_;
};
#endif

/// The first @p length bytes of lines such as a directory or a log holds.
std::string prose(size_t length)
{
    static const char *const kWords[] = {"mesh",   "solver",  "plindra-v12", "step",     "residual",
                                         "2.5e-3", "node_17", "the",         "pressure", "out.dat"};
    std::string text;
    for (unsigned i = 1; text.size() < length; i = i * 1103515245 + 12345) {
        text += kWords[i / 65536 % 10];
        text += ' ';
    }
    text.resize(length);
    return text;
}

std::string repeated(const std::string &part, size_t length)
{
    std::string text;
    while (text.size() < length)
        text += part;
    text.resize(length);
    return text;
}

struct Row {
    std::string name;
    std::string pattern;
    std::string text;
    bool matches;
    std::string left_out; ///< engines that would overflow the stack or take minutes
};

void add_rows(std::vector<Row> &rows, size_t length)
{
    const std::string words = prose(length);
    const std::string abab = repeated("ab", length);
    const std::string front = words.substr(0, 3);
    const std::string deep = length > 10000 ? "std" : "";
    const std::string ages = length > 10000 ? "std posix" : deep;
    const auto with_end = [](std::string text, const std::string &end) {
        return text.replace(text.size() - end.size(), end.size(), end);
    };
    rows.insert(
        rows.end(),
        {
            {"anchored", "^" + front, words, true, ""},
            {"anchored, no", "^xyz", words, false, ""},
            {"at the end", "xyz$", with_end(words, "xyz"), true, ""},
            {"at the end, no", "xyz$", words, false, ""},
            {"literal at the end", "zebra", with_end(words, "zebra"), true, ""},
            {"literal, no", "zebra", words, false, ""},
            {"common literal, no", "streets", words, false, ""},
            {"file names", "^.*\\.txt$", with_end(words, ".txt"), true, deep},
            {"file names, no", "^.*\\.txt$", words, false, deep},
            {"versions, no", "^plindra-v[0-9]+(.[0-9]+)?$", words, false, ""},
            {"loop of a choice", "(a|b)*c", with_end(abab, "c"), true, deep},
            {"loop of a choice, no", "(a|b)*c", abab, false, ages},
            {"choice, then set, no", "(a|b)*[cd]", abab, false, ages},
            {"identifier", "[A-Za-z_][A-Za-z0-9_]*", words, true, ""},
            {"identifier, no", "[A-Za-z_][A-Za-z0-9_]*", repeated("0123456789 ", length), false,
             ""},
            {"words, last", "alpha|beta|gamma|delta", with_end(words, "delta"), true, ""},
            {"words, no", "alpha|beta|gamma|delta", words, false, ""},
            {"two words, no", ".*foo.*bar", words, false, deep},
            {"two words", ".*foo.*bar", with_end(words, "foo bar"), true, deep},
            {"number", "[0-9]+(\\.[0-9]*)?(e[-+]?[0-9]+)?$", with_end(words, " 1.5e-7"), true, ""},
            {"nested loops, no", "(x+x+)+y", repeated("x", length), false,
             length > 10 ? "std " + ages : ages},
            {"nested loops, late", "(x+x+)+y", "y" + repeated("x", length - 1), false,
             length > 10 ? "std " + ages : ages},
        });
}

template <class Engine> void run(benchmark::State &state, const Row &row)
{
    Engine engine(row.pattern);
    if (engine(row.text) != row.matches) {
        state.SkipWithError("wrong answer");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(engine(row.text));
}

template <class Engine> void add(const Row &row)
{
    if (row.left_out.find(Engine::kName) != std::string::npos)
        return;
    const std::string name = row.name + "/" + std::to_string(row.text.size()) + "/" + Engine::kName;
    benchmark::RegisterBenchmark(name.c_str(), run<Engine>, row);
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Row> rows;
    for (const size_t length : {10, 30, 100, 1024, 65536})
        add_rows(rows, length);
    rows.push_back({"version", "^plindra-v[0-9]+(.[0-9]+)?$", "plindra-v12.3", true, ""});
    for (const Row &row : rows) {
        add<Ours>(row);
        add<Posix>(row);
        add<Standard>(row);
#ifdef QZ_BENCH_RE2
        add<Re2>(row);
#endif
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
