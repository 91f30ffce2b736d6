#ifndef QZ_ERRORS_MESSAGE_TEXT_H
#define QZ_ERRORS_MESSAGE_TEXT_H

#include <cstdarg>
#include <cstddef>

namespace qz::errors {

/// Formats as printf does, into at most @p size bytes (1 or more) with the NUL; longer text is cut.
/// No heap is used. Text before an argument that cannot be converted stays.
/// @return the length up to the first NUL.
std::size_t format_message_text(char *buffer, std::size_t size, const char *format,
                                va_list arguments);

} // namespace qz::errors

#endif
