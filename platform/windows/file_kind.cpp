#include "platform/file_kind.h"

#include <windows.h>

namespace qz::platform {

namespace {

/// The attributes of what a link finally names.
DWORD followed_attributes(const char *native_path)
{
    const HANDLE file = CreateFileA(native_path, FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return INVALID_FILE_ATTRIBUTES;
    BY_HANDLE_FILE_INFORMATION info{};
    const bool is_known = GetFileInformationByHandle(file, &info);
    CloseHandle(file);
    return is_known ? info.dwFileAttributes : INVALID_FILE_ATTRIBUTES;
}

} // namespace

FileKind file_kind(const char *native_path)
{
    DWORD attributes = GetFileAttributesA(native_path);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        attributes = followed_attributes(native_path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FileKind::None;
    if (attributes & FILE_ATTRIBUTE_DEVICE)
        return FileKind::Other;
    return attributes & FILE_ATTRIBUTE_DIRECTORY ? FileKind::Directory : FileKind::RegularFile;
}

} // namespace qz::platform
