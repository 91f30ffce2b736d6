// Looking for a literal.
#pragma once

#include <cstddef>

namespace qz::regex {

/// The index of the byte of @p literal that ordinary texts hold least often.
std::size_t rare_byte(const unsigned char *literal, std::size_t length);

/// The first place in [@p from, @p end) where the @p length bytes of @p literal stand; nullptr for
/// none. @p rare is what rare_byte() said; @p length is at least 1.
const unsigned char *find_literal(const unsigned char *from, const unsigned char *end,
                                  const unsigned char *literal, std::size_t length,
                                  std::size_t rare);

} // namespace qz::regex
