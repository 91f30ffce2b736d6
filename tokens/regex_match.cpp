#include "tokens/regex_match.h"

#include "tokens/regex_literal.h"

namespace qz::regex {

namespace {

/// The first byte of @p from and those after it that is in @p set, which holds NUL.
const Byte *find_byte(const Plan &plan, const SetRef &set, const Byte *from)
{
    const Byte *table = plan.tables() + set.table;
    for (;; from += 4) {
        if ((table[from[0]] & set.bit) != 0)
            return from;
        if ((table[from[1]] & set.bit) != 0)
            return from + 1;
        if ((table[from[2]] & set.bit) != 0)
            return from + 2;
        if ((table[from[3]] & set.bit) != 0)
            return from + 3;
    }
}

} // namespace

const Byte *Starts::find(const Byte *from)
{
    const Byte *begin = find_begin(from);
    if (begin == nullptr || (plan_.required.length == 0 && !plan_.requires_byte))
        return begin;
    // It stands inside the match: without one from here on there is no match from here on.
    if (required_at_ == nullptr || required_at_ < begin)
        required_at_ = find_required(begin);
    return required_at_ == nullptr ? nullptr : begin;
}

const Byte *Starts::find_required(const Byte *from) const
{
    if (!plan_.requires_byte)
        return find_literal(text_, from, plan_.literal(plan_.required), plan_.required.length,
                            plan_.required_rare);
    const Byte *found = find_byte(plan_, plan_.required_bytes, from);
    return *found == 0 ? nullptr : found;
}

const Byte *Starts::find_begin(const Byte *from) const
{
    const Byte *const prefix = plan_.literal(plan_.prefix);
    if (plan_.anchored) {
        const bool can_match =
            from == text_.begin() && stands_at(from, prefix, plan_.prefix.length);
        return can_match ? from : nullptr;
    }
    if (plan_.prefix.length > 0)
        return find_literal(text_, from, prefix, plan_.prefix.length, plan_.prefix_rare);
    if (plan_.starts_anywhere)
        return from;
    for (;; ++from) {
        from = find_byte(plan_, plan_.starts_or_end, from);
        if (*from == 0)
            return plan_.holds(plan_.starts, 0) ? from : nullptr;
        if (plan_.holds(plan_.seconds, from[1]))
            return from;
    }
}

const Byte *Starts::after(const Byte *start)
{
    if (plan_.leads_with_run) {
        // What follows the run was tried at every place in it, and nothing but that can be tried
        // from a later start in the run or at its end.
        while (plan_.holds(plan_.lead, *start))
            ++start;
    }
    return *start == 0 ? nullptr : find(start + 1);
}

bool search(const Plan &plan, const char *text_begin, Slots &slots, Method first)
{
    const Text text(text_begin);
    Starts starts(plan, text);
    const Byte *start = starts.find(text.begin());
    if (start == nullptr)
        return false;
    Outcome outcome = Outcome::kGaveUp;
    if (first == Method::kQuick)
        outcome = search_quick(plan, text, starts, start, slots);
    if (outcome == Outcome::kGaveUp && first != Method::kSimulation)
        outcome = search_thorough(plan, text, starts, start, slots);
    if (outcome == Outcome::kGaveUp)
        return search_simulation(plan, text, starts, start, slots);
    return outcome == Outcome::kMatch;
}

} // namespace qz::regex
