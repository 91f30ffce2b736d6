/** @file
 *  Reading a real number.
 */
#ifndef QZFILESHARED_TOKENS_REAL_NUMBER_H
#define QZFILESHARED_TOKENS_REAL_NUMBER_H

#include "tokens/number.h"

#include <cstdint>

namespace qz::tokens {

/// Reads all of @p padded_text, which has no plus in front, as a real in the general format.
/// @param whole_end    The first character behind an optional minus that is no digit.
/// @param whole_value  What the digits before it gave. (Two values and no struct: it would travel
///                     through memory, and take as long as a short number does.)
/// @return no number for another text and for a number that a double cannot hold.
Number parse_real(const char *padded_text, const char *whole_end, std::uint64_t whole_value);

} // namespace qz::tokens

#endif
