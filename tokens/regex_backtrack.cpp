// Backtracking without recursion: quick for ordinary texts, thorough with a memory of what failed.
#include "tokens/regex_match.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <vector>

namespace qz::regex {

namespace {

/// What to do when the current way fails.
struct Retry {
    enum Kind : std::uint32_t {
        kOther,    ///< go on at step @p index from @p at
        kGiveBack, ///< the star @p index took bytes up to @p at; it may give back down to @p low
        kRestore,  ///< put @p at back into slot @p index
    };

    Kind kind;
    std::uint32_t index;
    const Byte *at;
    const Byte *low;
};

/// A short stack, and a budget of work: a match that needs more of either is none for this method.
class QuickMemory {
public:
    QuickMemory(const Plan &, const Text &text, const Byte *) : text_(text) {}

    bool push(const Retry &retry)
    {
        if (size_ == kDepth)
            return false;
        stack_[size_++] = retry;
        return true;
    }

    bool empty() const { return size_ == 0; }

    const Retry &top() const { return stack_[size_ - 1]; }

    void pop() { --size_; }

    void clear() { size_ = 0; }

    /// False when @p work is more than is left. Short matches never ask for the text's length.
    bool spend(std::ptrdiff_t work)
    {
        budget_ -= work;
        return budget_ >= 0 || extend();
    }

private:
    bool extend()
    {
        if (!generous_)
            budget_ += kWorkPerByte * (text_.end() - text_.begin());
        generous_ = true;
        return budget_ >= 0;
    }

    static constexpr std::size_t kDepth = 256;
    static constexpr std::ptrdiff_t kWorkPerByte = 4;

    const Text &text_;
    std::ptrdiff_t budget_ = 128;
    bool generous_ = false;
    std::size_t size_ = 0;
    std::array<Retry, kDepth> stack_;
};

/// One bit for each step worth remembering and place in the text, and a stack on the heap. A way
/// that came to the same place before has failed there, also from another start: nothing is tried
/// twice.
class ThoroughMemory {
public:
    ThoroughMemory(const Plan &plan, const Text &text, const Byte *start)
        : memo_count_(plan.memo_count), start_(start),
          seen_(static_cast<std::size_t>(text.end() - start + 1) * memo_count_ / 8 + 1)
    {}

    /// Whether the bits for so long a text take a sensible amount of memory.
    static bool suits(const Plan &plan, const Text &text, const Byte *start)
    {
        const auto places = static_cast<std::size_t>(text.end() - start + 1);
        return places <= kMostBytes * 8 / (plan.memo_count + 1);
    }

    bool push(const Retry &retry)
    {
        if (stack_.size() >= kMostBytes / sizeof(Retry))
            return false;
        stack_.push_back(retry);
        return true;
    }

    bool empty() const { return stack_.empty(); }

    const Retry &top() const { return stack_.back(); }

    void pop() { stack_.pop_back(); }

    void clear() { stack_.clear(); }

    /// What is done once only needs no budget.
    static bool spend(std::ptrdiff_t) { return true; }

    /// Whether the step numbered @p memo was at @p at before; from now on it was.
    bool seen(std::int32_t memo, const Byte *at)
    {
        const std::size_t bit =
            static_cast<std::size_t>(at - start_) * memo_count_ + static_cast<std::size_t>(memo);
        const auto mask = static_cast<Byte>(1 << bit % 8);
        const bool before = (seen_[bit / 8] & mask) != 0;
        seen_[bit / 8] = static_cast<Byte>(seen_[bit / 8] | mask);
        return before;
    }

private:
    static constexpr std::size_t kMostBytes = std::size_t{16} << 20;

    std::size_t memo_count_;
    const Byte *start_;
    std::vector<Byte> seen_;
    std::vector<Retry> stack_;
};

/// Where a match stands: the step to take next and the place in the text; nullptr when it failed.
struct State {
    const Byte *at;
    std::uint32_t step;
};

constexpr State kFailed{nullptr, 0};

template <class Memory> class Backtracker {
public:
    Backtracker(const Plan &plan, const Text &text, const Byte *start)
        : plan_(plan), steps_(plan.steps()), tables_(plan.tables()), text_(text),
          memory_(plan, text, start)
    {}

    /// Tries a match that starts at @p start, and fills @p slots when it succeeds.
    Outcome attempt(const Byte *start, Slots &slots);

private:
    static constexpr bool kRemembers = std::is_same_v<Memory, ThoroughMemory>;

    State take(const Step &step, const Byte *at);
    State star(const Step &step, const Byte *at);
    State give_back(const Step &step, const Byte *high, const Byte *low);
    State split(const Step &step, const Byte *at);
    State exclusive_loop(const Step &split, const Byte *at);
    State save(const Step &step, const Byte *at);
    State retry();
    const Byte *run_end(const Step &step, const Byte *at) const;
    const Byte *unseen_run_end(const Step &step, const Byte *at);
    bool spend(std::ptrdiff_t work);
    bool push(const Retry &retry);

    bool holds(const SetRef &set, Byte c) const { return (tables_[set.table + c] & set.bit) != 0; }

    const Plan &plan_;
    const Step *steps_;
    const Byte *tables_;
    const Text &text_;
    Slots slots_;
    Memory memory_;
    bool gave_up_ = false;
    /// Counts the points one can come back to. A slot that was put on the stack since the last of
    /// them need not be put there again.
    std::uint32_t epoch_ = 0;
    std::array<std::uint32_t, 20> saved_in_{};
};

template <class Memory> Outcome Backtracker<Memory>::attempt(const Byte *start, Slots &slots)
{
    std::fill_n(slots_.begin(), plan_.slot_count, nullptr);
    memory_.clear();
    ++epoch_;
    State state{start, plan_.start};
    for (;;) {
        const Step &step = steps_[state.step];
        if (step.op == Op::kMatch)
            break;
        state = take(step, state.at);
        if (state.at == nullptr)
            state = retry();
        if (state.at == nullptr)
            return gave_up_ ? Outcome::kGaveUp : Outcome::kNoMatch;
    }
    slots_[0] = start;
    slots_[1] = state.at;
    std::copy_n(slots_.begin(), plan_.slot_count, slots.begin());
    return Outcome::kMatch;
}

template <class Memory> inline State Backtracker<Memory>::take(const Step &step, const Byte *at)
{
    if constexpr (kRemembers) {
        // A star looks at each place it takes a byte from.
        if (step.memo >= 0 && step.op != Op::kStar && memory_.seen(step.memo, at))
            return kFailed;
    }
    switch (step.op) {
    case Op::kLiteral:
        if (!stands_at(at, plan_.literal(step.literal), step.literal.length))
            return kFailed;
        return {at + step.literal.length, step.next};
    case Op::kSet:
        return holds(step.set, *at) ? State{at + 1, step.next} : kFailed;
    case Op::kStar:
        return star(step, at);
    case Op::kSplit:
        return split(step, at);
    case Op::kSave:
        return save(step, at);
    case Op::kLineStart:
        return at == text_.begin() ? State{at, step.next} : kFailed;
    case Op::kLineEnd:
        return *at == 0 ? State{at, step.next} : kFailed;
    case Op::kMatch:
    case Op::kNothing:
        break;
    }
    return {at, step.next};
}

template <class Memory> inline State Backtracker<Memory>::star(const Step &step, const Byte *at)
{
    if constexpr (kRemembers) {
        const Byte *const high = unseen_run_end(step, at);
        return high == nullptr ? kFailed : give_back(step, high, at);
    }
    const Byte *const high = run_end(step, at);
    if (!spend(1 + (high - at) / 16))
        return kFailed;
    if (step.exclusive)
        return holds(step.follow, *high) ? State{high, step.next} : kFailed;
    return give_back(step, high, at);
}

/// Goes on from the last place from @p high down to @p low where that can succeed.
template <class Memory>
inline State Backtracker<Memory>::give_back(const Step &step, const Byte *high, const Byte *low)
{
    const Byte *at = high;
    while (!holds(step.follow, *at)) {
        if (at == low)
            return kFailed;
        --at;
    }
    if (!spend((high - at) / 16))
        return kFailed;
    if (at > low) {
        const auto index = static_cast<std::uint32_t>(&step - steps_);
        if (!push({Retry::kGiveBack, index, at - 1, low}))
            return kFailed;
        ++epoch_;
    }
    return {at, step.next};
}

template <class Memory>
inline const Byte *Backtracker<Memory>::run_end(const Step &step, const Byte *at) const
{
    if (step.all_bytes)
        return text_.end_from(at);
    while (holds(step.set, *at))
        ++at;
    return at;
}

/// The last place of the run in which the star was not before; nullptr when it was at the first one
/// already. From a place where it was, all that follows has been tried.
template <class Memory>
inline const Byte *Backtracker<Memory>::unseen_run_end(const Step &step, const Byte *at)
{
    const Byte *end = at;
    while (!memory_.seen(step.memo, end)) {
        if (!holds(step.set, *end))
            return end;
        ++end;
    }
    return end == at ? nullptr : end - 1;
}

template <class Memory> inline State Backtracker<Memory>::split(const Step &step, const Byte *at)
{
    // What remembers must come to each place, so as not to run over it again from the next start.
    if constexpr (!kRemembers) {
        if (step.exclusive)
            return exclusive_loop(step, at);
    }
    if (!spend(1))
        return kFailed;
    const bool other = holds(step.follow, *at);
    if (!holds(step.set, *at))
        return other ? State{at, step.other} : kFailed;
    if (other) {
        if (!push({Retry::kOther, step.other, at, nullptr}))
            return kFailed;
        ++epoch_;
    }
    return {at, step.next};
}

/// Takes all bytes of a loop round a group of one byte, and notes the last of them as the group.
template <class Memory>
inline State Backtracker<Memory>::exclusive_loop(const Step &split, const Byte *at)
{
    const Step &open = steps_[split.next];
    const Step &one = steps_[open.next];
    const Byte *const high = run_end(one, at);
    if (!spend(1 + (high - at) / 16) || !holds(split.follow, *high))
        return kFailed;
    if (high != at &&
        (save(open, high - 1).at == nullptr || save(steps_[one.next], high).at == nullptr))
        return kFailed;
    return {high, split.other};
}

template <class Memory> inline State Backtracker<Memory>::save(const Step &step, const Byte *at)
{
    if (!memory_.empty() && saved_in_[step.slot] != epoch_) {
        if (!push({Retry::kRestore, step.slot, slots_[step.slot], nullptr}))
            return kFailed;
        saved_in_[step.slot] = epoch_;
    }
    slots_[step.slot] = at;
    return {at, step.next};
}

/// Goes back to the last point where there is another way.
template <class Memory> State Backtracker<Memory>::retry()
{
    while (!memory_.empty() && !gave_up_) {
        const Retry last = memory_.top();
        memory_.pop();
        if (last.kind == Retry::kRestore) {
            slots_[last.index] = last.at;
            continue;
        }
        ++epoch_;
        if (!spend(1))
            break;
        if (last.kind == Retry::kOther)
            return {last.at, last.index};
        const State state = give_back(steps_[last.index], last.at, last.low);
        if (state.at != nullptr)
            return state;
    }
    return kFailed;
}

template <class Memory> inline bool Backtracker<Memory>::spend(std::ptrdiff_t work)
{
    gave_up_ = gave_up_ || !memory_.spend(work);
    return !gave_up_;
}

template <class Memory> inline bool Backtracker<Memory>::push(const Retry &retry)
{
    gave_up_ = gave_up_ || !memory_.push(retry);
    return !gave_up_;
}

template <class Memory>
Outcome search_with(const Plan &plan, const Text &text, Starts &starts, const Byte *&start,
                    Slots &slots)
{
    Backtracker<Memory> matcher(plan, text, start);
    for (const Byte *at = start; at != nullptr; at = starts.after(at)) {
        start = at;
        const Outcome outcome = matcher.attempt(at, slots);
        if (outcome != Outcome::kNoMatch)
            return outcome;
    }
    return Outcome::kNoMatch;
}

} // namespace

Outcome search_quick(const Plan &plan, const Text &text, Starts &starts, const Byte *&start,
                     Slots &slots)
{
    return search_with<QuickMemory>(plan, text, starts, start, slots);
}

Outcome search_thorough(const Plan &plan, const Text &text, Starts &starts, const Byte *&start,
                        Slots &slots)
{
    if (!ThoroughMemory::suits(plan, text, start))
        return Outcome::kGaveUp;
    return search_with<ThoroughMemory>(plan, text, starts, start, slots);
}

} // namespace qz::regex
