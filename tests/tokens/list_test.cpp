#include "tokens/token_test.h"

#include <climits>
#include <cstdlib>
#include <vector>

TEST(Handles, TheHighestFreeOneIsUsedFirst)
{
    const auto make = [] {
        int handle = -1;
        qztoken_new(&handle, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        return handle;
    };
    int made[6];
    for (int &handle : made)
        handle = make();
    for (int i : {1, 0, 4, 2})
        EXPECT_EQ(qztoken_delete(made[i]), 0);
    for (int i : {4, 2, 1, 0})
        EXPECT_EQ(make(), made[i]);
    EXPECT_EQ(make(), made[5] + 1) << "only a full table grows";
    qztoken_delete(made[5] + 1);
    for (int handle : made)
        qztoken_delete(handle);
}

TEST(Handles, NoListNoHandle)
{
    int handle = 0;
    {
        const List list;
        handle = list;
        EXPECT_TRUE(qztoken_in_use(handle));
    }
    EXPECT_EQ(messages_of([=] {
                  for (int bad : {handle, -1, INT_MIN, INT_MAX})
                      EXPECT_FALSE(qztoken_in_use(bad)) << bad;
              }),
              "");
    EXPECT_EQ(qztoken_new(nullptr, "a", nullptr, nullptr, nullptr, nullptr, nullptr), -1);
    EXPECT_EQ(qztoken_initialize(), 0);
    EXPECT_EQ(qztoken_terminate(), 0);
}

TEST(Handles, ANewListRemembersNothingOfTheOneBefore)
{
    int first = 0;
    {
        const List list{"a*"};
        first = list;
        qztoken_set_quoted_characters(list, "a");
        qztoken_regex_compile(list);
    }
    const List list;
    ASSERT_EQ(static_cast<int>(list), first);
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(qztoken_regex_index(list, "a"), -1); }), "");
    qztoken_add(list, "a");
    char *line = qztoken_get_string(list);
    EXPECT_STREQ(line, "a");
    std::free(line);
}

TEST(AddN, Table)
{
    const struct {
        const char *why, *text;
        int width, left, offset;
        const char *token;
    } cases[] = {
        {"right-justified",                           "ab",     5,       0,  0,       "[   ab]" },
        {"left-justified",                            "ab",     5,       1,  0,       "[ab   ]" },
        {"any flag but zero means left",              "ab",     5,       -7, 0,       "[ab   ]" },
        {"the left flag outweighs the offset",        "ab",     5,       1,  2,       "[ab   ]" },
        {"at the offset",                             "ab",     5,       0,  1,       "[ ab  ]" },
        {"the last offset that fits",                 "ab",     5,       0,  3,       "[   ab]" },
        {"a long text is not cut to the width",       "abcdef", 3,       0,  0,       "[abcdef]"},
        {"no width",                                  "abc",    0,       0,  0,       "[abc]"   },
        {"a negative width",                          "abc",    INT_MIN, 0,  0,       "[abc]"   },
        {"an empty text",                             "",       3,       0,  0,       "[   ]"   },
        {"cut at the right end",                      "ab",     5,       0,  4,       "[    a]" },
        {"just outside",                              "ab",     5,       0,  5,       "[     ]" },
        {"far outside",                               "ab",     5,       0,  INT_MAX, "[     ]" },
        {"an offset in a field of the text's length", "abc",    0,       0,  1,       "[ ab]"   },
        {"a negative offset cuts the front",          "abc",    5,       0,  -1,      "[bc   ]" },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const std::string token = c.token;
        const List source{c.text};
        const List target{"old"};
        EXPECT_EQ(qztoken_addn(target, c.text, c.width, c.left, c.offset), 0);
        EXPECT_EQ(qztoken_mergen(target, source, c.width, c.left, c.offset), 0);
        EXPECT_EQ(target.text(), "[old]" + token + token);
        EXPECT_EQ(qztoken_copyn(target, source, c.width, c.left, c.offset), 0);
        EXPECT_EQ(target.text(), token);
    }
}

TEST(Lists, AddDeleteClear)
{
    const List list("a 'b c' d", {nullptr, "''"});
    EXPECT_EQ(qztoken_add(list, nullptr), 0);
    EXPECT_EQ(qztoken_addn(list, nullptr, 5, 0, 0), 0);
    EXPECT_EQ(qztoken_add(list, ""), 0);
    EXPECT_EQ(qztoken_add(list, qztoken_get_token(list, 1)), 0) << "a text of the list itself";
    EXPECT_EQ(list.text(), "[a][b c][d][][b c]");
    for (int index : {1, 3, 0})
        EXPECT_EQ(qztoken_delete_token(list, index), 0);
    EXPECT_EQ(list.text(), "[d][]");
    EXPECT_EQ(qztoken_num(list), 2);
    EXPECT_EQ(qztoken_clear(list), 0);
    EXPECT_EQ(qztoken_num(list), 0);
    EXPECT_TRUE(qztoken_in_use(list));
    for (int i = 0; i < 50; ++i)
        qztoken_add(list, std::to_string(i).c_str());
    EXPECT_EQ(qztoken_num(list), 50);
    EXPECT_STREQ(qztoken_get_token(list, 49), "49");
}

TEST(Lists, CopyAndMerge)
{
    const List source("x y z");
    const List list{"a", "b"};
    EXPECT_EQ(qztoken_merge(list, source), 0);
    EXPECT_EQ(list.text(), "[a][b][x][y][z]");
    EXPECT_EQ(qztoken_copy(list, source), 0);
    EXPECT_EQ(list.text(), "[x][y][z]");
    qztoken_replace(source, 0, "changed");
    EXPECT_EQ(list.text(), "[x][y][z]") << "a copy of its own";
}

TEST(Lists, OneListAsSourceAndDestination)
{
    const List list("a b");
    EXPECT_EQ(qztoken_merge(list, list), 0);
    EXPECT_EQ(list.text(), "[a][b][a][b]");
    EXPECT_EQ(qztoken_mergen(list, list, 2, 0, 0), 0);
    EXPECT_EQ(list.text(), "[a][b][a][b][ a][ b][ a][ b]");
    EXPECT_EQ(qztoken_copy(list, list), 0) << "cleared first, it has nothing to copy";
    EXPECT_EQ(qztoken_num(list), 0);
}
