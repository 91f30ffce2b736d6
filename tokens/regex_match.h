// Matching a text with a plan.
#pragma once

#include "tokens/regex_plan.h"

#include <array>
#include <cstring>

namespace qz::regex {

/// A text of bytes that ends in a NUL. Its length is found when it is first asked for: many matches
/// are decided near the front.
class Text {
public:
    explicit Text(const char *text) : begin_(reinterpret_cast<const Byte *>(text)) {}

    const Byte *begin() const { return begin_; }

    const Byte *end() const
    {
        if (end_ == nullptr)
            end_ = begin_ + std::strlen(reinterpret_cast<const char *>(begin_));
        return end_;
    }

private:
    const Byte *begin_;
    mutable const Byte *end_ = nullptr;
};

/// Where sub-matches start and end: two places for each, nullptr for a group that took no part.
/// Only the first Plan::slot_count of them mean something.
using Slots = std::array<const Byte *, 20>;

/// The starts that are worth a try, from the left.
class Starts {
public:
    Starts(const Plan &plan, const Text &text) : plan_(plan), text_(text) {}

    /// The first start at @p from or after it; nullptr for none.
    const Byte *find(const Byte *from) const;
    /// The first start worth a try after the match failed from @p start.
    const Byte *after(const Byte *start) const;

private:
    const Plan &plan_;
    const Text &text_;
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
Outcome search_quick(const Plan &plan, const Text &text, const Byte *&start, Slots &slots);
Outcome search_thorough(const Plan &plan, const Text &text, const Byte *&start, Slots &slots);
Outcome search_simulation(const Plan &plan, const Text &text, const Byte *&start, Slots &slots);

/// Looks for the leftmost match, with the methods from @p first on.
/// @throws std::bad_alloc
bool search(const Plan &plan, const char *text, Slots &slots, Method first = Method::kQuick);

} // namespace qz::regex
