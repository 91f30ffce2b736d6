// Every way of matching gives the answer of the slow matcher.
#include "qzerr.h"
#include "qzregex.h"
#include "tokens/regex_match.h"
#include "tokens/regex_oracle.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

std::string last_message;

int keep_message(const char *message)
{
    last_message = message;
    return 0;
}

std::string written(bool matched, const oracle::SubMatches &found)
{
    std::string text = matched ? "match" : "no match";
    for (size_t i = 0; matched && i < found.size(); ++i)
        text += " " + std::to_string(found[i].first) + "-" + std::to_string(found[i].second);
    return text;
}

template <class Pointers> std::string written(bool matched, const char *text, Pointers pointers)
{
    oracle::SubMatches found;
    const auto offset = [=](const void *at) {
        return at == nullptr ? -1 : static_cast<int>(static_cast<const char *>(at) - text);
    };
    for (size_t i = 0; i < found.size(); ++i)
        found[i] = {offset(pointers(i).first), offset(pointers(i).second)};
    return written(matched, found);
}

class Oracle : public testing::Test {
protected:
    void SetUp() override
    {
        qzerr_file(-1, nullptr);
        qzerr_window(-1, keep_message);
    }

    void TearDown() override
    {
        qzerr_window(-1, nullptr);
        qzerr_file(-1, stderr);
    }

    /// Compares on every text. @return whether the pattern was accepted.
    static bool compare(const std::string &pattern, const std::vector<std::string> &texts)
    {
        oracle::TreePtr tree;
        std::string reason;
        try {
            tree = oracle::Parser(pattern).parse();
        } catch (const char *refusal) {
            reason = "FATAL Error in regular expression: " + std::string(refusal) + " \n";
        }
        last_message.clear();
        qz_regexp *program = qz_regcomp(pattern.c_str());
        EXPECT_EQ(reason, last_message) << pattern;
        EXPECT_EQ(tree != nullptr, program != nullptr) << pattern;
        if (tree != nullptr && program != nullptr) {
            for (const std::string &text : texts)
                compare(pattern, tree, program, text);
        }
        std::free(program);
        return tree != nullptr;
    }

private:
    static void compare(const std::string &pattern, const oracle::TreePtr &tree, qz_regexp *program,
                        const std::string &text)
    {
        using namespace qz::regex;
        oracle::SubMatches found;
        const bool matches = oracle::Matcher(text).search(tree, found);
        const std::string expected = written(matches, found);

        const bool matched = qz_regexec(program, text.c_str()) == 1;
        const auto entry = [=](size_t i) {
            return std::make_pair(program->startp[i], program->endp[i]);
        };
        EXPECT_EQ(expected, written(matched, text.c_str(), entry)) << pattern << " in " << text;

        const auto *block = reinterpret_cast<const char *>(program);
        const auto *plan = reinterpret_cast<const Plan *>(block + program->plan_at);
        for (const Method method : {Method::kThorough, Method::kSimulation}) {
            Slots slots{};
            const bool also = search(*plan, text.c_str(), slots, method);
            const auto slot = [&](size_t i) {
                return std::make_pair(slots[2 * i], slots[2 * i + 1]);
            };
            EXPECT_EQ(expected, written(also, text.c_str(), slot))
                << pattern << " in " << text << " by method " << static_cast<int>(method);
        }
    }
};

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

TEST_F(Oracle, EveryShortPattern)
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

TEST_F(Oracle, RandomPatterns)
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
