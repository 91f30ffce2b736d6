#include "platform/directory_calls.h"

#include "platform/native_path.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>

#include <direct.h>
#include <io.h>

namespace qz::platform {

namespace {

int errno_of(int result)
{
    return result == 0 ? 0 : errno;
}

} // namespace

int make_directory(std::string_view path)
{
    return errno_of(::_mkdir(native_path(path).c_str()));
}

int change_directory(std::string_view path)
{
    return errno_of(::_chdir(native_path(path).c_str()));
}

int current_directory(char *buffer, std::size_t size_bytes)
{
    const int limit = static_cast<int>(std::min<std::size_t>(size_bytes, INT_MAX));
    return ::_getcwd(buffer, limit) ? 0 : errno;
}

int remove_file(std::string_view path)
{
    return errno_of(::_unlink(native_path(path).c_str()));
}

int rename_file(std::string_view from, std::string_view to)
{
    return errno_of(std::rename(native_path(from).c_str(), native_path(to).c_str()));
}

} // namespace qz::platform
