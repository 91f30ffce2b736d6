#include "platform/file_kind.h"

#include <sys/stat.h>

namespace qz::platform {

FileKind file_kind(const char *native_path)
{
    struct stat info;

    if (::stat(native_path, &info) != 0)
        return FileKind::None;
    if (S_ISREG(info.st_mode))
        return FileKind::RegularFile;
    return S_ISDIR(info.st_mode) ? FileKind::Directory : FileKind::Other;
}

} // namespace qz::platform
