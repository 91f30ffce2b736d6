#include "platform/file.h"

#include "platform/native_path.h"
#include "platform/windows/access_list.h"
#include "platform/windows/errno_from_windows.h"

#include <cerrno>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace qz::platform {

std::FILE *qzwin32_fopen(std::string_view path, const char *mode)
{
    return std::fopen(native_path(path).c_str(), mode);
}

std::FILE *create_file_like(const std::string &native_path, const std::string &native_model)
{
    AccessList list = access_list(native_model);
    const int fd =
        ::_open(native_path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                _S_IREAD | _S_IWRITE);
    if (fd < 0)
        return nullptr;
    set_access_list(native_path, list);
    std::FILE *stream = ::_fdopen(fd, "wb");
    if (!stream) {
        const int cause = errno;
        ::_close(fd);
        ::_unlink(native_path.c_str());
        errno = cause;
    }
    return stream;
}

int replace_file(const std::string &native_from, const std::string &native_to) noexcept
{
    if (MoveFileExA(native_from.c_str(), native_to.c_str(), MOVEFILE_REPLACE_EXISTING))
        return 0;
    return errno_from_windows(GetLastError());
}

} // namespace qz::platform
