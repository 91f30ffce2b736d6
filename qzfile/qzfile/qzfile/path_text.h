#ifndef QZ_QZFILE_PATH_TEXT_H
#define QZ_QZFILE_PATH_TEXT_H

#include <string>
#include <string_view>

namespace qz::file {

// Rules about the text of paths: the same on every system, and nothing here asks one.

constexpr char kSeparator = '\\';

constexpr bool is_separator(char c)
{
    return c == '\\' || c == '/';
}

/// Whether a letter may name a drive.
constexpr bool is_drive_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Whether a path begins at a root or names a drive ("C:x" counts).
bool is_absolute(std::string_view path);

/// The path with every '/' turned into '\\'.
std::string localized(std::string path);

/// Appends a name to a directory: a separator comes between them unless the directory is empty or
/// ends in one.
std::string append_name(std::string directory, std::string_view name);

} // namespace qz::file

#endif
