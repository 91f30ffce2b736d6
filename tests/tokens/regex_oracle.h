// A slow and obvious regular-expression matcher: the pattern as a tree, tried way after way by
// recursion. It takes exponential time and is meant for short patterns and texts.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace oracle {

struct Tree;
using TreePtr = std::shared_ptr<Tree>;

struct Tree {
    enum Kind { kBytes, kStart, kEnd, kSequence, kAlternatives, kGroup, kRepeat } kind;

    std::string bytes; ///< kBytes: any one of them
    std::vector<TreePtr> parts;
    int group = 0;
    int least = 0; ///< kRepeat
    bool endless = false;
    bool has_width = false;
};

/// Parses a pattern; a wrong one is thrown as the reason, a const char *.
class Parser {
public:
    explicit Parser(std::string pattern) : left_(std::move(pattern)) {}

    TreePtr parse()
    {
        TreePtr all = alternatives();
        if (!left_.empty())
            throw "unmatched ()"; // only a ")" stops the alternatives early
        return all;
    }

private:
    static TreePtr make(Tree::Kind kind, bool has_width)
    {
        auto tree = std::make_shared<Tree>();
        tree->kind = kind;
        tree->has_width = has_width;
        return tree;
    }

    bool next_is(const char *set) const
    {
        return !left_.empty() && std::string(set).find(left_[0]) != std::string::npos;
    }

    char take()
    {
        const char c = left_.at(0);
        left_.erase(0, 1);
        return c;
    }

    TreePtr alternatives()
    {
        TreePtr tree = make(Tree::kAlternatives, true);
        for (;;) {
            tree->parts.push_back(sequence());
            tree->has_width = tree->has_width && tree->parts.back()->has_width;
            if (!next_is("|"))
                return tree;
            take();
        }
    }

    TreePtr sequence()
    {
        TreePtr tree = make(Tree::kSequence, false);
        while (!left_.empty() && !next_is("|)")) {
            tree->parts.push_back(piece());
            tree->has_width = tree->has_width || tree->parts.back()->has_width;
        }
        return tree;
    }

    TreePtr piece()
    {
        TreePtr operand = atom();
        if (!next_is("*+?"))
            return operand;
        const char sign = take();
        if (sign != '?' && !operand->has_width)
            throw "*+ operand could be empty";
        if (next_is("*+?"))
            throw "nested *?+";
        TreePtr tree = make(Tree::kRepeat, sign == '+');
        tree->parts = {operand};
        tree->least = sign == '+' ? 1 : 0;
        tree->endless = sign != '?';
        return tree;
    }

    TreePtr atom()
    {
        if (next_is("*+?"))
            throw "?+* follows nothing";
        const char c = take();
        if (c == '^')
            return make(Tree::kStart, false);
        if (c == '$')
            return make(Tree::kEnd, false);
        if (c == '(')
            return group();
        TreePtr tree = make(Tree::kBytes, true);
        if (c == '[') {
            tree->bytes = set();
        } else if (c == '.') {
            tree->bytes = all_but("");
        } else if (c == '\\') {
            if (left_.empty())
                throw "trailing \\";
            tree->bytes = take();
        } else {
            tree->bytes = c;
        }
        return tree;
    }

    TreePtr group()
    {
        if (groups_ == 9)
            throw "too many ()";
        TreePtr tree = make(Tree::kGroup, false);
        tree->group = ++groups_;
        tree->parts = {alternatives()};
        tree->has_width = tree->parts[0]->has_width;
        if (!next_is(")"))
            throw "unmatched ()";
        take();
        return tree;
    }

    std::string set()
    {
        const bool inverted = next_is("^");
        if (inverted)
            take();
        std::string members;
        char before = 0; // the character a range would start from; none at the front
        while (before == 0 || !next_is("]")) {
            if (left_.empty())
                throw "unmatched []";
            const char c = take();
            if (before != 0 && c == '-' && !left_.empty() && !next_is("]")) {
                const int high = static_cast<unsigned char>(take());
                const int low = static_cast<unsigned char>(before);
                if (low > high)
                    throw "invalid [] range";
                for (int member = low; member <= high; ++member)
                    members += static_cast<char>(member);
                before = static_cast<char>(high);
            } else {
                members += before = c;
            }
        }
        take();
        return inverted ? all_but(members) : members;
    }

    static std::string all_but(const std::string &members)
    {
        std::string rest;
        for (int c = 1; c < 256; ++c) {
            if (members.find(static_cast<char>(c)) == std::string::npos)
                rest += static_cast<char>(c);
        }
        return rest;
    }

    std::string left_;
    int groups_ = 0;
};

/// Offsets of the sub-matches; -1 for none.
using SubMatches = std::array<std::pair<int, int>, 10>;

class Matcher {
public:
    explicit Matcher(std::string text) : text_(std::move(text)) {}

    bool search(const TreePtr &tree, SubMatches &result)
    {
        for (size_t start = 0; start <= text_.size(); ++start) {
            found_.fill({-1, -1});
            size_t end = 0;
            if (match(*tree, start, [&](size_t at) { return end = at, true; })) {
                found_[0] = {static_cast<int>(start), static_cast<int>(end)};
                result = found_;
                return true;
            }
        }
        return false;
    }

private:
    using Rest = std::function<bool(size_t)>;

    /// Tries every way @p tree can match at @p at, the preferred ones first, until the rest
    /// matches.
    bool match(const Tree &tree, size_t at, const Rest &rest)
    {
        switch (tree.kind) {
        case Tree::kBytes:
            return at < text_.size() && tree.bytes.find(text_[at]) != std::string::npos &&
                   rest(at + 1);
        case Tree::kStart:
            return at == 0 && rest(at);
        case Tree::kEnd:
            return at == text_.size() && rest(at);
        case Tree::kSequence:
            return sequence(tree, 0, at, rest);
        case Tree::kAlternatives:
            for (const TreePtr &part : tree.parts) {
                if (match(*part, at, rest))
                    return true;
            }
            return false;
        case Tree::kGroup:
            return group(tree, at, rest);
        case Tree::kRepeat:
            return repeat(tree, 0, at, rest);
        }
        return false;
    }

    bool sequence(const Tree &tree, size_t index, size_t at, const Rest &rest)
    {
        if (index == tree.parts.size())
            return rest(at);
        return match(*tree.parts[index], at,
                     [&](size_t after) { return sequence(tree, index + 1, after, rest); });
    }

    bool group(const Tree &tree, size_t at, const Rest &rest)
    {
        auto &found = found_[static_cast<size_t>(tree.group)];
        const int start_before = found.first;
        found.first = static_cast<int>(at);
        const bool matched = match(*tree.parts[0], at, [&](size_t after) {
            const int end_before = found.second;
            found.second = static_cast<int>(after);
            return rest(after) || (found.second = end_before, false);
        });
        return matched || (found.first = start_before, false);
    }

    bool repeat(const Tree &tree, int done, size_t at, const Rest &rest)
    {
        const bool may_go_on = tree.endless || done == 0;
        if (may_go_on && match(*tree.parts[0], at,
                               [&](size_t after) { return repeat(tree, done + 1, after, rest); }))
            return true;
        return done >= tree.least && rest(at);
    }

    std::string text_;
    SubMatches found_;
};

} // namespace oracle
