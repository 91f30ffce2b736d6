#ifndef QZ_ERRORS_HANDLER_H
#define QZ_ERRORS_HANDLER_H

#include "errors/captured_text.h"
#include "qzerr.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace qz::errors {

enum class DestinationKind : int { kNone = 0, kStream = 1, kFortranUnit = 2 };

/// One error handler. A plain record without a destructor: the default handlers must still work
/// when the last static object of the process reports something.
struct QzerrHandler {
    bool in_use = true;
    std::uint32_t level = QZERR_WARNING;

    // Both are kept: the kind alone may be put back to an earlier one, whatever was set meanwhile.
    FILE *stream = nullptr; ///< borrowed; where messages go while the kind is kStream
    std::int32_t unit = 0;  ///< where they go while it is kFortranUnit

    int (*window)(const char *message) = nullptr;
    std::uint32_t max_level = QZERR_OK;
    bool capturing = false;
    CapturedText *captured = nullptr; ///< owned
    char *prefix = nullptr;           ///< owned, from malloc
    DestinationKind kind = DestinationKind::kNone;
    bool printing_suppressed = false;
    /// Messages below are neither shown nor raise the maximum; 0 in a free slot. One number, so
    /// that the filter compares once; the functions below keep it.
    std::uint32_t idle_below = QZERR_OK + 1;

    void set_level(std::uint32_t lowest_shown)
    {
        level = lowest_shown;
        idle_below = std::min(level, max_level + 1);
    }

    void set_max_level(std::uint32_t highest_thrown)
    {
        max_level = highest_thrown;
        idle_below = std::min(level, max_level + 1);
    }
};

} // namespace qz::errors

#endif
