#include "platform/directory.h"

#include "platform/native_path.h"

#include <dirent.h>

namespace qz::platform {

struct Directory {
    DIR *stream;
};

Directory *opendir(std::string_view path)
{
    DIR *stream = ::opendir(native_path(path).c_str());
    return stream ? new Directory{stream} : nullptr;
}

const char *readdir(Directory *directory)
{
    const dirent *entry = ::readdir(directory->stream);
    return entry ? entry->d_name : nullptr;
}

void closedir(Directory *directory)
{
    ::closedir(directory->stream);
    delete directory;
}

} // namespace qz::platform
