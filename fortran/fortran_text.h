#ifndef QZ_FORTRAN_FORTRAN_TEXT_H
#define QZ_FORTRAN_FORTRAN_TEXT_H

#include <cstdlib>
#include <memory>
#include <string_view>

namespace qz::fortran {

struct Freed {
    void operator()(char *text) const { std::free(text); }
};

/// A text from malloc, such as the functions that are forwarded to hand out.
using OwnedText = std::unique_ptr<char, Freed>;

/// What a CHARACTER variable says: up to its declared length or its first NUL, without the blanks
/// at the end.
std::string_view trimmed(const char *variable, int declared_length);

/// The same with a NUL behind it; null when memory is out.
OwnedText copy_trimmed(const char *variable, int declared_length);

/// Stores as much of a text as a CHARACTER variable holds, with blanks behind a shorter one.
/// @return whether all of it fitted.
bool store(std::string_view text, char *variable, int declared_length);

} // namespace qz::fortran

#endif
