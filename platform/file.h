#ifndef QZ_PLATFORM_FILE_H
#define QZ_PLATFORM_FILE_H

#include <cstdio>
#include <string>
#include <string_view>

namespace qz::platform {

/// The runtime's fopen for a path of ours; @p mode is passed on unchanged.
/// @return the stream, or null with errno set; a directory is no file, whatever the mode.
std::FILE *qzwin32_fopen(std::string_view path, const char *mode);

/// Creates a file with the owner, as far as the user may give it away, and the permissions of the
/// file @p native_model. Nothing that is there already is opened.
/// @return the binary stream, or null with errno set; EEXIST when @p native_path names something.
std::FILE *create_file_like(const std::string &native_path, const std::string &native_model);

/// Puts one file in the place of another, which may be absent, in one step.
/// @return 0 or an errno value.
int replace_file(const std::string &native_from, const std::string &native_to) noexcept;

} // namespace qz::platform

#endif
