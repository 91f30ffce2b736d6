#include "errors/level.h"

#include "qzerr.h"

#include <algorithm>
#include <cstdio>

namespace qz::errors {

namespace {

constexpr std::string_view kLevelNames[] = {"BUMMER",  "OK",    "DEBUG", "INFO",
                                            "WARNING", "FATAL", "OFF",   "LEVEL UNDEFINED"};

constexpr int kReturnCodes = 10;
constexpr int kReturnCodeBytes = 512;

} // namespace

std::string_view level_name(unsigned level)
{
    return kLevelNames[std::min(level, kLevelUndefined)];
}

} // namespace qz::errors

const char *qzerr_return_code(unsigned level)
{
    using namespace qz::errors;
    static char texts[kReturnCodes][kReturnCodeBytes];
    static int last = 0;

    last = (last + 1) % kReturnCodes;
    char *text = texts[last];
    // Level 7 has a name here although it counts as undefined in a message.
    if (level <= kLevelUndefined)
        std::snprintf(text, kReturnCodeBytes, "QZERR_%s", level_name(level).data());
    else
        std::snprintf(text, kReturnCodeBytes, "(bogus QZERR level)");
    return text;
}
