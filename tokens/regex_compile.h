// From a pattern to its node program.
#pragma once

#include <cstddef>
#include <vector>

namespace qz::regex {

/// Why a pattern or a program is refused; the text goes into the message.
struct Refusal {
    const char *reason;
};

/// A run of literal bytes in the node program.
struct Literal {
    std::size_t at = 0;
    std::size_t length = 0;
};

/// What is known about every match from the nodes alone.
struct StartHints {
    char first_byte = '\0'; ///< NUL when a match may start with anything
    bool anchored = false;
    Literal required; ///< length 0 for none
};

struct NodeProgram {
    std::vector<unsigned char> bytes;
    bool begins_with_loop = false; ///< the pattern begins with a "*" or "+" repetition
};

/// Parses @p pattern and writes its nodes.
/// @throws Refusal when the pattern is malformed or too big, std::bad_alloc.
NodeProgram compile(const char *pattern);

/// The hints of a program of one alternative; a program of several has none.
StartHints start_hints(const NodeProgram &program);

/// The nodes that every match of @p program passes one after the other; none when the pattern has
/// several alternatives. What stands inside a group is not looked at.
std::vector<std::size_t> required_nodes(const std::vector<unsigned char> &program);

/// The longest literal among those nodes, the later one of two equals; length 0 when there is none.
Literal required_literal(const std::vector<unsigned char> &program);

} // namespace qz::regex
