#include "platform/lock_file.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qz::platform {

int make_lock_file(const std::string &native_path)
{
    int fd = -1;
    do {
        fd = ::open(native_path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK,
                    0666);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return errno;

    struct stat info {};

    const bool regular = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode);
    ::close(fd);
    return regular ? 0 : EINVAL;
}

} // namespace qz::platform
