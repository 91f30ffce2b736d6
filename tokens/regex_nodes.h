// The node program: how a compiled pattern is written down.
#pragma once

#include <cstddef>

namespace qz::regex {

/// First byte of every program; the nodes follow it.
constexpr unsigned char kMagic = 0234;
/// A program must be smaller than this, so that every offset fits into two bytes.
constexpr std::size_t kProgramLimit = 32767;
/// Groups of a pattern; the whole match comes on top.
constexpr int kMaxGroups = 9;
/// One opcode byte and two bytes of offset to the next node; literal bytes and a NUL may follow.
constexpr std::size_t kNodeSize = 3;

/// Opcodes as they stand in the program.
enum Node : unsigned char {
    kEnd = 0,
    kLineStart = 1,
    kLineEnd = 2,
    kAny = 3,
    kAnyOf = 4,   ///< the set's bytes follow
    kAnyBut = 5,  ///< the set's bytes follow
    kBranch = 6,  ///< an alternative follows; the next node is the next alternative, if a branch
    kBack = 7,    ///< the offset points backwards
    kLiteral = 8, ///< the literal's bytes follow
    kNothing = 9, ///< matches the empty text
    kStar = 10,   ///< the single-byte operand node follows
    kPlus = 11,   ///< the single-byte operand node follows
    kOpen = 20,   ///< plus the group number
    kClose = 30,  ///< plus the group number
    kCloseLast = 39,
};

/// The offset of the node at @p node: big-endian, 0 for none.
inline std::size_t node_offset(const unsigned char *node)
{
    return static_cast<std::size_t>(node[1]) << 8 | node[2];
}

} // namespace qz::regex
