// Looking for a literal.
#pragma once

#include "tokens/regex_text.h"

#include <cstddef>

namespace qz::regex {

/// The index of the byte of @p literal that ordinary texts hold least often.
std::size_t rare_byte(const Byte *literal, std::size_t length);

/// The first place at @p from or after it where the @p length bytes of @p literal stand; nullptr
/// for none. @p rare is what rare_byte() said; @p length is at least 1.
const Byte *find_literal(const Text &text, const Byte *from, const Byte *literal,
                         std::size_t length, std::size_t rare);

} // namespace qz::regex
