#ifndef QZ_PLATFORM_FILE_H
#define QZ_PLATFORM_FILE_H

#include <cstdio>
#include <string_view>

namespace qz::platform {

/// The runtime's fopen for a path of ours; @p mode is passed on unchanged.
/// @return the stream, or null with errno set.
std::FILE *qzwin32_fopen(std::string_view path, const char *mode);

} // namespace qz::platform

#endif
