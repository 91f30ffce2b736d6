// A node program read into steps, before they are prepared for the matchers.
#pragma once

#include "tokens/regex_plan.h"

#include <bitset>

namespace qz::regex {

using ByteSet = std::bitset<256>;

/// A step as the nodes tell it. Steps point to each other by index.
struct Draft {
    Op op = Op::kNothing;
    Byte slot = 0;
    Literal literal;
    ByteSet set; ///< set, star
    std::uint32_t next = 0;
    std::uint32_t other = 0; ///< split
    ByteSet first;           ///< the bytes it can begin with; NUL for the end of the text
    ByteSet second;          ///< the bytes that can come after those
};

/// Reads @p nodes, checks them and fills everything above. The program starts with step 0. No
/// step points to a kNothing, and there is no way around in a circle that takes no byte.
/// @throws Refusal when they are not a program, std::bad_alloc.
std::vector<Draft> read_nodes(const Byte *nodes, std::size_t size);

} // namespace qz::regex
