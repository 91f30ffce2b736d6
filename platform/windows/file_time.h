#ifndef QZ_PLATFORM_WINDOWS_FILE_TIME_H
#define QZ_PLATFORM_WINDOWS_FILE_TIME_H

#include <cstdint>

#include <windows.h>

namespace qz::platform {

constexpr std::int64_t kNanosecondsPerTick = 100;
/// From the first day of 1601, where Windows counts from, to that of 1970. Without this step the
/// nanoseconds of today would not fit.
constexpr std::int64_t kTicksTo1970 = 116'444'736'000'000'000;

inline std::int64_t ns_since_1970(const FILETIME &time)
{
    ULARGE_INTEGER ticks{};
    ticks.LowPart = time.dwLowDateTime;
    ticks.HighPart = time.dwHighDateTime;
    return (static_cast<std::int64_t>(ticks.QuadPart) - kTicksTo1970) * kNanosecondsPerTick;
}

inline FILETIME file_time(std::int64_t since_1970_ns)
{
    ULARGE_INTEGER ticks{};
    ticks.QuadPart = static_cast<ULONGLONG>(since_1970_ns / kNanosecondsPerTick + kTicksTo1970);
    return {ticks.LowPart, ticks.HighPart};
}

} // namespace qz::platform

#endif
