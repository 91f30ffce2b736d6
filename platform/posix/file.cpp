#include "platform/file.h"

#include "platform/native_path.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qz::platform {

namespace {

/// Hands the file behind @p fd to the owner and the permissions of @p model.
int take_over(int fd, const struct stat &model)
{
    // Only a privileged caller can give a file away; a member of the group can give it to that. The
    // owner goes first: a change of owner takes permissions away.
    if (::fchown(fd, model.st_uid, model.st_gid) != 0 &&
        ::fchown(fd, static_cast<uid_t>(-1), model.st_gid) != 0 && errno != EPERM)
        return -1;
    return ::fchmod(fd, model.st_mode & 07777);
}

} // namespace

std::FILE *qzwin32_fopen(std::string_view path, const char *mode)
{
    std::FILE *stream = std::fopen(native_path(path).c_str(), mode);

    struct stat info {};

    if (stream && ::fstat(::fileno(stream), &info) == 0 && S_ISDIR(info.st_mode)) {
        std::fclose(stream);
        errno = EACCES;
        return nullptr;
    }
    return stream;
}

std::FILE *create_file_like(const std::string &native_path, const std::string &native_model)
{
    struct stat model {};

    if (::stat(native_model.c_str(), &model) != 0)
        return nullptr;
    const int fd =
        ::open(native_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (fd < 0)
        return nullptr;
    std::FILE *stream = take_over(fd, model) == 0 ? ::fdopen(fd, "wb") : nullptr;
    if (!stream) {
        const int cause = errno;
        ::close(fd);
        ::unlink(native_path.c_str());
        errno = cause;
    }
    return stream;
}

int replace_file(const std::string &native_from, const std::string &native_to) noexcept
{
    return std::rename(native_from.c_str(), native_to.c_str()) == 0 ? 0 : errno;
}

} // namespace qz::platform
