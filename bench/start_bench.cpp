// What a program pays for being linked to the library, from its start to its end.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>

extern char **environ;

namespace {

void start(benchmark::State &state, const char *program)
{
    char *const arguments[] = {const_cast<char *>(program), nullptr};
    for (auto _ : state) {
        pid_t child = 0;
        int status = 0;
        if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0 ||
            waitpid(child, &status, 0) != child || status != 0) {
            state.SkipWithError("the program did not run");
            return;
        }
    }
}

BENCHMARK_CAPTURE(start, qt_core, QZ_START_QT)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(start, library, QZ_START_LIBRARY)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
