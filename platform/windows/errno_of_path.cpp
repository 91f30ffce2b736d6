#include "platform/windows/errno_of_path.h"

#include <algorithm>
#include <cerrno>

#include <windows.h>

namespace qz::platform {

namespace {

constexpr std::size_t kLongestName = 255;
constexpr char kSeparators[] = "/\\";

bool has_a_name_too_long(const std::string &path)
{
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find_first_of(kSeparators, begin), path.size());
        if (end - begin > kLongestName)
            return true;
        begin = end + 1;
    }
    return path.size() >= MAX_PATH;
}

/// Whether the longest part of @p path that is there is something else than a directory.
bool leads_through_a_file(std::string path)
{
    for (;;) {
        const DWORD attributes = GetFileAttributesA(path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES)
            return !(attributes & FILE_ATTRIBUTE_DIRECTORY);
        const std::size_t separator = path.find_last_of(kSeparators);
        if (separator == std::string::npos || separator == 0)
            return false;
        path.resize(separator);
    }
}

} // namespace

int errno_of_path(const std::string &native_path, int reason)
{
    if (reason != ENOENT && reason != EINVAL)
        return reason;
    if (has_a_name_too_long(native_path))
        return ENAMETOOLONG;
    return leads_through_a_file(native_path) ? ENOTDIR : reason;
}

} // namespace qz::platform
