// A name found in the first and in the last of twenty directories, beside the bare status calls
// that any lookup of it has to make.

#include "qzfile.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <sys/stat.h>

namespace {

constexpr char kName[] = "forcefield.dat";

/// Twenty directories with the file in one of them, set as the search path.
class Directories {
public:
    explicit Directories(std::int64_t holder)
    {
        std::string list;
        for (int i = 1; i <= 20; ++i) {
            const std::string path = root_.path().toStdString() + "/data" + std::to_string(i);
            std::filesystem::create_directory(path);
            if (i == holder)
                std::ofstream(path + "/" + kName).close();
            list += path + ":";
            candidates_.push_back(path + "/" + kName);
        }
        qzfile_path_set(list.c_str());
    }

    const std::vector<std::string> &candidates() const { return candidates_; }

private:
    QTemporaryDir root_;
    std::vector<std::string> candidates_;
};

void find_bare_status(benchmark::State &state)
{
    const Directories directories(state.range(0));
    for (auto _ : state) {
        for (const std::string &candidate : directories.candidates()) {
            struct stat info {};

            if (::stat(candidate.c_str(), &info) == 0 && S_ISREG(info.st_mode))
                break;
        }
    }
}

void find_qzfile_exists(benchmark::State &state)
{
    const Directories directories(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(qzfile_exists(kName, 0));
}

void find_qzfile_find(benchmark::State &state)
{
    const Directories directories(state.range(0));
    for (auto _ : state) {
        char *found = nullptr;
        qzfile_find(kName, 0, &found);
        std::free(found);
    }
}

void find_std_filesystem(benchmark::State &state)
{
    const Directories directories(state.range(0));
    for (auto _ : state) {
        for (const std::string &candidate : directories.candidates()) {
            const std::filesystem::path path = candidate;
            if (std::filesystem::is_regular_file(path.parent_path() / kName))
                break;
        }
    }
}

} // namespace

BENCHMARK(find_bare_status)->Arg(1)->Arg(20);
BENCHMARK(find_qzfile_exists)->Arg(1)->Arg(20);
BENCHMARK(find_qzfile_find)->Arg(1)->Arg(20);
BENCHMARK(find_std_filesystem)->Arg(1)->Arg(20);
