#ifndef QZ_PLATFORM_DIRECTORY_H
#define QZ_PLATFORM_DIRECTORY_H

#include <memory>
#include <string_view>

namespace qz::platform {

/// An open directory.
struct Directory;

/// @return null with errno set when @p path cannot be read as a directory.
Directory *opendir(std::string_view path);

/// The bare name of the next entry, "." and ".." included, in the order in which the system keeps
/// them: borrowed until the next call on the directory. Null at the end, and when reading fails.
const char *readdir(Directory *directory);

void closedir(Directory *directory);

struct CloseDirectory {
    void operator()(Directory *directory) const { closedir(directory); }
};

using OpenDirectory = std::unique_ptr<Directory, CloseDirectory>;

} // namespace qz::platform

#endif
