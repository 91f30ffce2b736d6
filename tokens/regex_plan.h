// The plan: a node program prepared for the matchers. It is derived from the nodes alone.
#pragma once

#include "tokens/regex_compile.h"
#include "tokens/regex_text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qz::regex {

/// A set of bytes: one bit in each of the 256 bytes of a table. Eight sets share a table. In a set
/// of bytes to look ahead for, NUL stands for the end of the text.
struct SetRef {
    std::uint32_t table = 0; ///< offset of the table
    Byte bit = 0;
};

enum class Op : std::uint8_t {
    kMatch,
    kLiteral,   ///< takes the literal
    kSet,       ///< takes one byte of the set
    kStar,      ///< takes bytes of the set, as many as possible first
    kSplit,     ///< goes to next, or else to other
    kSave,      ///< notes the position in a slot
    kLineStart, ///< only at the start of the text
    kLineEnd,   ///< only at the end of the text
    kNothing,   ///< left out by those who point to it
};

/// A power of two in size, so that a step is found by a shift.
struct alignas(16) Step {
    Op op = Op::kNothing;
    bool all_bytes = false; ///< star: the set holds every byte
    bool exclusive = false; ///< star: nothing of the set can follow, so giving back is of no use;
                            ///< split: goes round a group of one byte, of which none can follow
    Byte slot = 0;          ///< save: 2 * group, and 1 more for the end
    std::uint32_t next = 0;
    std::uint32_t other = 0; ///< split
    std::int32_t memo = -1;  ///< number among the steps reached in several ways; -1 for the others
    std::uint32_t state = 0; ///< number of the first of its simulation states, one per byte taken
    SetRef set;              ///< set, star: its bytes; split: the bytes next can begin with
    SetRef follow;           ///< star: the bytes next can begin with; split: those of other
    Literal literal;
};

/// One block without pointers: this header, the steps, the set tables, a copy of the nodes.
struct alignas(16) Plan {
    std::uint32_t step_count;
    std::uint32_t start;
    std::uint32_t memo_count;
    std::uint32_t state_count;
    std::uint32_t slot_count; ///< two for the whole match and two for each group
    std::uint32_t tables_at;
    std::uint32_t nodes_at;
    std::uint32_t nodes_size;
    Literal prefix;            ///< every match begins with it; length 0 for none
    Literal required;          ///< every match holds it and it is not the prefix; length 0 for none
    std::uint32_t prefix_rare; ///< index of the prefix's byte that texts hold least often
    std::uint32_t required_rare;
    bool anchored;         ///< every match begins at the start of the text
    bool starts_anywhere;  ///< a match may begin with any byte, or be empty
    bool requires_byte;    ///< every match holds a byte of required_bytes; for want of a literal
    SetRef required_bytes; ///< and NUL
    bool leads_with_run;   ///< begins with a star: a failed start spoils the whole run of its set
    SetRef lead;           ///< the set of that star
    SetRef starts;         ///< the bytes a match can begin with
    SetRef starts_or_end;  ///< the same and NUL
    SetRef seconds;        ///< the bytes that can come after those

    const Step *steps() const { return reinterpret_cast<const Step *>(this + 1); }

    const Byte *tables() const { return bytes() + tables_at; }

    const Byte *nodes() const { return bytes() + nodes_at; }

    const Byte *literal(const Literal &run) const { return nodes() + run.at; }

    bool holds(const SetRef &set, Byte c) const { return (tables()[set.table + c] & set.bit) != 0; }

private:
    const Byte *bytes() const { return reinterpret_cast<const Byte *>(this); }
};

/// Reads the node program of @p size bytes and prepares it. Only of a program @p as_compiled, which
/// nobody wrote into since, is it known what every match must hold.
/// @return The bytes of a Plan.
/// @throws Refusal when the nodes are not a program compile() can have written: "memory
/// corruption",
///         "corrupted pointers", "internal foulup"; std::bad_alloc.
std::vector<Byte> make_plan(const Byte *nodes, std::size_t size, bool as_compiled);

} // namespace qz::regex
