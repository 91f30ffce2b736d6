#include "platform/replacement_file.h"

#include "platform/later_stamp.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qz::platform {

namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;

int retry_interrupted(int (*call)(int, int), int fd, int argument)
{
    int result = 0;
    do {
        result = call(fd, argument);
    } while (result != 0 && errno == EINTR);
    return result;
}

/// Whether @p path still names the file behind @p fd: another writer may have moved it into place.
bool still_names(const std::string &path, int fd)
{
    struct stat by_path {};

    struct stat by_handle {};

    return ::lstat(path.c_str(), &by_path) == 0 && ::fstat(fd, &by_handle) == 0 &&
           by_path.st_ino == by_handle.st_ino && by_path.st_dev == by_handle.st_dev;
}

std::int64_t changed_ns(const struct stat &info)
{
    return std::int64_t{info.st_mtim.tv_sec} * kNanosecondsPerSecond + info.st_mtim.tv_nsec;
}

int read_changed(int fd, std::int64_t &stamp_ns)
{
    struct stat info {};

    if (::fstat(fd, &info) != 0)
        return errno;
    stamp_ns = changed_ns(info);
    return 0;
}

int write_changed(int fd, std::int64_t stamp_ns)
{
    const timespec times[2] = {
        {0, UTIME_OMIT},
        {static_cast<time_t>(stamp_ns / kNanosecondsPerSecond),
         static_cast<long>(stamp_ns % kNanosecondsPerSecond)},
    };
    return ::futimens(fd, times) == 0 ? 0 : errno;
}

} // namespace

ReplacementFile::~ReplacementFile()
{
    if (handle_ < 0)
        return;
    ::unlink(side_.c_str());
    ::close(static_cast<int>(handle_));
}

int ReplacementFile::open(const std::string &native_target)
{
    target_ = native_target;
    side_ = target_ + ".new";
    for (;;) {
        const int fd = ::open(side_.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (fd < 0 && errno == EINTR)
            continue;
        if (fd < 0)
            return errno;
        if (retry_interrupted(::flock, fd, LOCK_EX) != 0) {
            const int cause = errno;
            ::close(fd);
            return cause;
        }
        if (!still_names(side_, fd)) {
            ::close(fd);
            continue;
        }
        handle_ = fd;
        return ::ftruncate(fd, 0) == 0 ? 0 : errno;
    }
}

int ReplacementFile::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(static_cast<int>(handle_), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

int ReplacementFile::commit()
{
    const int fd = static_cast<int>(handle_);

    struct stat target {};

    if (::stat(target_.c_str(), &target) == 0) {
        // The rename alone would ask for no right to the file.
        if (::faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0)
            return errno;
        if (::fchmod(fd, target.st_mode & 07777) != 0)
            return errno;
        // Only a privileged caller can hand a file back to its owner; for all others it is theirs.
        if (::fchown(fd, target.st_uid, target.st_gid) != 0 && errno != EPERM)
            return errno;
        if (const int cause = move_stamp_past(changed_ns(target), fd, read_changed, write_changed))
            return cause;
    }
    if (::fdatasync(fd) != 0)
        return errno;
    if (::rename(side_.c_str(), target_.c_str()) != 0)
        return errno;
    ::close(fd);
    handle_ = -1;
    return 0;
}

} // namespace qz::platform
