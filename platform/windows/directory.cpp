#include "platform/directory.h"

#include "platform/native_path.h"

#include <cerrno>
#include <string>

#include <windows.h>

namespace qz::platform {

struct Directory {
    HANDLE search = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAA entry = {};
    bool entry_is_new = true; // The search delivers its first entry when it begins.
};

Directory *opendir(std::string_view path)
{
    if (path.empty()) {
        errno = ENOENT;
        return nullptr;
    }
    const char last = path.back();
    const bool ends_in_separator = last == '\\' || last == '/';
    const std::string pattern = native_path(path) + (ends_in_separator ? "*" : "\\*");
    auto directory = std::make_unique<Directory>();
    directory->search = FindFirstFileExA(pattern.c_str(), FindExInfoBasic, &directory->entry,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (directory->search == INVALID_HANDLE_VALUE) {
        errno = GetLastError() == ERROR_ACCESS_DENIED ? EACCES : ENOENT;
        return nullptr;
    }
    return directory.release();
}

const char *readdir(Directory *directory)
{
    if (!directory->entry_is_new && !FindNextFileA(directory->search, &directory->entry))
        return nullptr;
    directory->entry_is_new = false;
    return directory->entry.cFileName;
}

void closedir(Directory *directory)
{
    FindClose(directory->search);
    delete directory;
}

} // namespace qz::platform
