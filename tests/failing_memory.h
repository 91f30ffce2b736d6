#pragma once

namespace qz::test {

/// The call that fails, counted down: 1 is the next one, 0 none.
struct Countdown {
    int calls = 0;

    bool is_over() { return calls > 0 && --calls == 0; }
};

/// Of the allocations in a program that is linked with failing_memory.cpp and with the library's
/// objects.
extern Countdown new_fault;

} // namespace qz::test
