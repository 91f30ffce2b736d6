#include "platform/file_stamp.h"

#include <cstdlib>
#include <memory>

#include <sys/stat.h>

namespace qz::platform {

FileStamp file_stamp(const std::string &native_path)
{
    struct stat info {};

    if (::stat(native_path.c_str(), &info) != 0)
        return {};
    FileStamp stamp;
    stamp.exists = true;
    stamp.size_bytes = info.st_size;
    stamp.changed_ns = std::int64_t{info.st_mtim.tv_sec} * 1'000'000'000 + info.st_mtim.tv_nsec;
    stamp.identity = info.st_ino;
    return stamp;
}

std::string link_target(const std::string &native_path)
{
    struct stat info {};

    if (::lstat(native_path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode))
        return native_path;
    const std::unique_ptr<char, void (*)(void *)> resolved(::realpath(native_path.c_str(), nullptr),
                                                           std::free);
    return resolved ? resolved.get() : native_path;
}

} // namespace qz::platform
