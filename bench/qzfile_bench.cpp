// A listing of 100,000 names with a filter, side by side with what a program would use otherwise;
// expansion by length; release order.

#include "qzfile.hpp"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

#include <benchmark/benchmark.h>

#ifdef QZ_BENCH_RE2
#include <dirent.h>
#include <re2/re2.h>
#endif

namespace {

constexpr int kNames = 100000;
constexpr char kPattern[] = "^plindra-v[0-9]+(.[0-9]+)?$";

/// The names of a large project directory, a tenth of which pass the filter.
const std::string &large_directory()
{
    static const QTemporaryDir directory;
    static const std::string path = [] {
        const std::string root = directory.path().toStdString();
        for (int i = 0; i < kNames; ++i) {
            const std::string number = std::to_string(i);
            const std::string name = i % 10 ? "/project_" + number + ".dat" : "/plindra-v" + number;
            std::ofstream(root + name).close();
        }
        return root;
    }();
    return path;
}

void expect_a_tenth(benchmark::State &state, int matches)
{
    if (matches != kNames / 10)
        state.SkipWithError("not the names that were made");
}

void list_qzfile(benchmark::State &state)
{
    const std::string &path = large_directory();
    for (auto _ : state) {
        int handle = -1;
        qzfile_open_directory(&handle, path.c_str());
        qzfile_set_dir_filter(handle, kPattern);
        char name[257];
        int matches = 0;
        while (qzfile_get_next_file(handle, name, 256) == 0)
            ++matches;
        qzfile_close_directory(handle);
        expect_a_tenth(state, matches);
    }
}

void list_qdir(benchmark::State &state)
{
    const QString path = QString::fromStdString(large_directory());
    for (auto _ : state) {
        const QRegularExpression filter{QString::fromLatin1(kPattern)};
        int matches = 0;
        for (const QString &name : QDir(path).entryList(QDir::AllEntries, QDir::Unsorted))
            matches += filter.match(name).hasMatch() ? 1 : 0;
        expect_a_tenth(state, matches);
    }
}

void list_std_filesystem(benchmark::State &state)
{
    const std::string &path = large_directory();
    for (auto _ : state) {
        const std::regex filter(kPattern, std::regex::optimize);
        int matches = 0;
        for (const auto &entry : std::filesystem::directory_iterator(path))
            matches += std::regex_search(entry.path().filename().string(), filter) ? 1 : 0;
        expect_a_tenth(state, matches);
    }
}

#ifdef QZ_BENCH_RE2
void list_readdir_re2(benchmark::State &state)
{
    const std::string &path = large_directory();
    for (auto _ : state) {
        const RE2 filter(kPattern);
        DIR *directory = opendir(path.c_str());
        int matches = 0;
        while (const dirent *entry = readdir(directory))
            matches += RE2::PartialMatch(entry->d_name, filter) ? 1 : 0;
        closedir(directory);
        expect_a_tenth(state, matches);
    }
}

BENCHMARK(list_readdir_re2)->Unit(benchmark::kMillisecond);
#endif

/// The time for each variable stays the same, however many there are.
void expand(benchmark::State &state)
{
    setenv("QZ_BENCH", "value", 1);
    std::string text;
    for (int i = 0; i < state.range(0); ++i)
        text += "$QZ_BENCH/some/text";
    for (auto _ : state) {
        char *out = nullptr;
        qzfile_dir_expand(text.c_str(), &out);
        std::free(out);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void compare(benchmark::State &state)
{
    const std::string newer = "2024-1";
    const std::string older = "2013";
    for (auto _ : state)
        benchmark::DoNotOptimize(compare_releases(newer, older));
}

} // namespace

BENCHMARK(list_qzfile)->Unit(benchmark::kMillisecond);
BENCHMARK(list_qdir)->Unit(benchmark::kMillisecond);
BENCHMARK(list_std_filesystem)->Unit(benchmark::kMillisecond);
BENCHMARK(expand)->Range(1, 100000);
BENCHMARK(compare);
