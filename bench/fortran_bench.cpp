// An entry point for Fortran beside the C call it forwards to.

#include "qzfile.h"
#include "qzfortran.h"
#include "qztoken.h"

#include <cstdlib>
#include <cstring>

#include <benchmark/benchmark.h>

namespace {

class Tokens {
public:
    Tokens() { qztoken_new(&handle, "1024 of 4096", nullptr, nullptr, nullptr, nullptr, nullptr); }

    ~Tokens() { qztoken_delete(handle); }

    Tokens(const Tokens &) = delete;
    Tokens &operator=(const Tokens &) = delete;

    int handle = 0;
};

void integer_c(benchmark::State &state)
{
    const Tokens tokens;
    int value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(qztoken_get_int(tokens.handle, 0, &value));
        benchmark::DoNotOptimize(value);
    }
}

BENCHMARK(integer_c);

void integer_fortran(benchmark::State &state)
{
    const Tokens tokens;
    const int index = 0;
    int value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(QZTOKENF_GET_INT(&tokens.handle, &index, &value));
        benchmark::DoNotOptimize(value);
    }
}

BENCHMARK(integer_fortran);

// The call looks at the text alone and asks no file system.
constexpr char kPath[] = "/models/turbine/blade.dat";
constexpr int kFieldBytes = 256;

void text_c(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(qzfile_path_is_absolute(kPath));
}

BENCHMARK(text_c);

/// What any such call must do first: a blank-padded field as a text with a NUL.
void text_c_and_copy(benchmark::State &state)
{
    char field[kFieldBytes];
    std::memset(field, ' ', sizeof field);
    std::memcpy(field, kPath, sizeof kPath - 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(field);
        std::size_t length = sizeof field;
        while (length > 0 && field[length - 1] == ' ')
            --length;
        char *text = static_cast<char *>(std::malloc(length + 1));
        std::memcpy(text, field, length);
        text[length] = '\0';
        benchmark::DoNotOptimize(qzfile_path_is_absolute(text));
        std::free(text);
    }
}

BENCHMARK(text_c_and_copy);

void text_fortran(benchmark::State &state)
{
    char field[kFieldBytes];
    std::memset(field, ' ', sizeof field);
    std::memcpy(field, kPath, sizeof kPath - 1);
    int status = 0;
    for (auto _ : state) {
        QZFILEF_PATH_IS_ABSOLUTE(field, &status, kFieldBytes);
        benchmark::DoNotOptimize(status);
    }
}

BENCHMARK(text_fortran);

} // namespace
