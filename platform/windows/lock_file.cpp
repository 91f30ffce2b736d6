#include "platform/lock_file.h"

#include "platform/windows/errno_from_windows.h"

#include <windows.h>

namespace qz::platform {

int make_lock_file(const std::string &native_path)
{
    const HANDLE file =
        CreateFileA(native_path.c_str(), GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return errno_from_windows(GetLastError());
    BY_HANDLE_FILE_INFORMATION info{};
    const bool regular = GetFileInformationByHandle(file, &info) &&
                         !(info.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT);
    CloseHandle(file);
    return regular ? 0 : EINVAL;
}

} // namespace qz::platform
