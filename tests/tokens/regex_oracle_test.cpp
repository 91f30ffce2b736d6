// Every way of matching gives the answer of the slow matcher.
#include "qzregex.h"
#include "tokens/regex_match.h"
#include "tokens/regex_oracle.h"
#include "tokens/token_test.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace {

/// The sub-matches as offsets; none when there is no match.
using Answer = std::optional<oracle::SubMatches>;

/// @p place gives the start of each sub-match for 0, its end for 1.
template <class Place> Answer answer(bool matched, const char *text, Place place)
{
    if (!matched)
        return std::nullopt;
    const auto offset = [=](const void *at) {
        return at == nullptr ? -1 : static_cast<int>(static_cast<const char *>(at) - text);
    };
    oracle::SubMatches found;
    for (size_t i = 0; i < found.size(); ++i)
        found[i] = {offset(place(i, 0)), offset(place(i, 1))};
    return found;
}

void compare(const oracle::TreePtr &tree, qz_regexp *program, const std::string &text)
{
    using namespace qz::regex;
    SCOPED_TRACE(text);
    oracle::SubMatches found;
    const Answer expected = oracle::Matcher(text).search(tree, found) ? Answer(found) : Answer();

    const bool matched = qz_regexec(program, text.c_str()) == 1;
    const auto place = [=](size_t i, int end) {
        return end == 0 ? program->startp[i] : program->endp[i];
    };
    EXPECT_EQ(expected, answer(matched, text.c_str(), place));

    const auto *block = reinterpret_cast<const char *>(program);
    const auto *plan = reinterpret_cast<const Plan *>(block + program->plan_at);
    for (const Method method : {Method::kThorough, Method::kSimulation}) {
        Slots slots{};
        const bool also = search(*plan, text.c_str(), slots, method);
        const auto slot = [&](size_t i, size_t end) { return slots[2 * i + end]; };
        EXPECT_EQ(expected, answer(also, text.c_str(), slot))
            << "by method " << static_cast<int>(method);
    }
}

/// Compares on every text. @return whether the pattern was accepted.
bool compare(const std::string &pattern, const std::vector<std::string> &texts)
{
    SCOPED_TRACE(pattern);
    oracle::TreePtr tree;
    std::string message;
    try {
        tree = oracle::Parser(pattern).parse();
    } catch (const char *refusal) {
        message = "FATAL Error in regular expression: " + std::string(refusal) + " \n";
    }
    qz_regexp *program = nullptr;
    EXPECT_EQ(messages_of([&] { program = qz_regcomp(pattern.c_str()); }), message);
    EXPECT_EQ(tree != nullptr, program != nullptr);
    if (tree != nullptr && program != nullptr) {
        for (const std::string &text : texts)
            compare(tree, program, text);
    }
    std::free(program);
    return tree != nullptr;
}

/// All texts over @p alphabet of at most @p length characters, the empty one first.
std::vector<std::string> all_texts(const std::string &alphabet, size_t length)
{
    std::vector<std::string> texts{""};
    for (size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].size() == length)
            break;
        for (const char c : alphabet)
            texts.push_back(texts[i] + c);
    }
    return texts;
}

TEST(Oracle, EveryShortPattern)
{
    const std::vector<std::string> texts = all_texts("ab", 3);
    int accepted = 0;
    for (const std::string &pattern : all_texts("ab.*+?|()^$[]-\\", 4))
        accepted += compare(pattern, texts);
    EXPECT_GT(accepted, 10000);
}

/// A pattern of nested pieces, now and then a wrong one.
std::string random_pattern(std::mt19937 &random, int depth)
{
    static const char *const kAtoms[] = {"a", "b",    "c",     ".",   "ab",  "bc", "[ab]",
                                         "^", "[^a]", "[a-c]", "\\.", "cab", "$",  "b"};
    static const char *const kSigns[] = {"", "", "", "*", "+", "?"};
    const auto pick = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
    std::string pattern;
    for (unsigned alternatives = 1 + pick(3) / 2; alternatives > 0; --alternatives) {
        for (unsigned pieces = 1 + pick(3); pieces > 0; --pieces) {
            if (depth > 0 && pick(3) == 0)
                pattern += "(" + random_pattern(random, depth - 1) + ")";
            else
                pattern += kAtoms[pick(14)];
            pattern += kSigns[pick(6)];
        }
        if (alternatives > 1)
            pattern += "|";
    }
    return pattern;
}

TEST(Oracle, RandomPatterns)
{
    std::mt19937 random(20253);
    const std::vector<std::string> short_texts = all_texts("abc", 2);
    int accepted = 0;
    for (int i = 0; i < 6000; ++i) {
        std::vector<std::string> texts = short_texts;
        for (int k = 0; k < 8; ++k) {
            std::string text;
            for (unsigned length = 3 + random() % 8; length > 0; --length)
                text += "aabbc."[random() % 6];
            texts.push_back(text);
        }
        accepted += compare(random_pattern(random, 3), texts);
    }
    EXPECT_GT(accepted, 3000);
}

} // namespace
