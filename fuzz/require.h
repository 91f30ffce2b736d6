#ifndef QZ_FUZZ_REQUIRE_H
#define QZ_FUZZ_REQUIRE_H

#include <cstdlib>

namespace qz::fuzz {

/// Ends the run where something does not hold, so that the fuzzer keeps the input.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace qz::fuzz

#endif
