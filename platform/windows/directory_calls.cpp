#include "platform/directory_calls.h"

#include "platform/native_path.h"
#include "platform/windows/errno_of_path.h"

#include <algorithm>
#include <cerrno>
#include <climits>

#include <direct.h>
#include <io.h>

namespace qz::platform {

namespace {

/// Calls a function of the runtime for a path of ours.
int errno_of(int (*call)(const char *), std::string_view path)
{
    const std::string native = native_path(path);
    return call(native.c_str()) == 0 ? 0 : errno_of_path(native, errno);
}

} // namespace

int make_directory(std::string_view path)
{
    return errno_of(::_mkdir, path);
}

int change_directory(std::string_view path)
{
    return errno_of(::_chdir, path);
}

int current_directory(char *buffer, std::size_t size_bytes)
{
    const int limit = static_cast<int>(std::min<std::size_t>(size_bytes, INT_MAX));
    return ::_getcwd(buffer, limit) ? 0 : errno;
}

int remove_file(std::string_view path)
{
    return errno_of(::_unlink, path);
}

} // namespace qz::platform
