#include "tools/program.h"

using namespace program;

const Case kTokens[] = {
    {"tokens 'a, b,,c'",                   0,
     "   1    0  text     a\n"
     "   1    1  text     b\n"
     "   1    2  text     c\n",                                              "",            nullptr        },
    {"tokens",                             0,
     "   1    0  integer  +-5\n"
     "   2    0  real     1e5\n"
     "   2    1  text     0x10\n",                                           "",            "+-5\n1e5 0x10"},
    {"tokens -w -s ;",                     0, "   1    0  text     a\\nb\n", "",            "a\nb;"        },
    {"tokens -p () -c # -e ! ab(c,d)!##x", 0, "   1    0  text     abc,d\n", "",            nullptr        },
    {"tokens --singles = x=1",             0,
     "   1    0  text     x\n"
     "   1    1  text     =\n"
     "   1    2  integer  1\n",                                              "",            nullptr        },
    {"tokens -s '' 'a b'",                 0, "   1    0  text     a b\n",   "",            nullptr        },
    {"tokens {} [x,y]",                    0,
     "   1    0  text     {}\n"
     "   2    0  text     [x\n"
     "   2    1  text     y]\n",                                             "",            nullptr        },
    {"tokens -p ( x",                      1, "",                            "even number", nullptr        },
    {"tokens -p () ab(c",                  1, "   1    0  text     abc\n",   "unmatched",   nullptr        },
    {"tokens",                             0, "",                            "",            nullptr        },
};

const Case kMatches[] = {
    {"match a?c* #",          0,  "abcd\n7x\n",                           "",                    "abcd\nac\n7x\n"},
    {"match -n #.# [ab]",     0,  "1 b\n0 3.5\n",                         "",                    "b\n3x5\n3.5"   },
    {"match x",               1,  "",                                     "",                    "abc\n"         },
    {"match -E '(a)(b)?(c)'", 0,
     "xac\n    0  1-3  ac\n    1  1-2  a\n    2  unset\n    3  2-3  c\n", "",                    "xac\nb\n"      },
    {"match -E ^$ -n",        0,  "0 \n    0  0-0  \n",                   "",                    "a\n\n"         },
    {"match -E (a ok",        64, "",                                     "unmatched ()",        "ok"            },
    {"match (a",              64, "",                                     "unmatched ()",        ""              },
    {"match",                 64, "",                                     "pattern is required", nullptr         },
};

TEST(Text, Tokens)
{
    expect_all(kTokens);
    const QJsonDocument lines = json("tokens 'a -2 .5' b");
    EXPECT_EQ(lines[0][1]["value"].toInt(), -2);
    EXPECT_EQ(lines[0][2]["value"].toDouble(), .5);
    EXPECT_TRUE(lines[0][0]["value"].isUndefined());
    EXPECT_EQ(lines[1][0]["token"].toString(), QStringLiteral("b"));
}

TEST(Text, Match)
{
    expect_all(kMatches);
    const QJsonDocument lines = json("match -E x '(a)|(b)'", "-b\n");
    EXPECT_EQ(lines[0]["pattern"].toInt(), 1);
    EXPECT_TRUE(lines[0]["matches"][1].isNull());
    EXPECT_EQ(lines[0]["matches"][2]["from"].toInt(), 1);
}
