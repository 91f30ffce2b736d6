#include "tokens/regex_plan.h"

#include "tokens/regex_draft.h"
#include "tokens/regex_literal.h"
#include "tokens/regex_nodes.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <unordered_map>

namespace qz::regex {

static_assert(std::is_trivially_copyable_v<Plan> && std::is_trivially_copyable_v<Step>,
              "a plan is moved as bytes");
static_assert(sizeof(Plan) % alignof(Step) == 0, "the steps follow the header");

namespace {

/// Packs sets of bytes eight to a table; equal sets share one place.
class SetTables {
public:
    SetRef add(const ByteSet &set)
    {
        const auto number = static_cast<std::uint32_t>(known_.size());
        const auto [known, is_new] = known_.try_emplace(set, number);
        const SetRef place{known->second / 8 * 256, static_cast<Byte>(1 << known->second % 8)};
        if (!is_new)
            return place;
        bytes_.resize(place.table + 256);
        for (std::size_t c = 0; c < 256; ++c) {
            if (set[c])
                bytes_[place.table + c] = static_cast<Byte>(bytes_[place.table + c] | place.bit);
        }
        return place;
    }

    const std::vector<Byte> &bytes() const { return bytes_; }

private:
    std::unordered_map<ByteSet, std::uint32_t> known_;
    std::vector<Byte> bytes_;
};

class Planner {
public:
    Planner(const Byte *nodes, std::size_t size)
        : nodes_(nodes, nodes + size), drafts_(read_nodes(nodes, size)), steps_(drafts_.size())
    {}

    std::vector<Byte> plan(bool as_compiled);

private:
    void prepare_step(std::size_t index);
    bool is_exclusive_loop(std::size_t split) const;
    void number_memos();
    void find_lead();
    void find_required();
    void find_required_bytes();
    std::uint32_t rare(const Literal &literal) const;

    std::vector<Byte> nodes_;
    std::vector<Draft> drafts_;
    std::vector<Step> steps_;
    SetTables tables_;
    Plan plan_{};
};

std::vector<Byte> Planner::plan(bool as_compiled)
{
    plan_.start = drafts_[0].op == Op::kNothing ? drafts_[0].next : 0;
    plan_.slot_count = 2;
    for (std::size_t i = 0; i < steps_.size(); ++i)
        prepare_step(i);
    number_memos();
    find_lead();
    // An anchored match is decided at the front: the rest of the text need not be looked through.
    if (as_compiled && !plan_.anchored)
        find_required();

    const std::size_t steps_size = steps_.size() * sizeof(Step);
    plan_.step_count = static_cast<std::uint32_t>(steps_.size());
    plan_.tables_at = static_cast<std::uint32_t>(sizeof(Plan) + steps_size);
    plan_.nodes_at = static_cast<std::uint32_t>(plan_.tables_at + tables_.bytes().size());
    plan_.nodes_size = static_cast<std::uint32_t>(nodes_.size());

    std::vector<Byte> result(plan_.nodes_at + nodes_.size());
    std::memcpy(result.data(), &plan_, sizeof(Plan));
    std::memcpy(result.data() + sizeof(Plan), steps_.data(), steps_size);
    std::copy(tables_.bytes().begin(), tables_.bytes().end(), result.data() + plan_.tables_at);
    std::copy(nodes_.begin(), nodes_.end(), result.data() + plan_.nodes_at);
    return result;
}

void Planner::prepare_step(std::size_t index)
{
    const Draft &draft = drafts_[index];
    const ByteSet &after = drafts_[draft.next].first;
    Step &step = steps_[index];
    step.op = draft.op;
    step.slot = draft.slot;
    step.literal = draft.literal;
    step.next = draft.next;
    step.other = draft.other;
    step.state = plan_.state_count;
    switch (draft.op) {
    case Op::kLiteral:
        plan_.state_count += static_cast<std::uint32_t>(draft.literal.length);
        return;
    case Op::kStar:
        step.follow = tables_.add(after);
        step.all_bytes = draft.set.count() == 255;
        step.exclusive = (draft.set & after).none();
        break;
    case Op::kSplit:
        step.set = tables_.add(after);
        step.follow = tables_.add(drafts_[draft.other].first);
        step.exclusive = is_exclusive_loop(index);
        break;
    case Op::kSave:
        plan_.slot_count = std::max(plan_.slot_count, (draft.slot | 1U) + 1);
        break;
    default:
        break;
    }
    if (draft.op == Op::kStar || draft.op == Op::kSet)
        step.set = tables_.add(draft.set);
    ++plan_.state_count;
}

/// Whether a split goes round a group of one byte of a set, of which nothing can follow the loop.
bool Planner::is_exclusive_loop(std::size_t split) const
{
    const Draft &open = drafts_[drafts_[split].next];
    const Draft &one = drafts_[open.next];
    const Draft &close = drafts_[one.next];
    return open.op == Op::kSave && one.op == Op::kSet && close.op == Op::kSave &&
           close.next == split && (one.set & drafts_[drafts_[split].other].first).none();
}

/// Steps that can be reached in several ways are worth remembering; a star reaches itself.
void Planner::number_memos()
{
    std::vector<std::uint32_t> ways_in(steps_.size(), 0);
    ++ways_in[plan_.start];
    for (const Step &step : steps_) {
        if (step.op == Op::kNothing)
            continue;
        if (step.op != Op::kMatch)
            ++ways_in[step.next];
        if (step.op == Op::kSplit)
            ++ways_in[step.other];
    }
    std::int32_t count = 0;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        if (steps_[i].op == Op::kStar || ways_in[i] > 1)
            steps_[i].memo = count++;
    }
    plan_.memo_count = static_cast<std::uint32_t>(count);
}

/// How a match can begin.
void Planner::find_lead()
{
    const Draft *lead = &drafts_[plan_.start];
    ByteSet starts = lead->first;
    plan_.starts_anywhere = starts.all();
    plan_.starts = tables_.add(starts);
    plan_.starts_or_end = tables_.add(starts.set(0));
    plan_.seconds = tables_.add(lead->second);

    while (lead->op == Op::kSave)
        lead = &drafts_[lead->next];
    plan_.anchored = lead->op == Op::kLineStart;
    while (plan_.anchored && (lead->op == Op::kSave || lead->op == Op::kLineStart))
        lead = &drafts_[lead->next];
    if (lead->op == Op::kLiteral)
        plan_.prefix = lead->literal;
    if (plan_.prefix.length > 0)
        plan_.prefix_rare = rare(plan_.prefix);
    const Draft &after = drafts_[lead->next];
    plan_.leads_with_run =
        lead->op == Op::kStar ||
        (lead->op == Op::kSet && after.op == Op::kStar && after.set == lead->set);
    if (plan_.leads_with_run)
        plan_.lead = tables_.add(lead->set);
}

void Planner::find_required()
{
    const Literal required = required_literal(nodes_);
    if (required.length == 0)
        find_required_bytes();
    if (required.length == 0 || required.at == plan_.prefix.at)
        return;
    plan_.required = required;
    plan_.required_rare = rare(required);
}

/// The smallest set of which every match holds a byte.
void Planner::find_required_bytes()
{
    // A large set is in most texts: looking for it costs more than it saves.
    constexpr std::size_t kSmall = 16;
    ByteSet best;
    for (const std::size_t at : required_nodes(nodes_)) {
        ByteSet set;
        for (const Byte *member = &nodes_[at + kNodeSize]; nodes_[at] == kAnyOf && *member != 0;)
            set.set(*member++);
        if (set.any() && (best.none() || set.count() < best.count()))
            best = set;
    }
    plan_.requires_byte = best.any() && best.count() <= kSmall;
    plan_.required_bytes = tables_.add(best.set(0));
}

std::uint32_t Planner::rare(const Literal &literal) const
{
    return static_cast<std::uint32_t>(rare_byte(&nodes_[literal.at], literal.length));
}

} // namespace

std::vector<Byte> make_plan(const Byte *nodes, std::size_t size, bool as_compiled)
{
    return Planner(nodes, size).plan(as_compiled);
}

} // namespace qz::regex
