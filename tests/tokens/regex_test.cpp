// What a caller of the regular-expression calls sees.
#include "qzregex.h"
#include "tokens/token_test.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

std::string refusal(const char *reason)
{
    return "FATAL Error in regular expression: " + std::string(reason) + " \n";
}

struct Free {
    void operator()(qz_regexp *program) const { std::free(program); }
};

using Program = std::unique_ptr<qz_regexp, Free>;

Program compiled(const std::string &pattern)
{
    return Program(qz_regcomp(pattern.c_str()));
}

/// What is reported when @p pattern is refused.
std::string fault_of(const std::string &pattern)
{
    return messages_of([&] { EXPECT_EQ(compiled(pattern), nullptr); });
}

std::string repeated(const std::string &part, size_t count)
{
    std::string text;
    while (count-- > 0)
        text += part;
    return text;
}

// What short patterns show is compared with a slow matcher by another test.
TEST(Regex, RefusesPatternsWithTheReason)
{
    const struct {
        const char *why, *pattern, *reason;
    } cases[] = {
        {"ten groups",               "(a)(a)(a)(a)(a)(a)(a)(a)(a)(a)", "too many ()"              },
        {"ten, none closed",         "((((((((((",                     "too many ()"              },
        {"emptiness before nesting", "(a?)**",                         "*+ operand could be empty"},
        {"bytes have no sign",       "[\xff-a]",                       "invalid [] range"         },
        {"the first fault",          "[b-a](",                         "invalid [] range"         },
    };

    for (const auto &c : cases)
        EXPECT_EQ(fault_of(c.pattern), refusal(c.reason)) << c.why;
    EXPECT_EQ(messages_of([] { EXPECT_EQ(qz_regcomp(nullptr), nullptr); }),
              refusal("NULL argument"));
}

TEST(Regex, LimitsTheSize)
{
    EXPECT_NE(compiled(repeated("(a)", 9)), nullptr);
    EXPECT_NE(compiled(repeated("a", 32755)), nullptr);
    EXPECT_EQ(fault_of(repeated("a", 32756)), refusal("regexp too big"));
    EXPECT_EQ(fault_of(repeated("[\x01-\xff]", 127)), refusal("regexp too big"))
        << "a range counts in full";
    EXPECT_EQ(fault_of(repeated("a", 40000) + "("), refusal("unmatched ()"))
        << "the other fault is met first";
}

TEST(Regex, FindsTheSubMatches)
{
    const struct {
        const char *why, *pattern, *text;
        const char *expected; ///< the sub-matches between "|", "~" for none; nullptr for no match
    } cases[] = {
        {"versions of a product",      "^b-v[0-9]+(.[0-9]+)?$", "b-v12.3",       "|b-v12.3|.3"  },
        {"and others",                 "^b-v[0-9]+(.[0-9]+)?$", "b-v12.3x",      nullptr        },
        {"gives back one by one",      "(a*)(ab)*(b*)",         "aabb",          "|aabb|aa|~|bb"},
        {"the last repetition counts", "(a|b(c))*",             "bca",           "|bca|a|c"     },
        {"in a loop of one byte too",  "(a|b)*c",               "abac",          "|abac|a"      },
        {"unless the loop is undone",  "x(a|b)*cx|xab(.)",      "xabcy",         "|xabc|~|c"    },
        {"a dot is any byte",          "a.b",                   "a\nb",          "|a\nb"        },
        {"bracket first in a set",     "[]a]+",                 "x]a]",          "|]a]"         },
        {"range from a bracket",       "[]-a]+",                "[^_`a",         "|^_`a"        },
        {"range behind a range",       "[a-c-e]+",              "xdex",          "|de"          },
        {"special in a set",           "[.*\\]+",               "a\\*.",         "|\\*."        },
        {"escapes",                    "\\\\\\)\\a",            "(\\)a",         "|\\)a"        },
        {"bytes above 127",            "[\xc0-\xff]\x80+",      "a\xc3\x80\x80", "|\xc3\x80\x80"},
        {"above 127, not in a set",    "[^a-z]",                "ab\xff",        "|\xff"        },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled(c.pattern);
        ASSERT_NE(program, nullptr);
        const std::string pattern = c.pattern;
        const auto groups = std::count(pattern.begin(), pattern.end(), '(');
        std::string found;
        EXPECT_EQ(qz_regexec(program.get(), c.text), c.expected != nullptr);
        for (int i = 0; c.expected != nullptr && i <= groups; ++i)
            found += "|" + (program->startp[i] == nullptr
                                ? "~"
                                : std::string(program->startp[i], program->endp[i]));
        EXPECT_EQ(found, c.expected == nullptr ? "" : c.expected);
    }
}

TEST(Regex, KnowsHowAMatchStarts)
{
    const struct {
        const char *why, *pattern;
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

TEST(Regex, RefusesToRunWhatIsNoProgram)
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
        const auto run = [&] { EXPECT_EQ(qz_regexec(program.get(), "xaab"), c.reason == nullptr); };
        EXPECT_EQ(messages_of(run), c.reason == nullptr ? "" : refusal(c.reason));
    }
    const auto run = [] {
        EXPECT_EQ(qz_regexec(nullptr, "a"), 0);
        EXPECT_EQ(qz_regexec(compiled("a").get(), nullptr), 0);
    };
    EXPECT_EQ(messages_of(run), refusal("NULL parameter") + refusal("NULL parameter"));
}

// Each of these takes minutes to hours when ways are tried again that have failed before.
TEST(Regex, LongTextsTakeLinearTime)
{
    constexpr size_t k = 1024;
    const std::string groups = "((((((((x|xx))))))))*[^x]";
    const std::string large = repeated("x?[xy]*", 200) + "(yy|z)";

    const struct {
        const char *why;
        std::string pattern;
        const char *before;
        size_t run; ///< number of x's
        const char *after;
        bool matches; ///< all of the text
    } cases[] = {
        {"nested loops",                      "(x+x+)+y",      "y", 256 * k, "",  false},
        {"nested loops, nothing required",    "(x+x+)+(yy|z)", "",  256 * k, "",  false},
        {"a run at every start",              "x*(yy|z)",      "",  256 * k, "",  false},
        {"two runs",                          "x*x*(yy|z)",    "",  256 * k, "z", true },
        {"takes all and fails at the end",    "(a|x)*(yy|z)",  "",  256 * k, "",  false},
        {"a long match of a group",           "(x|y)*z",       "",  256 * k, "z", true },
        {"two ways for each byte",            "(x|xx)*y",      "",  64 * k,  "",  false},
        {"two ways each time and a match",    "(x|xx)*[^x]",   "",  64 * k,  "-", true },
        {"everything fits, but the last one", "(.|x)*.(yy|z)", "",  64 * k,  "",  false},
        {"more open ways than one remembers", groups,          "",  64 * k,  "-", true },
        {"a large program",                   large,           "",  2 * k,   "",  false},
        {"a large program and a match",       large,           "",  2 * k,   "z", true },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Program program = compiled(c.pattern);
        const std::string text = c.before + std::string(c.run, 'x') + c.after;
        ASSERT_EQ(qz_regexec(program.get(), text.c_str()), c.matches);
        if (c.matches) {
            EXPECT_EQ(program->startp[0], text.data());
            EXPECT_EQ(program->endp[0], text.data() + text.size());
        }
    }
}

} // namespace
