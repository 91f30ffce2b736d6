#include "platform/shell_folders.h"

#include <shlobj.h>
#include <windows.h>

namespace qz::platform {

std::optional<std::string> shell_folder(ShellFolder folder, MissingFolder missing)
{
    const int number = static_cast<int>(folder);
    const int query = missing == MissingFolder::Make
                          ? number
                          : (number & ~CSIDL_FLAG_CREATE) | CSIDL_FLAG_DONT_VERIFY;
    char path[MAX_PATH] = {};
    if (SHGetFolderPathA(nullptr, query, nullptr, 0, path) != S_OK)
        return std::nullopt;
    return path;
}

} // namespace qz::platform
