#include "platform/directory.h"

#include "platform/native_path.h"

#include <cerrno>
#include <new>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace qz::platform {

namespace {

// Eight times what the runtime's readdir asks for: long listings spend their time in the system.
// Of a short one only the first pages are touched.
constexpr std::size_t kEntriesBytes = 256 * 1024;

} // namespace

struct Directory {
    int descriptor;
    long taken_bytes = 0;
    long filled_bytes = 0;
    alignas(dirent64) char entries[kEntriesBytes];
};

Directory *opendir(std::string_view path)
{
    const int descriptor =
        ::open(native_path(path).c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return nullptr;
    auto *directory = new (std::nothrow) Directory;
    if (!directory) {
        ::close(descriptor);
        errno = ENOMEM;
        return nullptr;
    }
    directory->descriptor = descriptor;
    return directory;
}

const char *readdir(Directory *directory)
{
    if (directory->taken_bytes == directory->filled_bytes) {
        directory->taken_bytes = 0;
        directory->filled_bytes =
            ::getdents64(directory->descriptor, directory->entries, kEntriesBytes);
        if (directory->filled_bytes <= 0) {
            directory->filled_bytes = 0;
            return nullptr;
        }
    }
    const char *next = directory->entries + directory->taken_bytes;
    const auto *entry = reinterpret_cast<const dirent64 *>(next);
    directory->taken_bytes += entry->d_reclen;
    return entry->d_name;
}

void closedir(Directory *directory)
{
    ::close(directory->descriptor);
    delete directory;
}

} // namespace qz::platform
