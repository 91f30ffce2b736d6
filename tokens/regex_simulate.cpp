// Following all ways through the plan at once: for programs and texts too large to remember
// failures.
#include "tokens/regex_match.h"

#include <algorithm>
#include <vector>

namespace qz::regex {

namespace {

/// The ways that are open at one place of the text, the preferred ones first. A way stands in a
/// state: a step, and for a literal how much of it was taken. Of two ways in one state the first
/// one wins.
class Ways {
public:
    explicit Ways(const Plan &plan)
        : slot_count_(plan.slot_count), rank_(plan.state_count),
          slots_(std::size_t{plan.state_count} * plan.slot_count)
    {
        ways_.reserve(plan.state_count);
    }

    struct Way {
        std::uint32_t state;
        std::uint32_t step;
    };

    const std::vector<Way> &all() const { return ways_; }

    void clear() { ways_.clear(); }

    /// @return false when another way is in @p state already.
    bool add(std::uint32_t state, std::uint32_t step)
    {
        const std::uint32_t rank = rank_[state];
        if (rank < ways_.size() && ways_[rank].state == state)
            return false;
        rank_[state] = static_cast<std::uint32_t>(ways_.size());
        ways_.push_back({state, step});
        return true;
    }

    const Byte **slots(std::uint32_t state) { return &slots_[std::size_t{state} * slot_count_]; }

private:
    std::size_t slot_count_;
    std::vector<std::uint32_t> rank_;
    std::vector<const Byte *> slots_;
    std::vector<Way> ways_;
};

bool takes_byte(const Step &step)
{
    return step.op == Op::kLiteral || step.op == Op::kSet || step.op == Op::kStar;
}

class Simulation {
public:
    Simulation(const Plan &plan, const Text &text, Starts &starts, Slots &best)
        : plan_(plan), text_(text), starts_(starts), best_(best), now_(plan), next_(plan)
    {}

    bool run(const Byte *start);

private:
    struct Pending {
        std::uint32_t step; ///< or the slot to restore
        bool restores;
        const Byte *value;
    };

    bool advance(const Byte *at);
    void open(Ways &ways, std::uint32_t step, const Byte *at);
    void enter(Ways &ways, std::uint32_t index, const Byte *at);
    void stay(Ways &ways, std::uint32_t state, std::uint32_t step);

    const Plan &plan_;
    const Text &text_;
    Starts &starts_;
    Slots &best_;
    Slots slots_{};
    Ways now_;
    Ways next_;
    std::vector<Pending> pending_;
};

bool Simulation::run(const Byte *start)
{
    bool matched = false;
    const Byte *next_start = start;
    for (const Byte *at = start;; ++at) {
        // A later start is preferred less than all that is under way.
        if (!matched && at == next_start) {
            slots_.fill(nullptr);
            slots_[0] = at;
            open(now_, plan_.start, at);
            next_start = *at == 0 ? nullptr : starts_.find(at + 1);
        }
        matched |= advance(at);
        now_.clear();
        std::swap(now_, next_);
        if (*at == 0)
            break;
        if (now_.all().empty()) {
            if (matched || next_start == nullptr)
                break;
            at = next_start - 1;
        }
    }
    return matched;
}

/// Takes the byte at @p at with every way. @return whether a way has matched; those preferred less
/// are dropped.
bool Simulation::advance(const Byte *at)
{
    for (const Ways::Way &way : now_.all()) {
        const Step &step = plan_.steps()[way.step];
        if (!takes_byte(step) && step.op != Op::kMatch)
            continue; // was passed on the way here
        const Byte *const *slots = now_.slots(way.state);
        std::copy_n(slots, plan_.slot_count, slots_.begin());
        if (step.op == Op::kMatch) {
            std::copy_n(slots, plan_.slot_count, best_.begin());
            best_[1] = at;
            return true;
        }
        if (step.op == Op::kLiteral) {
            const std::uint32_t taken = way.state - step.state;
            if (*at != plan_.literal(step.literal)[taken])
                continue;
            if (taken + 1 < step.literal.length)
                stay(next_, way.state + 1, way.step);
            else
                open(next_, step.next, at + 1);
        } else if (plan_.holds(step.set, *at)) {
            open(next_, step.op == Op::kStar ? way.step : step.next, at + 1);
        }
    }
    return false;
}

/// Opens the ways from @p step up to where each takes a byte, with the slots in slots_.
void Simulation::open(Ways &ways, std::uint32_t step, const Byte *at)
{
    pending_.push_back({step, false, nullptr});
    while (!pending_.empty()) {
        const Pending last = pending_.back();
        pending_.pop_back();
        if (last.restores)
            slots_[last.step] = last.value;
        else
            enter(ways, last.step, at);
    }
}

void Simulation::enter(Ways &ways, std::uint32_t index, const Byte *at)
{
    const Step &step = plan_.steps()[index];
    // What does not take a byte is entered only to be passed once.
    if (!ways.add(step.state, index))
        return;
    const auto go = [this](std::uint32_t to) { pending_.push_back({to, false, nullptr}); };
    switch (step.op) {
    case Op::kSplit:
        if (plan_.holds(step.follow, *at))
            go(step.other);
        if (plan_.holds(step.set, *at))
            go(step.next);
        break;
    case Op::kSave:
        pending_.push_back({step.slot, true, slots_[step.slot]});
        slots_[step.slot] = at;
        go(step.next);
        break;
    case Op::kLineStart:
        if (at == text_.begin())
            go(step.next);
        break;
    case Op::kLineEnd:
        if (*at == 0)
            go(step.next);
        break;
    case Op::kNothing:
        go(step.next);
        break;
    case Op::kStar:
        go(step.next);
        [[fallthrough]];
    case Op::kMatch:
    case Op::kLiteral:
    case Op::kSet:
        std::copy_n(slots_.begin(), plan_.slot_count, ways.slots(step.state));
        break;
    }
}

void Simulation::stay(Ways &ways, std::uint32_t state, std::uint32_t step)
{
    if (ways.add(state, step))
        std::copy_n(slots_.begin(), plan_.slot_count, ways.slots(state));
}

} // namespace

bool search_simulation(const Plan &plan, const Text &text, Starts &starts, const Byte *start,
                       Slots &slots)
{
    return Simulation(plan, text, starts, slots).run(start);
}

} // namespace qz::regex
