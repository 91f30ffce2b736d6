// Matching a text with a plan.
#pragma once

#include "tokens/regex_plan.h"

#include <array>

namespace qz::regex {

/// Where sub-matches start and end: two places for each, nullptr for a group that took no part.
/// Only the first Plan::slot_count of them mean something.
using Slots = std::array<const Byte *, 20>;

/// The starts that are worth a try, from the left.
class Starts {
public:
    Starts(const Plan &plan, const Text &text) : plan_(plan), text_(text) {}

    /// The first start at @p from or after it; nullptr for none.
    const Byte *find(const Byte *from);
    /// The first start worth a try after the match failed from @p start.
    const Byte *after(const Byte *start);

private:
    const Byte *find_begin(const Byte *from) const;
    const Byte *find_required(const Byte *from) const;

    const Plan &plan_;
    const Text &text_;
    const Byte *required_at_ = nullptr; ///< where what is required was seen last
};

/// How a match is looked for: each gives the same answer.
enum class Method {
    kQuick,      ///< backtracks; gives up when that takes too long
    kThorough,   ///< backtracks and remembers what failed; gives up when that takes too much memory
    kSimulation, ///< follows all ways at once; never gives up
};

enum class Outcome { kNoMatch, kMatch, kGaveUp };

/// Looks for the leftmost match that starts at @p start or after it. When the method gives up, @p
/// start is the first start that is still undecided.
/// @throws std::bad_alloc
Outcome search_quick(const Plan &plan, const Text &text, Starts &starts, const Byte *&start,
                     Slots &slots);
Outcome search_thorough(const Plan &plan, const Text &text, Starts &starts, const Byte *&start,
                        Slots &slots);
bool search_simulation(const Plan &plan, const Text &text, Starts &starts, const Byte *start,
                       Slots &slots);

/// Looks for the leftmost match, with the methods from @p first on.
/// @throws std::bad_alloc
bool search(const Plan &plan, const char *text, Slots &slots, Method first = Method::kQuick);

} // namespace qz::regex
