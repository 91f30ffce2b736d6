#include "platform/file.h"

#include "platform/native_path.h"
#include "platform/windows/errno_from_windows.h"

#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

namespace qz::platform {

namespace {

/// Gives @p path the access list of @p model. A user who may not read or set it leaves the one that
/// the directory hands down.
void take_over(const std::string &path, const std::string &model)
{
    constexpr SECURITY_INFORMATION kAccessList = DACL_SECURITY_INFORMATION;
    DWORD size_bytes = 0;
    GetFileSecurityA(model.c_str(), kAccessList, nullptr, 0, &size_bytes);
    if (size_bytes == 0)
        return;
    std::vector<unsigned char> descriptor(size_bytes);
    if (GetFileSecurityA(model.c_str(), kAccessList, descriptor.data(), size_bytes, &size_bytes))
        SetFileSecurityA(path.c_str(), kAccessList, descriptor.data());
}

} // namespace

std::FILE *qzwin32_fopen(std::string_view path, const char *mode)
{
    return std::fopen(native_path(path).c_str(), mode);
}

std::FILE *create_file_like(std::string_view path, std::string_view model)
{
    const std::string native = native_path(path);
    const int fd =
        ::_open(native.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
                _S_IREAD | _S_IWRITE);
    if (fd < 0)
        return nullptr;
    take_over(native, native_path(model));
    std::FILE *stream = ::_fdopen(fd, "wb");
    if (!stream) {
        const int cause = errno;
        ::_close(fd);
        ::_unlink(native.c_str());
        errno = cause;
    }
    return stream;
}

int replace_file(std::string_view from, std::string_view to)
{
    if (MoveFileExA(native_path(from).c_str(), native_path(to).c_str(), MOVEFILE_REPLACE_EXISTING))
        return 0;
    return errno_from_windows(GetLastError());
}

} // namespace qz::platform
