/** @file
 *  Which texts are numbers, and their values. No locale has a say in it.
 */
#ifndef QZFILESHARED_TOKENS_NUMBER_H
#define QZFILESHARED_TOKENS_NUMBER_H

#include <cstddef>

namespace qz::tokens {

enum class NumberType : int { None = 0, Integer = 1, Real = 2 };

/// The values are those of atoi and atof in the "C" locale; 0 where the type gives none.
struct Number {
    NumberType type = NumberType::None;
    int integer = 0;
    double real = 0.0;
};

/// A text's terminator and what is read along with it: all of it NULs.
constexpr std::size_t kPaddingSize = 8;

/// @param padded_text  Ends with kPaddingSize NULs, or stands in storage that does: others may
///                     follow its own terminator.
Number parse_number(const char *padded_text);

/// The same for any text, of which only the type is told; none without the memory for a long one.
NumberType number_type(const char *text);

} // namespace qz::tokens

#endif
