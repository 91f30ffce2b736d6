#include "tokens/regex_compile.h"

#include "tokens/regex_nodes.h"

#include <cstring>

namespace qz::regex {

namespace {

constexpr const char *kSpecial = "^$.[()|?+*\\";

bool repeats(char c)
{
    return c == '*' || c == '+' || c == '?';
}

/// Writes nodes, or only counts them while there is nowhere to write to.
class NodeWriter {
public:
    explicit NodeWriter(unsigned char *out) : out_(out) {}

    std::size_t size() const { return size_; }

    void byte(unsigned char value)
    {
        if (out_ != nullptr)
            out_[size_] = value;
        ++size_;
    }

    /// @return where the new node begins.
    std::size_t node(unsigned char opcode)
    {
        const std::size_t at = size_;
        byte(opcode);
        byte(0);
        byte(0);
        return at;
    }

    /// Puts a node in front of all that was written from @p at on. Offsets inside the moved part
    /// stay true, and no offset from before leads into it yet.
    void insert(std::size_t at, unsigned char opcode)
    {
        const std::size_t moved = size_ - at;
        node(0);
        if (out_ == nullptr)
            return;
        std::memmove(out_ + at + kNodeSize, out_ + at, moved);
        out_[at] = opcode;
        out_[at + 1] = out_[at + 2] = 0;
    }

    void link(std::size_t from, std::size_t to)
    {
        if (out_ == nullptr)
            return;
        const std::size_t distance = to > from ? to - from : from - to;
        out_[from + 1] = static_cast<unsigned char>(distance >> 8);
        out_[from + 2] = static_cast<unsigned char>(distance & 0xff);
    }

private:
    unsigned char *out_;
    std::size_t size_ = 0;
};

/// Nodes that were written for a part of the pattern: entered at the first, left at the last, whose
/// offset is still open.
struct Fragment {
    std::size_t first = 0;
    std::size_t last = 0;
    bool has_width = false;        ///< never matches the empty text
    bool single_byte = false;      ///< one node that takes exactly one byte
    bool begins_with_loop = false; ///< a "*" or "+" repetition comes first
};

class Parser {
public:
    Parser(const char *pattern, NodeWriter &out) : at_(pattern), out_(out) {}

    Fragment program();

private:
    Fragment alternatives(unsigned char end_opcode);
    Fragment sequence();
    Fragment piece();
    Fragment star(Fragment operand);
    Fragment plus(Fragment operand);
    Fragment optional(Fragment operand);
    std::size_t way_past(std::size_t branch);
    Fragment atom();
    Fragment group();
    Fragment set();
    void set_members();
    Fragment literal_run();
    Fragment literal(const char *bytes, std::size_t length);
    Fragment single(unsigned char opcode, bool has_width);

    const char *at_;
    NodeWriter &out_;
    int groups_ = 0;
};

Fragment Parser::program()
{
    out_.byte(kMagic);
    const Fragment all = alternatives(kEnd);
    if (*at_ == ')')
        throw Refusal{"unmatched ()"};
    if (*at_ != '\0')
        throw Refusal{"junk on end"};
    return all;
}

/// Alternatives up to a closing parenthesis or the end, joined in a last node of @p end_opcode.
Fragment Parser::alternatives(unsigned char end_opcode)
{
    struct Alternative {
        std::size_t branch;
        Fragment content;
    };

    std::vector<Alternative> all;
    Fragment result;
    result.has_width = true;
    for (;;) {
        const std::size_t branch = out_.node(kBranch);
        all.push_back({branch, sequence()});
        result.has_width = result.has_width && all.back().content.has_width;
        result.begins_with_loop |= all.back().content.begins_with_loop;
        if (*at_ != '|')
            break;
        ++at_;
    }
    result.first = all.front().branch;
    result.last = out_.node(end_opcode);
    for (std::size_t i = 0; i < all.size(); ++i) {
        out_.link(all[i].branch, i + 1 < all.size() ? all[i + 1].branch : result.last);
        out_.link(all[i].content.last, result.last);
    }
    return result;
}

Fragment Parser::sequence()
{
    if (*at_ == '\0' || *at_ == '|' || *at_ == ')')
        return single(kNothing, false);
    Fragment all = piece();
    while (*at_ != '\0' && *at_ != '|' && *at_ != ')') {
        const Fragment next = piece();
        out_.link(all.last, next.first);
        all.last = next.last;
        all.has_width |= next.has_width;
    }
    return all;
}

Fragment Parser::piece()
{
    Fragment operand = atom();
    const char sign = *at_;
    if (!repeats(sign))
        return operand;
    // An iteration that takes nothing would go round for ever.
    if (sign != '?' && !operand.has_width)
        throw Refusal{"*+ operand could be empty"};
    ++at_;
    const Fragment whole = sign == '*'   ? star(operand)
                           : sign == '+' ? plus(operand)
                                         : optional(operand);
    if (repeats(*at_))
        throw Refusal{"nested *?+"};
    return whole;
}

Fragment Parser::star(Fragment operand)
{
    Fragment whole;
    whole.first = operand.first;
    whole.begins_with_loop = true;
    if (operand.single_byte) {
        out_.insert(operand.first, kStar);
        whole.last = operand.first;
        return whole;
    }
    // Either the operand and round again, or nothing.
    out_.insert(operand.first, kBranch);
    const std::size_t back = out_.node(kBack);
    out_.link(operand.last + kNodeSize, back);
    out_.link(back, whole.first);
    whole.last = way_past(whole.first);
    return whole;
}

Fragment Parser::plus(Fragment operand)
{
    Fragment whole;
    whole.first = operand.first;
    whole.has_width = true;
    whole.begins_with_loop = true;
    if (operand.single_byte) {
        out_.insert(operand.first, kPlus);
        whole.last = operand.first;
        return whole;
    }
    // The operand, then either back to it or nothing.
    const std::size_t again = out_.node(kBranch);
    out_.link(operand.last, again);
    out_.link(out_.node(kBack), operand.first);
    whole.last = way_past(again);
    return whole;
}

Fragment Parser::optional(Fragment operand)
{
    Fragment whole;
    whole.first = operand.first;
    whole.begins_with_loop = operand.begins_with_loop;
    out_.insert(operand.first, kBranch);
    whole.last = way_past(whole.first);
    out_.link(operand.last + kNodeSize, whole.last);
    return whole;
}

/// Adds nothing at all as the alternative of a branch. @return the node where both end.
std::size_t Parser::way_past(std::size_t branch)
{
    const std::size_t alternative = out_.node(kBranch);
    out_.link(branch, alternative);
    const std::size_t end = out_.node(kNothing);
    out_.link(alternative, end);
    return end;
}

Fragment Parser::atom()
{
    switch (*at_) {
    case '^':
        ++at_;
        return single(kLineStart, false);
    case '$':
        ++at_;
        return single(kLineEnd, false);
    case '.':
        ++at_;
        return single(kAny, true);
    case '[':
        return set();
    case '(':
        return group();
    case '\0':
    case '|':
    case ')':
        throw Refusal{"internal urp"}; // sequence() stops in front of these
    case '?':
    case '+':
    case '*':
        throw Refusal{"?+* follows nothing"};
    case '\\':
        if (at_[1] == '\0')
            throw Refusal{"trailing \\"};
        at_ += 2;
        return literal(at_ - 1, 1);
    default:
        return literal_run();
    }
}

Fragment Parser::group()
{
    if (groups_ == kMaxGroups)
        throw Refusal{"too many ()"};
    const int number = ++groups_;
    ++at_;
    const std::size_t open = out_.node(static_cast<unsigned char>(kOpen + number));
    Fragment whole = alternatives(static_cast<unsigned char>(kClose + number));
    if (*at_ != ')')
        throw Refusal{"unmatched ()"};
    ++at_;
    out_.link(open, whole.first);
    whole.first = open;
    return whole;
}

Fragment Parser::set()
{
    ++at_;
    const bool inverted = *at_ == '^';
    if (inverted)
        ++at_;
    const Fragment whole = single(inverted ? kAnyBut : kAnyOf, true);
    set_members();
    out_.byte(0);
    return whole;
}

void Parser::set_members()
{
    // The first member is never the closing bracket and never a range sign.
    for (bool first = true; first || *at_ != ']'; first = false) {
        if (*at_ == '\0')
            throw Refusal{"unmatched []"};
        const bool range = !first && *at_ == '-' && at_[1] != ']' && at_[1] != '\0';
        if (!range) {
            out_.byte(static_cast<unsigned char>(*at_++));
            continue;
        }
        // The lower end has been written as a member of its own.
        const int low = static_cast<unsigned char>(at_[-1]);
        const int high = static_cast<unsigned char>(at_[1]);
        if (low > high)
            throw Refusal{"invalid [] range"};
        for (int c = low + 1; c <= high; ++c)
            out_.byte(static_cast<unsigned char>(c));
        at_ += 2;
    }
    ++at_;
}

/// Ordinary characters up to the next special one. A repetition sign belongs to the last of them,
/// which is then left for the next piece.
Fragment Parser::literal_run()
{
    std::size_t length = std::strcspn(at_, kSpecial);
    if (length == 0)
        throw Refusal{"internal disaster"}; // atom() has seen an ordinary character
    if (length > 1 && repeats(at_[length]))
        --length;
    at_ += length;
    return literal(at_ - length, length);
}

Fragment Parser::literal(const char *bytes, std::size_t length)
{
    Fragment whole = single(kLiteral, true);
    whole.single_byte = length == 1;
    for (std::size_t i = 0; i < length; ++i)
        out_.byte(static_cast<unsigned char>(bytes[i]));
    out_.byte(0);
    return whole;
}

Fragment Parser::single(unsigned char opcode, bool has_width)
{
    Fragment whole;
    whole.first = whole.last = out_.node(opcode);
    whole.has_width = has_width;
    whole.single_byte = has_width;
    return whole;
}

/// The first node of the only alternative, or 0 when there are several.
std::size_t sole_alternative(const std::vector<unsigned char> &program)
{
    const std::size_t branch = 1;
    const std::size_t end = branch + node_offset(&program[branch]);
    return program[end] == kEnd ? branch + kNodeSize : 0;
}

} // namespace

NodeProgram compile(const char *pattern)
{
    // Counted before it is written: a set's ranges make the program much larger than the pattern.
    NodeWriter counter(nullptr);
    Parser(pattern, counter).program();
    if (counter.size() >= kProgramLimit)
        throw Refusal{"regexp too big"};

    NodeProgram result;
    result.bytes.resize(counter.size());
    NodeWriter writer(result.bytes.data());
    result.begins_with_loop = Parser(pattern, writer).program().begins_with_loop;
    return result;
}

StartHints start_hints(const NodeProgram &program)
{
    StartHints hints;
    const std::size_t first = sole_alternative(program.bytes);
    if (first == 0)
        return hints;
    if (program.bytes[first] == kLiteral)
        hints.first_byte = static_cast<char>(program.bytes[first + kNodeSize]);
    hints.anchored = program.bytes[first] == kLineStart;
    if (program.begins_with_loop)
        hints.required = required_literal(program.bytes);
    return hints;
}

std::vector<std::size_t> required_nodes(const std::vector<unsigned char> &program)
{
    std::vector<std::size_t> nodes;
    std::size_t at = sole_alternative(program);
    for (; at != 0 && program[at] != kEnd; at += node_offset(&program[at]))
        nodes.push_back(at);
    return nodes;
}

Literal required_literal(const std::vector<unsigned char> &program)
{
    Literal best;
    for (const std::size_t at : required_nodes(program)) {
        if (program[at] != kLiteral)
            continue;
        const auto *bytes = reinterpret_cast<const char *>(&program[at + kNodeSize]);
        const std::size_t length = std::strlen(bytes);
        if (length >= best.length)
            best = {at + kNodeSize, length};
    }
    return best;
}

} // namespace qz::regex
