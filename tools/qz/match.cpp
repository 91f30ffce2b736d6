#include "qz/command.h"
#include "qz/input.h"
#include "qz/output.h"
#include "qzerr.h"
#include "qzregex.h"
#include "qztoken.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

namespace qz::cli {

namespace {

struct MatchOptions : CommonOptions {
    std::vector<std::string> patterns;
    bool expressions = false;
    bool number = false;
};

void declare_match(CLI::App &command, MatchOptions &options)
{
    add_words(command, "pattern", options.patterns, "Patterns, the first that matches counts")
        ->required();
    command.add_flag("-E,--expression", options.expressions,
                     "The patterns are regular expressions; print the sub-matches too");
    command.add_flag("-n,--number", options.number,
                     "Print the index of the pattern before the line");
    command.footer(
        "Prints the lines of standard input that a pattern matches. A wildcard matches from the\n"
        "start of a line, but need not reach its end: ? is any character, * any number of them,\n"
        "# a digit. With -E the sub-matches follow each line, with their bytes from and to.\n"
        "The status is 0 when a line matched, 1 when none did, 64 when a pattern is malformed.");
}

/// One part of a line that matched, in bytes from its start; unset where @p from is negative.
struct Span {
    std::ptrdiff_t from = -1;
    std::ptrdiff_t to = -1;
};

/// Which pattern matches a line, and where; index -1 when none does.
struct Match {
    int index = -1;
    std::vector<Span> spans; ///< the whole match and the groups, as far as the engine tells
};

/// The patterns as wildcards of one token list.
class Wildcards {
public:
    explicit Wildcards(const std::vector<std::string> &patterns)
    {
        qztoken_new(&list_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        for (const std::string &pattern : patterns)
            qztoken_add(list_, pattern.c_str());
        qztoken_regex_compile(list_);
    }

    Wildcards(const Wildcards &) = delete;
    Wildcards &operator=(const Wildcards &) = delete;

    ~Wildcards() { qztoken_delete(list_); }

    Match find(const std::string &line) { return {qztoken_regex_index(list_, line.c_str()), {}}; }

private:
    int list_ = -1;
};

/// The patterns as regular expressions.
class Expressions {
public:
    explicit Expressions(const std::vector<std::string> &patterns)
    {
        for (const std::string &pattern : patterns)
            programs_.emplace_back(qz_regcomp(pattern.c_str()), &std::free);
    }

    Match find(const std::string &line)
    {
        for (std::size_t i = 0; i < programs_.size(); ++i) {
            qz_regexp *const program = programs_[i].get();
            if (qz_regexec(program, line.c_str()))
                return {static_cast<int>(i), spans_of(*program, line.c_str())};
        }
        return {};
    }

private:
    static std::vector<Span> spans_of(const qz_regexp &program, const char *text)
    {
        std::vector<Span> spans;
        for (std::size_t group = 0; group < std::size(program.startp); ++group) {
            if (!program.startp[group] || !program.endp[group])
                continue;
            spans.resize(group + 1);
            spans[group] = {program.startp[group] - text, program.endp[group] - text};
        }
        return spans;
    }

    std::vector<std::unique_ptr<qz_regexp, decltype(&std::free)>> programs_;
};

std::string text_of(const Span &span, const std::string &line)
{
    return line.substr(static_cast<std::size_t>(span.from),
                       static_cast<std::size_t>(span.to - span.from));
}

QJsonObject json_of(const Match &match, const std::string &line)
{
    QJsonObject object{{"line", json_text(line)}, {"pattern", match.index}};
    QJsonArray groups;
    for (const Span &span : match.spans) {
        if (span.from < 0) {
            groups.append(QJsonValue());
            continue;
        }
        groups.append(QJsonObject{{"text", json_text(text_of(span, line))},
                                  {"from", static_cast<qint64>(span.from)},
                                  {"to", static_cast<qint64>(span.to)}});
    }
    if (!match.spans.empty())
        object["matches"] = groups;
    return object;
}

void print_match(const Match &match, const std::string &line, bool with_number)
{
    if (with_number)
        print(std::to_string(match.index) + ' ');
    print_line(line);
    for (std::size_t group = 0; group < match.spans.size(); ++group) {
        const Span &span = match.spans[group];
        if (span.from < 0) {
            print_line("    " + std::to_string(group) + "  unset");
            continue;
        }
        print_line("    " + std::to_string(group) + "  " + std::to_string(span.from) + '-' +
                   std::to_string(span.to) + "  " + printable(text_of(span, line)));
    }
}

template <typename Patterns> int match_input(const MatchOptions &options)
{
    qzerr_errclear(-1);
    Patterns patterns(options.patterns);
    unsigned worst = QZERR_BUMMER;
    qzerr_maxlevel(-1, &worst);
    if (worst >= QZERR_WARNING)
        return kExitUsage; // the library has said which pattern is no good

    QJsonArray answer;
    bool any = false;
    for_each_input_line([&](const std::string &line) {
        const Match match = patterns.find(line);
        if (match.index < 0)
            return;
        any = true;
        if (options.json)
            answer.append(json_of(match, line));
        else
            print_match(match, line, options.number);
    });
    if (options.json)
        print_json(answer);
    return any ? 0 : 1;
}

int run_match(const MatchOptions &options)
{
    return options.expressions ? match_input<Expressions>(options)
                               : match_input<Wildcards>(options);
}

} // namespace

void add_match_commands(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "match", "Print the lines that match wildcards or expressions",
                declare_match, run_match);
}

} // namespace qz::cli
