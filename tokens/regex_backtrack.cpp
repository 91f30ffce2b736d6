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

    Retry &top() { return stack_[size_ - 1]; }

    void pop() { --size_; }

    void clear() { size_ = 0; }

    /// False when @p work is more than is left. Short matches never ask for the text's length.
    bool spend(std::ptrdiff_t work)
    {
        budget_ -= work;
        if (budget_ >= 0)
            return true;
        if (!generous_)
            budget_ += kWorkPerByte * (text_.end() - text_.begin());
        generous_ = true;
        return budget_ >= 0;
    }

private:
    static constexpr std::size_t kDepth = 256;
    static constexpr std::ptrdiff_t kWorkPerByte = 16;

    const Text &text_;
    std::ptrdiff_t budget_ = 2000;
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

    Retry &top() { return stack_.back(); }

    void pop() { stack_.pop_back(); }

    void clear() { stack_.clear(); }

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

template <class Memory> class Backtracker {
public:
    Backtracker(const Plan &plan, const Text &text, const Byte *start, Slots &slots)
        : plan_(plan), text_(text), slots_(slots), memory_(plan, text, start)
    {}

    /// Tries a match that starts at @p start.
    Outcome attempt(const Byte *start);

private:
    static constexpr bool kRemembers = std::is_same_v<Memory, ThoroughMemory>;

    enum class Way { kOpen, kFailed, kMatched, kGaveUp };

    Way take(const Step &step);
    Way star(const Step &step);
    Way give_back(const Step &step, const Byte *high, const Byte *low);
    Way split(const Step &step);
    Way save(const Step &step);
    Way retry();
    Way literal(const Step &step);
    const Byte *run_end(const Step &step) const;
    const Byte *unseen_run_end(const Step &step);

    Way go(std::uint32_t to)
    {
        to_ = to;
        return Way::kOpen;
    }

    const Plan &plan_;
    const Text &text_;
    Slots &slots_;
    Memory memory_;
    std::uint32_t to_ = 0;     ///< the step to take next
    const Byte *at_ = nullptr; ///< the place in the text
    /// Counts the points one can come back to. A slot that was put on the stack since the last of
    /// them need not be put there again.
    std::uint32_t epoch_ = 0;
    std::array<std::uint32_t, 20> saved_in_{};
};

template <class Memory> Outcome Backtracker<Memory>::attempt(const Byte *start)
{
    const Step *const steps = plan_.steps();
    std::fill_n(slots_.begin(), plan_.slot_count, nullptr);
    memory_.clear();
    to_ = plan_.start;
    at_ = start;
    ++epoch_;
    for (;;) {
        Way way = take(steps[to_]);
        if (way == Way::kFailed)
            way = retry();
        switch (way) {
        case Way::kOpen:
            continue;
        case Way::kFailed:
            return Outcome::kNoMatch;
        case Way::kGaveUp:
            return Outcome::kGaveUp;
        case Way::kMatched:
            slots_[0] = start;
            slots_[1] = at_;
            return Outcome::kMatch;
        }
    }
}

template <class Memory>
inline typename Backtracker<Memory>::Way Backtracker<Memory>::take(const Step &step)
{
    if constexpr (kRemembers) {
        // A star looks at each place it takes a byte from.
        if (step.memo >= 0 && step.op != Op::kStar && memory_.seen(step.memo, at_))
            return Way::kFailed;
    }
    switch (step.op) {
    case Op::kMatch:
        return Way::kMatched;
    case Op::kLiteral:
        return literal(step);
    case Op::kSet:
        if (!plan_.holds(step.set, *at_))
            return Way::kFailed;
        ++at_;
        return go(step.next);
    case Op::kStar:
        return star(step);
    case Op::kSplit:
        return split(step);
    case Op::kSave:
        return save(step);
    case Op::kLineStart:
        return at_ == text_.begin() ? go(step.next) : Way::kFailed;
    case Op::kLineEnd:
        return *at_ == 0 ? go(step.next) : Way::kFailed;
    case Op::kNothing:
        break;
    }
    return go(step.next);
}

template <class Memory>
inline typename Backtracker<Memory>::Way Backtracker<Memory>::literal(const Step &step)
{
    const Byte *const bytes = plan_.literal(step.literal);
    for (std::size_t i = 0; i < step.literal.length; ++i) {
        if (at_[i] != bytes[i]) // at the end of the text at the latest
            return Way::kFailed;
    }
    at_ += step.literal.length;
    return go(step.next);
}

template <class Memory>
inline typename Backtracker<Memory>::Way Backtracker<Memory>::star(const Step &step)
{
    const Byte *const low = at_;
    const Byte *high = nullptr;
    if constexpr (kRemembers) {
        high = unseen_run_end(step);
        if (high == nullptr)
            return Way::kFailed;
    } else {
        high = run_end(step);
        if (!memory_.spend(1 + (high - low) / 16))
            return Way::kGaveUp;
        if (step.exclusive) {
            at_ = high;
            return plan_.holds(step.follow, *high) ? go(step.next) : Way::kFailed;
        }
    }
    return give_back(step, high, low);
}

/// Goes on from the last place from @p high down to @p low where that can succeed.
template <class Memory>
inline typename Backtracker<Memory>::Way
Backtracker<Memory>::give_back(const Step &step, const Byte *high, const Byte *low)
{
    const Byte *place = high;
    while (!plan_.holds(step.follow, *place)) {
        if (place == low)
            return Way::kFailed;
        --place;
    }
    if constexpr (!kRemembers) {
        if (!memory_.spend((high - place) / 16))
            return Way::kGaveUp;
    }
    at_ = place;
    if (place > low) {
        const auto index = static_cast<std::uint32_t>(&step - plan_.steps());
        if (!memory_.push({Retry::kGiveBack, index, place - 1, low}))
            return Way::kGaveUp;
        ++epoch_;
    }
    return go(step.next);
}

template <class Memory> inline const Byte *Backtracker<Memory>::run_end(const Step &step) const
{
    if (step.all_bytes)
        return text_.end();
    const Byte *end = at_;
    while (plan_.holds(step.set, *end))
        ++end;
    return end;
}

/// The last place of the run in which the star was not before; nullptr when it was at the first one
/// already. From a place where it was, all that follows has been tried.
template <class Memory> inline const Byte *Backtracker<Memory>::unseen_run_end(const Step &step)
{
    const Byte *end = at_;
    while (!memory_.seen(step.memo, end)) {
        if (!plan_.holds(step.set, *end))
            return end;
        ++end;
    }
    return end == at_ ? nullptr : end - 1;
}

template <class Memory>
inline typename Backtracker<Memory>::Way Backtracker<Memory>::split(const Step &step)
{
    if constexpr (!kRemembers) {
        if (!memory_.spend(1))
            return Way::kGaveUp;
    }
    const bool other = plan_.holds(step.follow, *at_);
    if (!plan_.holds(step.set, *at_))
        return other ? go(step.other) : Way::kFailed;
    if (other) {
        if (!memory_.push({Retry::kOther, step.other, at_, nullptr}))
            return Way::kGaveUp;
        ++epoch_;
    }
    return go(step.next);
}

template <class Memory>
inline typename Backtracker<Memory>::Way Backtracker<Memory>::save(const Step &step)
{
    if (!memory_.empty() && saved_in_[step.slot] != epoch_) {
        if (!memory_.push({Retry::kRestore, step.slot, slots_[step.slot], nullptr}))
            return Way::kGaveUp;
        saved_in_[step.slot] = epoch_;
    }
    slots_[step.slot] = at_;
    return go(step.next);
}

/// Goes back to the last point where there is another way.
template <class Memory> typename Backtracker<Memory>::Way Backtracker<Memory>::retry()
{
    while (!memory_.empty()) {
        const Retry last = memory_.top();
        memory_.pop();
        if (last.kind == Retry::kRestore) {
            slots_[last.index] = last.at;
            continue;
        }
        ++epoch_;
        if constexpr (!kRemembers) {
            if (!memory_.spend(1))
                return Way::kGaveUp;
        }
        if (last.kind == Retry::kOther) {
            at_ = last.at;
            return go(last.index);
        }
        const Way way = give_back(plan_.steps()[last.index], last.at, last.low);
        if (way != Way::kFailed)
            return way;
    }
    return Way::kFailed;
}

template <class Memory>
Outcome search_with(const Plan &plan, const Text &text, const Byte *&start, Slots &slots)
{
    const Starts starts(plan, text);
    Backtracker<Memory> matcher(plan, text, start, slots);
    for (const Byte *at = starts.find(start); at != nullptr; at = starts.after(at)) {
        start = at;
        const Outcome outcome = matcher.attempt(at);
        if (outcome != Outcome::kNoMatch)
            return outcome;
    }
    return Outcome::kNoMatch;
}

} // namespace

Outcome search_quick(const Plan &plan, const Text &text, const Byte *&start, Slots &slots)
{
    return search_with<QuickMemory>(plan, text, start, slots);
}

Outcome search_thorough(const Plan &plan, const Text &text, const Byte *&start, Slots &slots)
{
    if (!ThoroughMemory::suits(plan, text, start))
        return Outcome::kGaveUp;
    return search_with<ThoroughMemory>(plan, text, start, slots);
}

} // namespace qz::regex
