#include "tokens/regex_draft.h"

#include "tokens/regex_nodes.h"

#include <cstring>

namespace qz::regex {

namespace {

constexpr std::uint32_t kNone = UINT32_MAX;

class Reader {
public:
    Reader(const Byte *nodes, std::size_t size) : nodes_(nodes), size_(size), step_at_(size, kNone)
    {}

    std::vector<Draft> read();

private:
    std::size_t read_node(std::size_t at);
    std::size_t read_repetition(std::size_t at);
    std::size_t read_bytes(std::size_t at, Draft &draft) const;
    void add(std::size_t at, const Draft &draft);
    void link_all();
    std::uint32_t target(std::size_t at, std::size_t offset) const;
    void link_branch(Draft &draft, std::size_t at) const;
    std::vector<std::uint32_t> order() const;
    void leave_out_nothing(const std::vector<std::uint32_t> &order);
    void join_choices(const std::vector<std::uint32_t> &order);
    void find_first_bytes(const std::vector<std::uint32_t> &order);
    void find_second_bytes(const std::vector<std::uint32_t> &order);

    const Byte *nodes_;
    std::size_t size_;
    std::vector<std::uint32_t> step_at_; ///< by node offset: the step that stands for it
    std::vector<std::size_t> node_of_;   ///< by step: its node
    std::vector<Draft> drafts_;
};

std::vector<Draft> Reader::read()
{
    for (std::size_t at = 1; at < size_;)
        at = read_node(at);
    if (drafts_.empty())
        throw Refusal{"memory corruption"};
    link_all();
    const std::vector<std::uint32_t> forwards = order();
    leave_out_nothing(forwards);
    join_choices(forwards);
    find_first_bytes(forwards);
    find_second_bytes(forwards);
    return std::move(drafts_);
}

/// @return where the next node begins.
std::size_t Reader::read_node(std::size_t at)
{
    if (at + kNodeSize > size_)
        throw Refusal{"memory corruption"};
    const Byte opcode = nodes_[at];
    Draft draft;
    std::size_t end = at + kNodeSize;
    switch (opcode) {
    case kEnd:
        draft.op = Op::kMatch;
        break;
    case kLineStart:
        draft.op = Op::kLineStart;
        break;
    case kLineEnd:
        draft.op = Op::kLineEnd;
        break;
    case kAny:
    case kAnyOf:
    case kAnyBut:
    case kLiteral:
        end = read_bytes(at, draft);
        break;
    case kBranch:
    case kBack:
    case kNothing:
        break; // a branch becomes a split when the next node turns out to be another one
    case kStar:
    case kPlus:
        return read_repetition(at);
    default:
        if (opcode < kOpen || opcode > kCloseLast)
            throw Refusal{"memory corruption"};
        if ((opcode - kOpen) % 10 == 0)
            break; // the whole match is noted without it
        draft.op = Op::kSave;
        draft.slot =
            static_cast<Byte>(opcode < kClose ? 2 * (opcode - kOpen) : 2 * (opcode - kClose) + 1);
    }
    add(at, draft);
    return end;
}

/// A plus is one byte of the set and then a star.
std::size_t Reader::read_repetition(std::size_t at)
{
    Draft once;
    const std::size_t operand = at + kNodeSize;
    if (operand + kNodeSize > size_)
        throw Refusal{"memory corruption"};
    if (nodes_[operand] != kLiteral && (nodes_[operand] < kAny || nodes_[operand] > kAnyBut))
        throw Refusal{"internal foulup"};
    const std::size_t end = read_bytes(operand, once);
    if (once.op == Op::kLiteral && once.literal.length != 1)
        throw Refusal{"internal foulup"};
    if (once.op == Op::kLiteral)
        once.set.set(nodes_[once.literal.at]);

    once.op = Op::kSet;
    if (nodes_[at] == kPlus)
        add(at, once);
    once.op = Op::kStar;
    add(at, once);
    return end;
}

/// Reads a node that takes bytes: any, a set, a literal.
std::size_t Reader::read_bytes(std::size_t at, Draft &draft) const
{
    draft.op = Op::kSet;
    const std::size_t begin = at + kNodeSize;
    std::size_t end = begin;
    if (nodes_[at] != kAny) {
        while (end < size_ && nodes_[end] != 0)
            draft.set.set(nodes_[end++]);
        if (end == size_)
            throw Refusal{"memory corruption"};
        ++end;
    }
    if (nodes_[at] == kLiteral) {
        draft.op = Op::kLiteral;
        draft.literal = {begin, end - begin - 1};
        draft.set.reset();
        if (draft.literal.length == 0)
            throw Refusal{"memory corruption"};
    } else if (nodes_[at] != kAnyOf) {
        draft.set.flip();
        draft.set.reset(0);
    }
    return end;
}

void Reader::add(std::size_t at, const Draft &draft)
{
    if (step_at_[at] == kNone)
        step_at_[at] = static_cast<std::uint32_t>(drafts_.size());
    node_of_.push_back(at);
    drafts_.push_back(draft);
}

void Reader::link_all()
{
    for (std::size_t i = 0; i < drafts_.size(); ++i) {
        Draft &draft = drafts_[i];
        const std::size_t at = node_of_[i];
        const std::size_t offset = node_offset(&nodes_[at]);
        if (draft.op == Op::kMatch)
            continue;
        if (nodes_[at] == kBranch)
            link_branch(draft, at);
        else if (nodes_[at] == kPlus && draft.op == Op::kSet)
            draft.next = static_cast<std::uint32_t>(i + 1);
        else if (nodes_[at] == kBack)
            draft.next = target(at, 0 - offset);
        else
            draft.next = target(at, offset);
    }
}

/// The step that stands for the node @p offset bytes from @p at; a backward offset wraps around.
std::uint32_t Reader::target(std::size_t at, std::size_t offset) const
{
    const std::size_t to = at + offset;
    if (offset == 0 || to >= size_ || step_at_[to] == kNone)
        throw Refusal{"corrupted pointers"};
    return step_at_[to];
}

void Reader::link_branch(Draft &draft, std::size_t at) const
{
    const std::size_t offset = node_offset(&nodes_[at]);
    draft.next = target(at, kNodeSize);
    const std::uint32_t other = target(at, offset);
    if (nodes_[at + offset] != kBranch)
        return; // the last alternative: there is no choice
    draft.op = Op::kSplit;
    draft.other = other;
}

/// The steps in an order in which each comes before those it reaches without taking a byte.
std::vector<std::uint32_t> Reader::order() const
{
    std::vector<std::uint32_t> ways_in(drafts_.size(), 0);
    std::vector<std::uint32_t> result;
    const auto for_each_exit = [](const Draft &draft, auto &&visit) {
        if (draft.op != Op::kMatch && draft.op != Op::kLiteral && draft.op != Op::kSet)
            visit(draft.next);
        if (draft.op == Op::kSplit)
            visit(draft.other);
    };

    result.reserve(drafts_.size());
    for (const Draft &draft : drafts_)
        for_each_exit(draft, [&](std::uint32_t to) { ++ways_in[to]; });
    for (std::uint32_t i = 0; i < drafts_.size(); ++i) {
        if (ways_in[i] == 0)
            result.push_back(i);
    }
    for (std::size_t done = 0; done < result.size(); ++done) {
        for_each_exit(drafts_[result[done]], [&](std::uint32_t to) {
            if (--ways_in[to] == 0)
                result.push_back(to);
        });
    }
    if (result.size() != drafts_.size())
        throw Refusal{"corrupted pointers"}; // round and round without taking a byte
    return result;
}

void Reader::leave_out_nothing(const std::vector<std::uint32_t> &order)
{
    for (auto step = order.rbegin(); step != order.rend(); ++step) {
        Draft &draft = drafts_[*step];
        if (draft.op == Op::kNothing && drafts_[draft.next].op == Op::kNothing)
            draft.next = drafts_[draft.next].next;
    }
    const auto skip = [this](std::uint32_t &to) {
        if (drafts_[to].op == Op::kNothing)
            to = drafts_[to].next;
    };
    for (Draft &draft : drafts_) {
        if (draft.op != Op::kMatch)
            skip(draft.next);
        if (draft.op == Op::kSplit)
            skip(draft.other);
    }
}

/// A choice between single bytes that go on alike is one set.
void Reader::join_choices(const std::vector<std::uint32_t> &order)
{
    const auto single = [this](const Draft &draft) {
        ByteSet set = draft.set;
        if (draft.op == Op::kLiteral && draft.literal.length == 1)
            set.set(nodes_[draft.literal.at]);
        return draft.op == Op::kSet || draft.op == Op::kLiteral ? set : ByteSet();
    };
    for (auto step = order.rbegin(); step != order.rend(); ++step) {
        Draft &draft = drafts_[*step];
        const Draft &one = drafts_[draft.next];
        const Draft &other = drafts_[draft.other];
        if (draft.op != Op::kSplit || one.next != other.next)
            continue;
        const ByteSet first = single(one);
        const ByteSet second = single(other);
        if (first.none() || second.none())
            continue;
        draft.op = Op::kSet;
        draft.set = first | second;
        draft.next = one.next;
    }
}

void Reader::find_first_bytes(const std::vector<std::uint32_t> &order)
{
    for (auto step = order.rbegin(); step != order.rend(); ++step) {
        Draft &draft = drafts_[*step];
        const ByteSet &after = drafts_[draft.next].first;
        switch (draft.op) {
        case Op::kMatch:
            draft.first.set();
            break;
        case Op::kLiteral:
            draft.first.set(nodes_[draft.literal.at]);
            break;
        case Op::kSet:
            draft.first = draft.set;
            break;
        case Op::kStar:
            draft.first = draft.set | after;
            break;
        case Op::kSplit:
            draft.first = after | drafts_[draft.other].first;
            break;
        case Op::kLineEnd:
            draft.first.set(0, after[0]);
            break;
        case Op::kSave:
        case Op::kLineStart:
        case Op::kNothing:
            draft.first = after;
            break;
        }
    }
}

void Reader::find_second_bytes(const std::vector<std::uint32_t> &order)
{
    for (auto step = order.rbegin(); step != order.rend(); ++step) {
        Draft &draft = drafts_[*step];
        const Draft &after = drafts_[draft.next];
        switch (draft.op) {
        case Op::kMatch:
        case Op::kLineEnd:
            draft.second.set();
            break;
        case Op::kLiteral:
            if (draft.literal.length > 1)
                draft.second.set(nodes_[draft.literal.at + 1]);
            else
                draft.second = after.first;
            break;
        case Op::kSet:
            draft.second = after.first;
            break;
        case Op::kStar:
            draft.second = draft.first | after.second;
            break;
        case Op::kSplit:
            draft.second = after.second | drafts_[draft.other].second;
            break;
        case Op::kSave:
        case Op::kLineStart:
        case Op::kNothing:
            draft.second = after.second;
            break;
        }
    }
}

} // namespace

std::vector<Draft> read_nodes(const Byte *nodes, std::size_t size)
{
    return Reader(nodes, size).read();
}

} // namespace qz::regex
