#include "errors/message_sink.h"
#include "qzerr.hpp"
#include "qzfortran.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// A CHARACTER variable between two bytes that nobody should touch without a reason.
struct Variable {
    Variable(const std::string &text, int declared) : memory("<" + text), length(declared)
    {
        memory.resize(static_cast<std::size_t>(declared) + 1, ' ');
        memory += '>';
    }

    char *start() { return &memory[1]; }

    std::string memory;
    int length;
};

const std::string kNul(1, '\0');
const std::string k18(18, 'x');
const std::string k19(19, 'x');
const std::string k79(79, 'y');
const std::string k19Blanks(19, ' ');
const std::string k75Blanks(75, ' ');

TEST(ErrorEntries, Prefix)
{
    const std::string nuls = "MYPROG" + kNul + " " + kNul;

    const struct {
        const char *why;
        std::string text;
        int declared;
        std::string prefix;
        char before;
    } cases[] = {
        {"one blank is kept",                   "MYPROG",         20, "MYPROG ",    '<' },
        {"NULs count as blanks",                nuls,             20, "MYPROG ",    '<' },
        {"blanks inside are text",              " MY  PROG",      20, " MY  PROG ", '<' },
        {"18 leave room for the blank",         k18,              20, k18 + " ",    '<' },
        {"19 do not",                           k19,              20, k19,          '<' },
        {"the rest is cut off",                 k19 + "xxx",      30, k19,          '<' },
        {"text behind a NUL is not seen",       "A" + kNul + "B", 20, "A",          '<' },
        {"a blank one marks the byte in front", "",               20, k19Blanks,    '\0'},
        {"a literal is not written to",         "MYPROG",         6,  "MYPROG ",    '<' },
        {"a blank literal as well",             " ",              1,  " ",          '<' },
        {"and an empty text",                   "",               0,  "",           '<' },
    };

    int status = -9;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const MessageSink sink;
        Variable variable(c.text, c.declared);
        int id = sink.id();
        QZERRF_PREFIX(&id, variable.start(), &status, variable.length);
        EXPECT_EQ(status, 1);
        EXPECT_EQ(variable.memory.front(), c.before);
        EXPECT_EQ(variable.memory.back(), '>');
        qzerr_throw(id, QZERR_FATAL, "x");
        EXPECT_EQ(sink.text(), c.prefix + "FATAL x");
    }
    int no_handler = 99;
    Variable variable("MYPROG", 20);
    QZERRF_PREFIX(&no_handler, variable.start(), &status, variable.length);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(variable.memory, "<MYPROG " + kNul + std::string(11, ' ') + kNul + ">");
}

TEST(ErrorEntries, ReturnCode)
{
    const struct {
        const char *why;
        int level;
        int declared;
        const char *code;
    } cases[] = {
        {"blanks fill the rest",                  4,  20, "QZERR_WARNING       "    },
        {"cut to 20",                             7,  20, "QZERR_LEVEL UNDEFINE"    },
        {"beyond 20 nothing is written",          0,  24, "QZERR_BUMMER        ...."},
        {"a short variable keeps its neighbours", 5,  8,  "QZERR_FA"                },
        {"levels are unsigned",                   -1, 20, "(bogus QZERR level) "    },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Variable variable("........................", c.declared);
        int level = c.level;
        QZERRF_RETURN_CODE(&level, variable.start(), variable.length);
        EXPECT_EQ(variable.memory, "<" + std::string(c.code) + ">");
    }
}

TEST(ErrorEntries, Throw)
{
    const struct {
        const char *why;
        std::string text;
        int declared;
        std::string written;
    } cases[] = {
        {"blanks at the end are kept",             "mesh",          80,  "mesh" + k75Blanks},
        {"a NUL ends the text",                    "mesh" + kNul,   80,  "mesh"            },
        {"cut to 79",                              k79 + "y",       80,  k79               },
        {"however long the variable",              k79 + k79,       200, k79               },
        {"the text is a format",                   "100 %%" + kNul, 80,  "100 %"           },
        {"a literal is short, and not written to", "mesh",          4,   "mesh"            },
        {"and an empty text",                      "",              0,   ""                },
    };

    int level = QZERR_FATAL;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const MessageSink sink;
        Variable variable(c.text, c.declared);
        int id = sink.id();
        int status = -9;
        QZERRF_THROW(&id, &level, variable.start(), &status, variable.length);
        EXPECT_EQ(status, 1);
        EXPECT_EQ(variable.memory.back(), '>');
        qzerr_throw(id, QZERR_FATAL, "no line break");
        EXPECT_EQ(sink.text(), "FATAL " + c.written + "\nFATAL no line break");
    }
}

TEST(ErrorEntries, NoHandler)
{
    int id = 99;
    int value = 1;
    for (const auto entry : {QZERRF_LEVEL, QZERRF_MAXLEVEL, QZERRF_FILE}) {
        int status = -9;
        entry(&id, &value, &status);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(value, 1) << "nothing stored";
    }
}

} // namespace
