// Whole files: the line ends of 100 MB beside the tools that convert them, the digest of 256 MB
// beside the cryptography library's own program. A program that is not installed is left out.

#include "qzfile.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <benchmark/benchmark.h>

namespace {

constexpr std::size_t kText_bytes = 100'000'000;
constexpr std::size_t kDigested_bytes = std::size_t{256} << 20;

/// A directory with the files of this run. The originals are made once.
class Files {
public:
    Files()
    {
        std::string lines;
        for (int i = 0; lines.size() < 1'000'000; ++i)
            lines += "ATOM " + std::to_string(i) +
                     std::string(static_cast<std::size_t>(i % 60), ' ') + "1.234\r\n";
        std::ofstream dos(name("dos"), std::ios::binary);
        for (std::size_t written = 0; written < kText_bytes; written += lines.size())
            dos << lines;
        std::ofstream digested(name("digested"), std::ios::binary);
        for (std::size_t written = 0; written < kDigested_bytes; written += lines.size())
            digested << lines;
    }

    std::string name(const char *file) const
    {
        return directory_.path().toStdString() + "/" + file;
    }

private:
    QTemporaryDir directory_;
};

const Files &files()
{
    static const Files made;
    return made;
}

bool is_installed(const std::string &program)
{
    return std::system(("command -v " + program + " >/dev/null").c_str()) == 0;
}

/// Converts a fresh copy in each round; what a round leaves to be written is not the next one's.
template <typename Convert> void convert_copies(benchmark::State &state, Convert convert)
{
    const std::string copy = files().name("copy");
    const auto copied = std::filesystem::copy_options::overwrite_existing;
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::copy_file(files().name("dos"), copy, copied);
        state.ResumeTiming();
        if (convert(copy) != 0)
            state.SkipWithError("not converted");
    }
    if (qzfile_is_dosfile(copy.c_str()) == 0)
        state.SkipWithError("not converted");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kText_bytes));
}

void lines_qzfile(benchmark::State &state)
{
    convert_copies(state, [](const std::string &file) { return qzfile_dos_to_unix(file.c_str()); });
}

/// Runs a shell command with the copy as $f.
void lines_command(benchmark::State &state, const char *program, const std::string &command)
{
    if (!is_installed(program)) {
        state.SkipWithError("not installed");
        return;
    }
    convert_copies(state, [&](const std::string &file) {
        return std::system(("f=" + file + "; " + command).c_str());
    });
}

void digest_qzfile(benchmark::State &state)
{
    const std::string file = files().name("digested");
    unsigned char digest[16];
    for (auto _ : state)
        benchmark::DoNotOptimize(qzfile_md5_file(digest, file.c_str()));
}

void digest_openssl(benchmark::State &state)
{
    const std::string command = "openssl md5 " + files().name("digested") + " >/dev/null";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("not installed");
    }
}

} // namespace

BENCHMARK(lines_qzfile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(lines_command, dos2unix, "dos2unix", "dos2unix -q $f")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(lines_command, sed, "sed", "sed -i 's/\\r$//' $f")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(lines_command, tr, "tr", "tr -d '\\r' <$f >$f.new && mv $f.new $f")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(digest_qzfile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(digest_openssl)->Unit(benchmark::kMillisecond)->UseRealTime();
