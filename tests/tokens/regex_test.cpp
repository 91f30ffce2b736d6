// What a caller of the regular-expression calls sees.
#include "qzerr.h"
#include "qzregex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace {

std::string messages;

int keep_message(const char *message)
{
    messages += message;
    return 0;
}

std::string refusal(const char *reason)
{
    return "FATAL Error in regular expression: " + std::string(reason) + " \n";
}

struct Free {
    void operator()(qz_regexp *program) const { std::free(program); }
};

using Program = std::unique_ptr<qz_regexp, Free>;

class Regex : public testing::Test {
protected:
    void SetUp() override
    {
        qzerr_file(-1, nullptr);
        qzerr_window(-1, keep_message);
        messages.clear();
    }

    void TearDown() override
    {
        qzerr_window(-1, nullptr);
        qzerr_file(-1, stderr);
    }

    static Program compiled(const std::string &pattern)
    {
        return Program(qz_regcomp(pattern.c_str()));
    }
};

std::string repeated(const std::string &part, size_t count)
{
    std::string text;
    while (count-- > 0)
        text += part;
    return text;
}

TEST_F(Regex, RefusesPatternsWithTheReason)
{
    const struct {
        const char *why;
        const char *pattern;
        const char *reason;
    } cases[] = {
        {"group left open",                     "(a",                             "unmatched ()"             },
        {"group never opened",                  "a)",                             "unmatched ()"             },
        {"closed once too often",               "(a))",                           "unmatched ()"             },
        {"ten groups",                          "(a)(a)(a)(a)(a)(a)(a)(a)(a)(a)", "too many ()"              },
        {"ten groups, none closed",             "((((((((((",                     "too many ()"              },
        {"loop of a loop",                      "(a*)*",                          "*+ operand could be empty"},
        {"one empty alternative is enough",     "(a|)+",                          "*+ operand could be empty"},
        {"anchors take nothing",                "^*",                             "*+ operand could be empty"},
        {"emptiness is seen before nesting",    "(a?)**",                         "*+ operand could be empty"},
        {"sign after sign",                     "a**",                            "nested *?+"               },
        {"no lazy repetition",                  "a*?",                            "nested *?+"               },
        {"sign at the front",                   "*a",                             "?+* follows nothing"      },
        {"sign at the front of a group",        "(?a)",                           "?+* follows nothing"      },
        {"sign at the front of an alternative", "a|+",                            "?+* follows nothing"      },
        {"range from high to low",              "[b-a]",                          "invalid [] range"         },
        {"range compared as unsigned bytes",    "[\xff-a]",                       "invalid [] range"         },
        {"set left open",                       "[a",                             "unmatched []"             },
        {"a bracket at the front is literal",   "[]",                             "unmatched []"             },
        {"set left open after a hyphen",        "[a-",                            "unmatched []"             },
        {"nothing to escape",                   "ab\\",                           "trailing \\"              },
        {"the first fault counts",              "[b-a](",                         "invalid [] range"         },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        messages.clear();
        EXPECT_EQ(compiled(c.pattern), nullptr);
        EXPECT_EQ(messages, refusal(c.reason));
    }
    messages.clear();
    EXPECT_EQ(qz_regcomp(nullptr), nullptr);
    EXPECT_EQ(messages, refusal("NULL argument"));
}

TEST_F(Regex, LimitsTheSize)
{
    EXPECT_NE(compiled(repeated("(a)", 9)), nullptr);
    EXPECT_NE(compiled(repeated("a", 32755)), nullptr);
    EXPECT_EQ(messages, "");
    EXPECT_EQ(compiled(repeated("a", 32756)), nullptr);
    EXPECT_EQ(compiled(repeated("[\x01-\xff]", 127)), nullptr) << "a range counts in full";
    EXPECT_EQ(messages, refusal("regexp too big") + refusal("regexp too big"));
    messages.clear();
    EXPECT_EQ(compiled(repeated("a", 40000) + "("), nullptr) << "the other fault is met first";
    EXPECT_EQ(messages, refusal("unmatched ()"));
}

TEST_F(Regex, FindsTheSubMatches)
{
    const struct {
        const char *why;
        const char *pattern;
        const char *text;
        const char *expected; ///< the sub-matches between "|", "~" for none; nullptr for no match
    } cases[] = {
        {"empty text",                         "a*",                          "",              "|"            },
        {"anchored at the start",              "^ab",                         "abc",           "|ab"          },
        {"anchored elsewhere",                 "^ab",                         "cab",           nullptr        },
        {"at the end",                         "b$",                          "ab",            "|b"           },
        {"not at the end",                     "b$",                          "ba",            nullptr        },
        {"start of line inside",               "a|^b",                        "xb",            nullptr        },
        {"leftmost, not longest",              "a|ab|bcd",                    "xabcd",         "|a"           },
        {"greedy",                             "a.*c",                        "abcabcab",      "|abcabc"      },
        {"gives back one at a time",           "(a*)(ab)*(b*)",               "aabb",          "|aabb|aa|~|bb"},
        {"the last repetition is reported",    "(a|b(c))*",                   "bca",           "|bca|a|c"     },
        {"an iteration that failed is undone", "((a)|b)*c",                   "abcab",         "|abc|b|a"     },
        {"optional left out",                  "a(b)?c",                      "ac",            "|ac|~"        },
        {"versions of a product",              "^plindra-v[0-9]+(.[0-9]+)?$", "plindra-v12.3",
         "|plindra-v12.3|.3"                                                                                  },
        {"a dot is any byte, even a newline",  "a.b",                         "a\nb",          "|a\nb"        },
        {"bracket first in a set",             "[]a]+",                       "x]a]",          "|]a]"         },
        {"hyphen first and last",              "[-a][b-]",                    "a--",           "|a-"          },
        {"range from a bracket",               "[]-a]+",                      "[^_`a",         "|^_`a"        },
        {"range goes on from a range",         "[a-c-e]+",                    "xdex",          "|de"          },
        {"special characters in a set",        "[.*\\]+",                     "a\\*.",         "|\\*."        },
        {"escapes",                            "\\(\\a\\\\",                  "(a\\",          "|(a\\"        },
        {"bytes above 127",                    "[\xc0-\xff]\x80+",            "a\xc3\x80\x80", "|\xc3\x80\x80"},
        {"not in a set, above 127",            "[^a-z]",                      "ab\xff",        "|\xff"        },
        {"empty alternative",                  "a(b|)c",                      "ac",            "|ac|"         },
        {"the last of a repeated letter",      "a*b.*c$",                     "ab c ccx c",    "|ab c ccx c"  },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled(c.pattern);
        ASSERT_NE(program, nullptr);
        std::string found;
        const std::string_view pattern = c.pattern;
        const int groups = static_cast<int>(std::count(pattern.begin(), pattern.end(), '('));
        const int matched = qz_regexec(program.get(), c.text);
        for (int i = 0; matched == 1 && i <= groups; ++i) {
            if (std::strstr(c.pattern, "\\(") != nullptr && i == groups)
                break;
            found += "|" + (program->startp[i] == nullptr
                                ? "~"
                                : std::string(program->startp[i], program->endp[i]));
        }
        EXPECT_EQ(matched, c.expected != nullptr);
        EXPECT_EQ(found, c.expected == nullptr ? "" : c.expected);
    }
}

TEST_F(Regex, KnowsHowAMatchStarts)
{
    const struct {
        const char *why;
        const char *pattern;
        char first;
        int anchored;
        std::string required;
    } cases[] = {
        {"a literal at the front",                "abc",        'a', 0, ""   },
        {"anchored",                              "^abc",       0,   1, ""   },
        {"several alternatives have no hints",    "^abc|a*bc",  0,   0, ""   },
        {"a loop at the front",                   "a*bc.def.g", 0,   0, "def"},
        {"of two as long the later one",          ".*foo.*bar", 0,   0, "bar"},
        {"a loop of a group",                     "(x+x+)+y",   0,   0, "y"  },
        {"only the last letter is repeated",      "ab*c",       'a', 0, ""   },
        {"literals inside a choice do not count", "a+(bcd|e)f", 0,   0, "f"  },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled(c.pattern);
        ASSERT_NE(program, nullptr);
        EXPECT_EQ(program->regstart, c.first);
        EXPECT_EQ(program->reganch, c.anchored);
        EXPECT_EQ(std::string(program->regmust == nullptr ? "" : program->regmust), c.required);
        EXPECT_EQ(static_cast<size_t>(program->regmlen), c.required.size());
    }
}

TEST_F(Regex, RefusesToRunWhatIsNoProgram)
{
    // "a*b": magic, branch, star and its operand, literal, end.
    const struct {
        const char *why;
        size_t at;
        unsigned char value;
        const char *reason; ///< nullptr: it runs
    } cases[] = {
        {"magic byte",                       0,  0,   "corrupted program" },
        {"opcode nobody knows",              1,  77,  "memory corruption" },
        {"no end",                           17, 9,   "corrupted pointers"},
        {"offset into a node",               3,  2,   "corrupted pointers"},
        {"offset out of the program",        5,  80,  "corrupted pointers"},
        {"back to itself",                   1,  7,   "corrupted pointers"},
        {"repetition of what takes nothing", 7,  9,   "internal foulup"   },
        {"literal without an end",           17, 8,   "memory corruption" },
        {"another literal",                  15, 'a', nullptr             },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled("a*b");
        ASSERT_EQ(program->program_size, 20);
        program->program[c.at] = c.value;
        messages.clear();
        EXPECT_EQ(qz_regexec(program.get(), "xaab"), c.reason == nullptr);
        EXPECT_EQ(messages, c.reason == nullptr ? "" : refusal(c.reason));
    }
    messages.clear();
    EXPECT_EQ(qz_regexec(nullptr, "a"), 0);
    EXPECT_EQ(qz_regexec(compiled("a").get(), nullptr), 0);
    EXPECT_EQ(messages, refusal("NULL parameter") + refusal("NULL parameter"));
}

// Each of these takes hours when ways are tried again that have failed before.
TEST_F(Regex, LongTextsTakeLinearTime)
{
    const std::string run(1 << 18, 'x');
    const long whole = 1 + (1 << 18);

    const struct {
        const char *why;
        const char *pattern;
        const char *before; ///< the run of x's
        const char *after;
        long end; ///< of the match, which starts at the front; -1 for none
    } cases[] = {
        {"nested loops",                      "(x+x+)+y",      "y", "",  -1   },
        {"nested loops, nothing required",    "(x+x+)+(yy|z)", "",  "",  -1   },
        {"a run at every start",              "x*(yy|z)",      "",  "",  -1   },
        {"two runs",                          "x*x*(yy|z)",    "",  "z", whole},
        {"takes all and fails at the end",    "(a|x)*(yy|z)",  "",  "",  -1   },
        {"a long match of a group",           "(x|y)*z",       "",  "z", whole},
        {"two ways for each byte",            "(x|xx)*y",      "",  "",  -1   },
        {"two ways each time and a match",    "(x|xx)*[^x]",   "",  "-", whole},
        {"everything fits, but the last one", "(.|x)*.(yy|z)", "",  "",  -1   },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled(c.pattern);
        const std::string text = c.before + run + c.after;
        ASSERT_EQ(qz_regexec(program.get(), text.c_str()), c.end >= 0);
        if (c.end >= 0) {
            EXPECT_EQ(program->startp[0] - text.c_str(), 0);
            EXPECT_EQ(program->endp[0] - text.c_str(), c.end);
        }
    }
}

TEST_F(Regex, AMegabyteTakesLinearTimeToo)
{
    const Program nested = compiled("(x+x+)+(yy|z)");
    EXPECT_EQ(qz_regexec(nested.get(), std::string(30, 'x').c_str()), 0);
    EXPECT_EQ(qz_regexec(nested.get(), std::string(1 << 20, 'x').c_str()), 0);

    // So many ways are open at the end that remembering them takes too much memory.
    const Program open = compiled("(x|xx)*[^x]");
    const std::string text = std::string(1 << 20, 'x') + "-";
    ASSERT_EQ(qz_regexec(open.get(), text.c_str()), 1);
    EXPECT_EQ(open->startp[0], text.c_str());
    EXPECT_EQ(open->endp[0], text.c_str() + text.size());
}

TEST_F(Regex, LargeProgramOnALongText)
{
    const Program program = compiled(repeated("a?[ab]*", 200) + "(c|dd)");
    const std::string text(20000, 'a');
    EXPECT_EQ(qz_regexec(program.get(), text.c_str()), 0);
    const std::string ended = text + "c";
    ASSERT_EQ(qz_regexec(program.get(), ended.c_str()), 1);
    EXPECT_EQ(program->startp[0], ended.c_str());
}

} // namespace
