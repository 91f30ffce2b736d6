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

const Byte *Starts::find(const Byte *from) const
{
    if (plan_.anchored)
        return from == text_.begin() ? from : nullptr;
    if (plan_.prefix.length > 0)
        return find_literal(from, text_.end(), plan_.literal(plan_.prefix), plan_.prefix.length,
                            plan_.prefix_rare);
    if (plan_.starts_anywhere)
        return from;
    const Byte *found = find_byte(plan_, plan_.starts_or_end, from);
    return plan_.holds(plan_.starts, *found) ? found : nullptr;
}

const Byte *Starts::after(const Byte *start) const
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
    const Byte *start = text.begin();
    if (plan.required.length > 0 &&
        find_literal(start, text.end(), plan.literal(plan.required), plan.required.length,
                     plan.required_rare) == nullptr)
        return false;

    Outcome outcome = Outcome::kGaveUp;
    if (first == Method::kQuick)
        outcome = search_quick(plan, text, start, slots);
    if (outcome == Outcome::kGaveUp && first != Method::kSimulation)
        outcome = search_thorough(plan, text, start, slots);
    if (outcome == Outcome::kGaveUp)
        outcome = search_simulation(plan, text, start, slots);
    return outcome == Outcome::kMatch;
}

} // namespace qz::regex
