#include "qzregex.h"
#include "tokens/token_test.h"
#include "tokens/wildcard.h"
#include "tokens/wildcard_text.h"

#include <cstdlib>
#include <memory>
#include <random>

namespace {

using qz::tokens::Subject;
using qz::tokens::Wildcard;
using qz::tokens::WildcardExpression;

struct WildcardCase {
    const char *why, *wildcard, *text;
    bool matches;
};

const WildcardCase kWildcardCases[] = {
    {"a star is any text",                           "ab*",     "abc",      true },
    {"and no text",                                  "ab*",     "ab",       true },
    {"the start is fixed",                           "b",       "ab",       false},
    {"the end is free",                              "a?c",     "abcd",     true },
    {"a question mark is one character",             "a?c",     "ac",       false},
    {"a hash is a digit",                            "#.#",     "3.5",      true },
    {"a dot is a dot",                               "#.#",     "3x5",      false},
    {"stars in the middle, in order",                "a*b*c",   "acb",      false},
    {"two stars are one",                            "a**b",    "a-b",      true },
    {"blanks behind a star are dropped",             "a*  b",   "ab",       true },
    {"also behind a star behind them",               "a* * b",  "ab",       true },
    {"a tab behind a star is kept",                  "a*\tb",   "ab",       false},
    {"other blanks are kept",                        "a b",     "ab",       false},
    {"blanks before a star are kept",                "a *b",    "a b",      true },
    {"another character ends the dropping",          "*a b",    "xab",      false},
    {"an escaped bracket",                           "\\[a\\]", "[a]",      true },
    {"an escaped plus",                              "a\\+",    "a+",       true },
    {"an escaped plus repeats nothing",              "a\\+",    "aa",       false},
    {"an escaped hash",                              "\\#",     "#",        true },
    {"an escaped hash is no digit",                  "\\#",     "5",        false},
    {"escaped parentheses",                          "\\(a\\)", "(a)",      true },
    {"a backslash before a star is a backslash",     "\\*",     "\\xyz",    true },
    {"and needed",                                   "\\*",     "*",        false},
    {"a backslash before a letter",                  "\\n",     "\\n",      true },
    {"not one",                                      "\\\\",    "\\",       false},
    {"a backslash, then an escaped bracket's start", "\\\\[a]", "\\[a]",    true },
    {"a backslash at the end",                       "a\\",     "a\\",      true },
    {"a set keeps its meaning",                      "[ab]c",   "bc",       true },
    {"a plus repeats",                               "ab+c",    "abbc",     true },
    {"of alternatives only the first is anchored",   "a|b",     "xb",       true },
    {"a dollar sign ends the text",                  "ab$",     "abc",      false},
    {"a caret is the start again",                   "^a",      "a",        true },
    {"the empty wildcard matches all",               "",        "anything", true },
    {"bytes above 127",                              "\xe9?",   "\xe9\xff", true },
};

constexpr const char *kNotEnough =
    "-1WARNING qztoken_regex_index(): not enough regular expressions\n"
    "WARNING                       : call qztoken_regex_compile() first\n";

/// The place of the wildcard that matches, and what is said meanwhile.
std::string answer(const List &list, const std::string &text)
{
    int place = 0;
    const std::string said = messages_of([&] { place = qztoken_regex_index(list, text.c_str()); });
    return std::to_string(place) + said;
}

TEST(Wildcard, Table)
{
    for (const WildcardCase &c : kWildcardCases) {
        SCOPED_TRACE(std::string(c.why) + ": " + c.wildcard + " on " + c.text);
        const List list{c.wildcard};
        EXPECT_EQ(qztoken_regex_compile(list), 0);
        EXPECT_EQ(answer(list, c.text), c.matches ? "0" : "-1");
    }
}

/// The matcher for simple wildcards against the engine, which defines what they mean.
TEST(Wildcard, AgreesWithTheEngine)
{
    std::mt19937 random(5);
    const auto text_of = [&](const std::string &characters, std::size_t max_length) {
        std::string text(random() % (max_length + 1), ' ');
        for (char &c : text)
            c = characters[random() % characters.size()];
        return text;
    };
    for (int i = 0; i < 3'000; ++i) {
        const std::string wildcard = text_of(i % 2 != 0 ? "aab*?# " : "ab*?#.\\ [+\1", 8);
        halcyra::qzlibs::CaptureQZErr quiet(-1);
        const Wildcard compiled(wildcard.c_str());
        const std::unique_ptr<qz_regexp, void (*)(void *)> program(
            qz_regcomp(WildcardExpression(wildcard.c_str()).c_str()), std::free);
        for (int k = 0; k < 20; ++k) {
            const std::string text = text_of("aab1 .\\\1", 10);
            const bool expected =
                program != nullptr && qz_regexec(program.get(), text.c_str()) == 1;
            ASSERT_EQ(compiled.matches(Subject(text.c_str())), expected)
                << "<" << wildcard << "> on <" << text << ">";
        }
    }
}

TEST(Wildcard, TheFirstMatchCounts)
{
    const List list("*.txt a* *");
    EXPECT_EQ(answer(list, "a"), kNotEnough);
    EXPECT_EQ(qztoken_regex_compile(list), 0);
    EXPECT_EQ(answer(list, "a.txt") + answer(list, "a.dat") + answer(list, ""), "012");
}

TEST(Wildcard, AMalformedOneIsReportedAndSkipped)
{
    const List list{"[a", "a"};
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(qztoken_regex_compile(list), 0); }),
              "FATAL Error in regular expression: unmatched [] \n");
    EXPECT_EQ(answer(list, "a"), "1");
    EXPECT_EQ(answer(list, "[a"), "-1");
}

TEST(Wildcard, TheLongestThatFits)
{
    // The caret and the terminator take two of the 10,000 bytes.
    const std::string fits(9998, 'a');
    const std::string digits(1999, '#'); // five bytes each
    const List list{fits.c_str(), (fits + "a").c_str(), (digits + "abc").c_str(),
                    (digits + "#").c_str(), std::string(100'000, '*').c_str()};
    const std::string too_big = "FATAL Error in regular expression: regexp too big \n";
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(qztoken_regex_compile(list), 0); }),
              too_big + too_big + too_big);
    EXPECT_EQ(answer(list, fits), "0");
    EXPECT_EQ(answer(list, std::string(1999, '7') + "abc"), "2");
    EXPECT_EQ(answer(list, "**"), "-1");
}

TEST(Wildcard, ThePatternsOutliveTheTokens)
{
    const List list("a* b*");
    qztoken_regex_compile(list);
    qztoken_replace(list, 0, "x");
    EXPECT_EQ(answer(list, "abc"), "0") << "compiled before the change";
    qztoken_add(list, "c");
    EXPECT_EQ(answer(list, "abc"), kNotEnough);
    qztoken_clear(list);
    EXPECT_EQ(answer(list, "abc"), kNotEnough);
    qztoken_regex_compile(list);
    EXPECT_EQ(answer(list, "abc"), "-1") << "an empty list matches nothing";
}

} // namespace
