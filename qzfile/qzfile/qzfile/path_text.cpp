#include "qzfile/qzfile/qzfile/path_text.h"

#include "qzfile.h"

#include <algorithm>
#include <cstring>

namespace qz::file {

namespace {

int replace_all(char *path, int size_bytes, char from, char to)
{
    if (!path || !*path || size_bytes < 2)
        return -1;
    std::replace(path, path + std::strlen(path), from, to);
    return 0;
}

} // namespace

bool is_absolute(std::string_view path)
{
    if (path.empty())
        return false;
    return is_separator(path[0]) || (path.size() > 1 && is_drive_letter(path[0]) && path[1] == ':');
}

std::string localized(std::string path)
{
    std::replace(path.begin(), path.end(), '/', kSeparator);
    return path;
}

std::string append_name(std::string directory, std::string_view name)
{
    if (!directory.empty() && !is_separator(directory.back()))
        directory += kSeparator;
    return directory.append(name);
}

} // namespace qz::file

int qzfile_path_is_absolute(const char *path)
{
    return path && qz::file::is_absolute(path) ? 0 : -1;
}

int qzfile_path_localize(char *path, int size)
{
    return qz::file::replace_all(path, size, '/', qz::file::kSeparator);
}

int qzfile_path_to_unix(char *path, int size)
{
    return qz::file::replace_all(path, size, qz::file::kSeparator, '/');
}

char qzfile_get_filesep_char(void)
{
    return qz::file::kSeparator;
}
