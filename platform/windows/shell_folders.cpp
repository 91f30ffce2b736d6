#include "platform/shell_folders.h"

#include <shlobj.h>
#include <windows.h>

namespace qz::platform {

std::optional<std::string> shell_folder(ShellFolder folder)
{
    char path[MAX_PATH] = {};
    if (SHGetFolderPathA(nullptr, static_cast<int>(folder), nullptr, 0, path) != S_OK)
        return std::nullopt;
    return path;
}

} // namespace qz::platform
