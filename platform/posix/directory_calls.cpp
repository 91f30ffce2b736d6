#include "platform/directory_calls.h"

#include "platform/native_path.h"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace qz::platform {

namespace {

int errno_of(int result)
{
    return result == 0 ? 0 : errno;
}

} // namespace

int make_directory(std::string_view path)
{
    return errno_of(::mkdir(native_path(path).c_str(), S_IRWXU | S_IRWXG | S_IRWXO));
}

int change_directory(std::string_view path)
{
    return errno_of(::chdir(native_path(path).c_str()));
}

int current_directory(char *buffer, std::size_t size_bytes)
{
    return ::getcwd(buffer, size_bytes) ? 0 : errno;
}

int remove_file(std::string_view path)
{
    return errno_of(::unlink(native_path(path).c_str()));
}

} // namespace qz::platform
