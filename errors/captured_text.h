#ifndef QZ_ERRORS_CAPTURED_TEXT_H
#define QZ_ERRORS_CAPTURED_TEXT_H

#include <cstddef>
#include <string_view>

namespace qz::errors {

/// The head of a heap block whose text follows it, terminated by a NUL. The length beside the text
/// keeps a long capture linear: neither growing nor appending reads what is already there.
struct CapturedText {
    std::size_t length;
    std::size_t capacity; ///< characters that fit, without the NUL
};

/// Appends @p message; a null @p captured is made first.
/// @return false when memory ran out: then @p captured is released and null.
bool append(CapturedText *&captured, std::string_view message);

/// Frees the block and sets @p captured to null.
void release(CapturedText *&captured);

/// The characters so far, none for null; borrowed until the next append or release.
std::string_view view(const CapturedText *captured);

} // namespace qz::errors

#endif
