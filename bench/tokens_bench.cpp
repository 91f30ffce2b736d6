// Token lists beside the splitters, number readers and matchers that callers know.

#include "qztoken.h"

#include <absl/strings/str_split.h>
#include <boost/tokenizer.hpp>

#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#ifdef QZ_BENCH_GLIB
#include <glib.h>
#endif
#ifdef QZ_BENCH_FNMATCH
#include <fnmatch.h>
#endif

namespace {

constexpr const char *kCommandLine =
    "solve --input 'first model.dat' --output \"result of the day.out\" -n 4 --tolerance 1e-6 "
    "--title 'flow around a wing' --verbose --mesh fine --steps 2000 --restart \"run 12\" --log "
    "all.log -x";

std::string random_word(std::mt19937 &random, std::size_t length)
{
    std::string word(length, 'a');
    for (char &c : word)
        c = static_cast<char>('a' + random() % 26);
    return word;
}

/// Words of 3 to 16 characters, about 10 with the blank behind them.
std::string line_of(int words)
{
    std::mt19937 random(1);
    std::string line;
    for (int i = 0; i < words; ++i)
        line += random_word(random, 3 + random() % 14) + ' ';
    return line;
}

/// The two lines of the comparison: 200 characters with quotes, and 1 MB of 100,000 words.
std::string line_for(const benchmark::State &state)
{
    return state.range(0) == 0 ? kCommandLine : line_of(static_cast<int>(state.range(0)));
}

void split_arguments(benchmark::internal::Benchmark *bench)
{
    bench->ArgName("words")->Arg(0)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

void split_qztoken(benchmark::State &state)
{
    const std::string line = line_for(state);
    for (auto _ : state) {
        int handle = 0;
        qztoken_new(&handle, line.c_str(), " \t", "''\"\"", nullptr, "\\", nullptr);
        benchmark::DoNotOptimize(qztoken_num(handle));
        qztoken_delete(handle);
    }
}

BENCHMARK(split_qztoken)->Apply(split_arguments);

void split_absl_by_char(benchmark::State &state)
{
    const std::string line = line_for(state);
    for (auto _ : state) {
        std::vector<std::string> tokens = absl::StrSplit(line, ' ', absl::SkipEmpty());
        benchmark::DoNotOptimize(tokens.data());
    }
}

BENCHMARK(split_absl_by_char)->Apply(split_arguments);

void split_absl_by_any_char(benchmark::State &state)
{
    const std::string line = line_for(state);
    for (auto _ : state) {
        std::vector<std::string> tokens =
            absl::StrSplit(line, absl::ByAnyChar(" \t"), absl::SkipEmpty());
        benchmark::DoNotOptimize(tokens.data());
    }
}

BENCHMARK(split_absl_by_any_char)->Apply(split_arguments);

void split_boost_escaped_list(benchmark::State &state)
{
    const std::string line = line_for(state);
    for (auto _ : state) {
        const boost::tokenizer<boost::escaped_list_separator<char>> tokenizer(
            line, boost::escaped_list_separator<char>("\\", " ", "\"'"));
        std::vector<std::string> tokens(tokenizer.begin(), tokenizer.end());
        benchmark::DoNotOptimize(tokens.data());
    }
}

BENCHMARK(split_boost_escaped_list)->Apply(split_arguments);

#ifdef QZ_BENCH_GLIB
void split_glib_shell(benchmark::State &state)
{
    const std::string line = line_for(state);
    for (auto _ : state) {
        int count = 0;
        char **tokens = nullptr;
        g_shell_parse_argv(line.c_str(), &count, &tokens, nullptr);
        benchmark::DoNotOptimize(count);
        g_strfreev(tokens);
    }
}

BENCHMARK(split_glib_shell)->Apply(split_arguments);
#endif

/// 100,000 tokens: two in five are integers, two are reals and one is a word.
std::vector<std::string> mixed_tokens()
{
    std::mt19937 random(2);
    std::vector<std::string> tokens;
    for (int i = 0; i < 100'000; ++i) {
        const double value =
            std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 40) - 40);
        char text[40];
        switch (i % 5) {
        case 0:
        case 1:
            tokens.push_back(std::to_string(static_cast<int>(random() >> (random() % 31))));
            break;
        case 2:
            std::snprintf(text, sizeof text, "%.3f", value);
            tokens.emplace_back(text);
            break;
        case 3:
            std::snprintf(text, sizeof text, i % 2 != 0 ? "%.6e" : "%.17g", value);
            tokens.emplace_back(text);
            break;
        default:
            tokens.push_back(random_word(random, 3 + random() % 9));
        }
    }
    return tokens;
}

struct Sum {
    long integers = 0;
    double reals = 0.0;
};

void numbers_qztoken(benchmark::State &state)
{
    std::string line;
    for (const std::string &token : mixed_tokens())
        line += token + ' ';
    int handle = 0;
    qztoken_new(&handle, line.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr);
    for (auto _ : state) {
        Sum sum;
        const int count = qztoken_num(handle);
        for (int i = 0; i < count; ++i) {
            const int type = qztoken_find_type(handle, i);
            int integer = 0;
            double real = 0.0;
            if (type == 1 && qztoken_get_int(handle, i, &integer) == 0)
                sum.integers += integer;
            else if (type == 2 && qztoken_get_double(handle, i, &real) == 0)
                sum.reals += real;
        }
        benchmark::DoNotOptimize(sum);
    }
    qztoken_delete(handle);
}

BENCHMARK(numbers_qztoken)->Unit(benchmark::kMicrosecond);

void numbers_strtol_strtod(benchmark::State &state)
{
    const std::vector<std::string> tokens = mixed_tokens();
    for (auto _ : state) {
        Sum sum;
        for (const std::string &token : tokens) {
            char *end = nullptr;
            errno = 0;
            const long integer = std::strtol(token.c_str(), &end, 10);
            if (end != token.c_str() && *end == '\0' && errno == 0 && integer <= INT_MAX) {
                sum.integers += integer;
                continue;
            }
            const double real = std::strtod(token.c_str(), &end);
            if (end != token.c_str() && *end == '\0')
                sum.reals += real;
        }
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK(numbers_strtol_strtod)->Unit(benchmark::kMicrosecond);

void numbers_std_from_chars(benchmark::State &state)
{
    const std::vector<std::string> tokens = mixed_tokens();
    for (auto _ : state) {
        Sum sum;
        for (const std::string &token : tokens) {
            const char *end = token.data() + token.size();
            int integer = 0;
            const auto whole = std::from_chars(token.data(), end, integer);
            if (whole.ec == std::errc() && whole.ptr == end) {
                sum.integers += integer;
                continue;
            }
            double real = 0.0;
            const auto general = std::from_chars(token.data(), end, real);
            if (general.ec == std::errc() && general.ptr == end)
                sum.reals += real;
        }
        benchmark::DoNotOptimize(sum);
    }
}

BENCHMARK(numbers_std_from_chars)->Unit(benchmark::kMicrosecond);

/// 100 wildcards as they stand in filters: suffixes, prefixes and parts.
std::vector<std::string> wildcards()
{
    std::mt19937 random(3);
    std::vector<std::string> result;
    for (int i = 0; i < 100; ++i) {
        const std::string word = random_word(random, 3 + random() % 3);
        const std::string suffix = random_word(random, 3);
        const std::string kinds[] = {"*." + suffix, word + "*", word + "?*." + suffix,
                                     "*" + word + "*"};
        result.push_back(kinds[i % 4]);
    }
    return result;
}

std::vector<std::string> file_names()
{
    std::mt19937 random(4);
    std::vector<std::string> names;
    for (int i = 0; i < 10'000; ++i)
        names.push_back(random_word(random, 4 + random() % 12) + "." + random_word(random, 3));
    return names;
}

void wildcards_qztoken(benchmark::State &state)
{
    int handle = 0;
    qztoken_new(&handle, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    for (const std::string &wildcard : wildcards())
        qztoken_add(handle, wildcard.c_str());
    const std::vector<std::string> names = file_names();
    for (auto _ : state) {
        qztoken_regex_compile(handle);
        int matches = 0;
        for (const std::string &name : names)
            matches += qztoken_regex_index(handle, name.c_str()) >= 0;
        benchmark::DoNotOptimize(matches);
    }
    qztoken_delete(handle);
}

BENCHMARK(wildcards_qztoken)->Unit(benchmark::kMillisecond);

#ifdef QZ_BENCH_FNMATCH
void wildcards_fnmatch(benchmark::State &state)
{
    // A wildcard of ours matches a beginning; a star at the end says the same to the peer.
    std::vector<std::string> patterns = wildcards();
    for (std::string &pattern : patterns)
        pattern += pattern.back() == '*' ? "" : "*";
    const std::vector<std::string> names = file_names();
    for (auto _ : state) {
        int matches = 0;
        for (const std::string &name : names) {
            for (const std::string &pattern : patterns) {
                if (fnmatch(pattern.c_str(), name.c_str(), 0) == 0) {
                    ++matches;
                    break;
                }
            }
        }
        benchmark::DoNotOptimize(matches);
    }
}

BENCHMARK(wildcards_fnmatch)->Unit(benchmark::kMillisecond);
#endif

/// Making and deleting a list beside many others that live.
void new_and_delete(benchmark::State &state)
{
    std::vector<int> others(static_cast<std::size_t>(state.range(0)));
    for (int &handle : others)
        qztoken_new(&handle, "a b", nullptr, nullptr, nullptr, nullptr, nullptr);
    for (auto _ : state) {
        int handle = 0;
        qztoken_new(&handle, "a b", nullptr, nullptr, nullptr, nullptr, nullptr);
        qztoken_delete(handle);
    }
    for (int handle : others)
        qztoken_delete(handle);
}

BENCHMARK(new_and_delete)->ArgName("live")->Arg(10)->Arg(100'000);

/// Time for each token of longer and longer lines; a straight line is what it should be.
void split_growth(benchmark::State &state)
{
    const std::string line = line_of(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        int handle = 0;
        qztoken_new(&handle, line.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr);
        qztoken_delete(handle);
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(split_growth)
    ->ArgName("words")
    ->RangeMultiplier(10)
    ->Range(10'000, 10'000'000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

} // namespace
