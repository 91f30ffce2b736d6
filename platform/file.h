#ifndef QZ_PLATFORM_FILE_H
#define QZ_PLATFORM_FILE_H

#include <cstdio>
#include <string_view>

namespace qz::platform {

/// The runtime's fopen for a path of ours; @p mode is passed on unchanged.
/// @return the stream, or null with errno set; a directory is no file, whatever the mode.
std::FILE *qzwin32_fopen(std::string_view path, const char *mode);

/// Creates a file with the owner, as far as the user may give it away, and the permissions of the
/// file @p model. Nothing that is there already is opened.
/// @return the binary stream to write, or null with errno set; EEXIST when @p path names something.
std::FILE *create_file_like(std::string_view path, std::string_view model);

/// Puts @p from in the place of @p to in one step; @p to may be absent.
/// @return 0 or an errno value.
int replace_file(std::string_view from, std::string_view to);

} // namespace qz::platform

#endif
