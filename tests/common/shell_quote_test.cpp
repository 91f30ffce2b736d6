#include "common/plain_quote.h"
#include "qzcommon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace {

using qz::test::plain_quote;

/// Quotes a copy in memory that ends with the result's NUL, so that a sanitizer sees a byte more.
int quote(std::string &text, int size)
{
    std::vector<char> memory(plain_quote(text + "x").size());
    std::copy(text.begin(), text.end(), memory.begin());
    const int result = qzcommon_prepare_str_for_shell(memory.data(), size);
    if (result != 0) {
        EXPECT_EQ(text, memory.data()) << "a failure changes nothing";
    }
    text = memory.data();
    return result;
}

struct QuoteCase {
    const char *why;
    std::string text;
    int size;
    const char *quoted; // null where quoting fails
};

const QuoteCase kQuotes[] = {
    {"behind the first character",       "abc",          100,     "a\"bc\""           },
    {"blanks",                           "a b c",        100,     "a\" b c\""         },
    {"a quote is escaped",               "x\"y",         100,     "x\"\\\"y\""        },
    {"a leading backslash is doubled",   "\\share\\dir", 100,     "\\\\\"share\\dir\""},
    {"a leading quote",                  "\"a\"",        100,     "\\\\\"\"a\\\"\""   },
    {"a lone quote counts as two",       "\"",           100,     "\\\\\"\"\""        },

    {"nothing",                          "",             100,     nullptr             },

    {"two more characters and no NUL",   "ab",           4,       "a\"b\""            },
    {"one less is refused",              "ab",           3,       nullptr             },
    {"three with a leading backslash",   "\\ab",         6,       "\\\\\"ab\""        },
    {"three more, one less",             "\\ab",         5,       nullptr             },
    {"size leaves out up to two quotes", "a\"b\"c",      7,       "a\"\\\"b\\\"c\""   },
    {"a third quote needs a character",  "a\"\"\"c",     7,       nullptr             },
    {"a third quote has it",             "a\"\"\"c",     8,       "a\"\\\"\\\"\\\"c\""},
    {"no size",                          "ab",           0,       nullptr             },
    {"a negative size",                  "ab",           INT_MIN, nullptr             },
    {"the largest size costs nothing",   "ab",           INT_MAX, "a\"b\""            },
};

TEST(ShellQuote, Cases)
{
    for (const QuoteCase &c : kQuotes) {
        SCOPED_TRACE(c.why);
        std::string text = c.text;
        EXPECT_EQ(quote(text, c.size), c.quoted == nullptr ? -1 : 0);
        EXPECT_EQ(text, c.quoted == nullptr ? c.text : c.quoted);
    }
    EXPECT_EQ(qzcommon_prepare_str_for_shell(nullptr, 100), -1);
}

TEST(ShellQuote, EveryShortText)
{
    const std::string letters = "a\"\\/ ";
    for (unsigned number = 1; number < 5 * 5 * 5 * 5 * 5; ++number) {
        std::string text;
        for (unsigned rest = number; rest != 0; rest = (rest - 1) / 5)
            text += letters[(rest - 1) % 5];
        SCOPED_TRACE(text);
        const bool fails = text == "a" || text == " " || text.back() == '/' || text.back() == '\\';
        std::string quoted = text;
        ASSERT_EQ(quote(quoted, 100), fails ? -1 : 0);
        if (!fails) {
            ASSERT_EQ(quoted, plain_quote(text));
        }
    }
}

} // namespace
