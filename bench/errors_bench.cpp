// What a message costs, each beside the least that the same work could cost.

#include "qzerr.h"
#include "qzerr.hpp"

#include <cstdint>
#include <cstdio>

#include <benchmark/benchmark.h>

namespace {

/// A handler of its own on a stream that goes nowhere, through the stream's usual buffer.
class StreamHandler {
public:
    StreamHandler() : stream_(std::fopen("/dev/null", "w"))
    {
        qzerr_new(&id_);
        qzerr_prefix(id_, "bench: ");
        qzerr_file(id_, stream_);
    }

    ~StreamHandler()
    {
        qzerr_delete(id_);
        std::fclose(stream_);
    }

    StreamHandler(const StreamHandler &) = delete;
    StreamHandler &operator=(const StreamHandler &) = delete;

    int id() const { return id_; }

    FILE *stream() const { return stream_; }

private:
    FILE *stream_;
    int id_ = 0;
};

void fprintf_to_stream(benchmark::State &state)
{
    const StreamHandler handler;
    int i = 0;
    for (auto _ : state)
        std::fprintf(handler.stream(), "%s%s cannot read %s: line %d\n", "bench: ", "FATAL",
                     "project/mesh.dat", ++i);
}

void throw_to_stream(benchmark::State &state)
{
    const StreamHandler handler;
    int i = 0;
    for (auto _ : state)
        qzerr_throw(handler.id(), QZERR_FATAL, "cannot read %s: line %d\n", "project/mesh.dat",
                    ++i);
}

/// What a filter does at least: a call that compares a level with a threshold.
[[gnu::noinline]] int compare_level(const volatile unsigned *threshold, unsigned level)
{
    return level < *threshold ? 1 : 0;
}

void filtered_bare_comparison(benchmark::State &state)
{
    const volatile unsigned threshold = QZERR_WARNING;
    for (auto _ : state)
        benchmark::DoNotOptimize(compare_level(&threshold, QZERR_INFO));
}

/// What a caller pays to get into the library and out again.
void filtered_empty_call(benchmark::State &state)
{
    for (auto _ : state)
        halcyra::print_backtrace();
}

void filtered_on_library_handler(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(qzerr_throw(-1, QZERR_INFO, "line %d\n", 7));
}

void filtered_on_own_handler(benchmark::State &state)
{
    const StreamHandler handler;
    for (auto _ : state)
        benchmark::DoNotOptimize(qzerr_throw(handler.id(), QZERR_INFO, "line %d\n", 7));
}

/// The time per message must not grow with the number of messages.
void capture(benchmark::State &state)
{
    for (auto _ : state) {
        halcyra::qzlibs::CaptureQZErr captured(0);
        for (std::int64_t i = 0; i < state.range(0); ++i)
            qzerr_throw(0, QZERR_WARNING, "cannot read line %d\n", 7);
        benchmark::DoNotOptimize(captured.getMessages());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(fprintf_to_stream);
BENCHMARK(throw_to_stream);
BENCHMARK(filtered_bare_comparison);
BENCHMARK(filtered_empty_call);
BENCHMARK(filtered_on_library_handler);
BENCHMARK(filtered_on_own_handler);
BENCHMARK(capture)->RangeMultiplier(10)->Range(100, 100000);
