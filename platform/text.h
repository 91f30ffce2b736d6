#ifndef QZ_PLATFORM_TEXT_H
#define QZ_PLATFORM_TEXT_H

#include <cstdarg>
#include <cstddef>
#include <string>

namespace qz::platform {

/// Formats as printf does, into at most @p size bytes (1 or more) with the NUL.
/// @return the length of the whole text, cut or not; negative when an argument cannot be converted.
///         The buffer is terminated in each case, and a cut or failed text stands in it so far.
int qzwin32_vsnprintf(char *buffer, std::size_t size, const char *format, va_list arguments);

/// The system's text for the calling thread's last error code, without a line break at its end.
std::string qzwin32_get_last_error();

} // namespace qz::platform

#endif
