#include "platform/directory_calls.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>
#include <system_error>

using namespace qz::file;
using qz::platform::make_directory;

namespace {

/// Room for the current directory, and the longest prefix that is made on the way down.
constexpr std::size_t kPathLimit = 1024;

std::string error_text(int reason)
{
    return std::generic_category().message(reason);
}

/// Makes a directory and what is missing above it.
/// @return 0, or the errno value of what could not be made; EEXIST when the last one was there.
int make_with_parents(std::string_view path)
{
    // Up: cut components off until one is there or can be made.
    std::size_t made = path.size();
    int reason = make_directory(path);
    while (reason == ENOENT) {
        const std::size_t cut = path.substr(0, made).rfind(kSeparator);
        if (cut == std::string_view::npos || cut == 0)
            return reason;
        made = cut;
        reason = make_directory(path.substr(0, made));
    }
    // Down: make the rest one by one. A component that has come into being meanwhile is welcome.
    while (made < path.size() && (reason == 0 || reason == EEXIST)) {
        made = std::min(path.find(kSeparator, made + 1), path.size());
        reason = made > kPathLimit ? ENAMETOOLONG : make_directory(path.substr(0, made));
    }
    return reason;
}

int make_absolute_directory(const std::string &path)
{
    const int reason = make_with_parents(path);
    if (reason == 0 || reason == EEXIST)
        return 0;
    errno = reason;
    return fail("qzfile_mkdir: qzfile_mkdir_recursive failed: %s : %s\n", path.c_str(),
                error_text(reason).c_str());
}

int make_relative_directory(const char *path)
{
    char current[kPathLimit];
    if (const int reason = qz::platform::current_directory(current, sizeof current); reason != 0) {
        errno = reason;
        return fail("qzfile_mkdir: getcwd failed: %s: %s\n", path, error_text(reason).c_str());
    }
    return make_absolute_directory(localized(std::string(current) + kSeparator + path));
}

} // namespace

int qzfile_mkdir(const char *path, int /*mode*/)
{
    if (!path)
        return fail("qzfile_mkdir: Null path\n");
    return guarded(-1, [&] {
        return is_absolute(path) ? make_absolute_directory(localized(path))
                                 : make_relative_directory(path);
    });
}
