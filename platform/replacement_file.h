#ifndef QZ_PLATFORM_REPLACEMENT_FILE_H
#define QZ_PLATFORM_REPLACEMENT_FILE_H

#include "platform/file_stamp.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qz::platform {

/// The next contents of a file, written beside it and put in its place in one step.
///
/// While the object is open it excludes every other writer of the same file, in this process or
/// another, so a caller may read the file, merge and write without losing what others wrote. The
/// file is at every moment the old one or the new one. A writer that is killed leaves at most the
/// side file, which the next writer uses again.
class ReplacementFile {
public:
    ReplacementFile() = default;
    ReplacementFile(const ReplacementFile &) = delete;
    ReplacementFile &operator=(const ReplacementFile &) = delete;
    /// Gives up what was not committed and removes the side file.
    ~ReplacementFile();

    /// Opens the side file of @p native_target, waiting for another writer to finish.
    /// @return 0 or an errno value.
    int open(const std::string &native_target);
    /// @return 0 or an errno value; after a failure the object can only be destroyed.
    int write(std::string_view bytes);
    /// Puts the side file in the place of the target, on disk before it is visible. It takes over
    /// the target's permissions, and its time of change is later than the target's by a step that
    /// every reader of time stamps sees: an equal size and an equal stamp would hide a change. A
    /// target that we may not write is not replaced either.
    /// @return 0 or an errno value; on failure the target is as it was.
    int commit();

private:
    std::string target_;
    std::string side_;
    std::intptr_t handle_ = -1;
};

} // namespace qz::platform

#endif
