#ifndef QZ_PLATFORM_LATER_STAMP_H
#define QZ_PLATFORM_LATER_STAMP_H

#include <cstdint>

namespace qz::platform {

/// Moves a file's time of change, in nanoseconds since 1970, past that of the file it replaces.
/// What the file system keeps of it is read back.
/// @param read   asks for the time; gives 0 or an errno value
/// @param write  sets it; the same
/// @return 0 or the errno value of a call that failed.
template <typename File>
int move_stamp_past(std::int64_t replaced_ns, File file,
                    int (*read)(File, std::int64_t &changed_ns),
                    int (*write)(File, std::int64_t changed_ns))
{
    // The first step is what a reader that compares milliseconds sees; the second is for file
    // systems that keep every other second.
    constexpr std::int64_t kSteps_ns[] = {1'000'000, 4'000'000'000};
    for (const std::int64_t step_ns : kSteps_ns) {
        std::int64_t changed_ns = 0;
        if (const int cause = read(file, changed_ns))
            return cause;
        if (changed_ns - replaced_ns >= kSteps_ns[0])
            return 0;
        if (const int cause = write(file, replaced_ns + step_ns))
            return cause;
    }
    return 0;
}

} // namespace qz::platform

#endif
