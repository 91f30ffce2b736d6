#include "platform/lock_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qz::platform {

int make_lock_file(const std::string &native_path)
{
    constexpr int kFlags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    int fd = -1;
    do {
        // A system may refuse to make what another user has made in a shared directory, even to the
        // superuser, so only a file that is missing is to be made.
        fd = ::open(native_path.c_str(), kFlags);
        if (fd < 0 && errno == ENOENT)
            fd = ::open(native_path.c_str(), kFlags | O_CREAT, 0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return errno;

    struct stat info {};

    const bool regular = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
    ::close(fd);
    return regular ? 0 : EINVAL;
}

} // namespace qz::platform
