#include "tokens/token_test.h"

#include <cstdlib>

namespace {

std::string joined(int handle)
{
    char *line = qztoken_get_string(handle);
    std::string text = line != nullptr ? line : "(null)";
    std::free(line);
    return text;
}

TEST(Search, IndexAndIndexN)
{
    const List list{"abc", "ab", "", "ab", "xyz"};
    EXPECT_EQ(qztoken_index(list, "ab"), 1);
    EXPECT_EQ(qztoken_index(list, ""), 2);
    EXPECT_EQ(qztoken_index(list, "AB"), -1);
    EXPECT_EQ(qztoken_indexn(list, "abX", 2), 0);
    EXPECT_EQ(qztoken_indexn(list, "ab", 3), 1) << "the end of the text counts";
    EXPECT_EQ(qztoken_indexn(list, "xy", 2), 4);
    EXPECT_EQ(qztoken_indexn(list, "q", 0), 0) << "no character differs";
    EXPECT_EQ(qztoken_indexn(list, "xyzz", -1), -1) << "a negative number compares everything";
    EXPECT_EQ(qztoken_indexn(list, "xyz", -1), 4);
    EXPECT_EQ(qztoken_index(List(), ""), -1);
    EXPECT_EQ(qztoken_indexn(List(), "", 0), -1);
}

TEST(Edit, ReplaceAndCase)
{
    const List list("One TWO 3x\xc9");
    EXPECT_EQ(qztoken_replace(list, 1, qztoken_get_token(list, 0)), 0);
    EXPECT_EQ(qztoken_replace(list, 1, qztoken_get_token(list, 1) + 1), 0) << "by a part of itself";
    EXPECT_EQ(list.text(), "[One][ne][3x\xc9]");
    EXPECT_EQ(qztoken_toupper(list), 0);
    EXPECT_EQ(list.text(), "[ONE][NE][3X\xc9]");
    EXPECT_EQ(qztoken_tolower_token(list, 0), 3);
    EXPECT_EQ(qztoken_tolower_token(list, 2), 3);
    EXPECT_EQ(list.text(), "[one][NE][3x\xc9]");
    EXPECT_EQ(qztoken_tolower_token(List{""}, 0), 0);
}

TEST(Read, ATextStaysWhileOthersChange)
{
    const List list("a b c");
    const char *b = qztoken_get_token(list, 1);
    for (int i = 0; i < 1000; ++i)
        qztoken_add(list, "more");
    qztoken_replace(list, 0, "longer than before");
    qztoken_delete_token(list, 2);
    EXPECT_EQ(qztoken_get_token(list, 1), b);
    EXPECT_STREQ(b, "b");
}

TEST(Read, ANumberFollowsItsToken)
{
    const List list("1 2");
    const auto first = [&] {
        int value = -1;
        qztoken_get_int(list, 0, &value);
        return value;
    };
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(qztoken_get_int(list, 0, nullptr), 0) << "no place for the value";
    EXPECT_EQ(qztoken_get_double(list, 0, nullptr), 0);
    qztoken_replace(list, 0, "7");
    EXPECT_EQ(first(), 7);
    qztoken_delete_token(list, 0);
    EXPECT_EQ(first(), 2);
    qztoken_clear(list);
    EXPECT_EQ(first(), 0);
    qztoken_add(list, "5");
    EXPECT_EQ(first(), 5);
}

TEST(Join, QuotesWhatNeedsThem)
{
    const List list{"a", "b c", ""};
    EXPECT_EQ(joined(list), "a \"b c\" \"\"");
    EXPECT_EQ(qztoken_set_quoted_characters(list, "a\xff"), 0);
    EXPECT_EQ(qztoken_set_quoted_characters(list, nullptr), 0) << "changes nothing";
    qztoken_add(list, "\xff");
    EXPECT_EQ(joined(list), "\"a\" b c \"\" \"\xff\"");
    EXPECT_EQ(qztoken_set_quoted_characters(list, ""), 0);
    EXPECT_EQ(joined(list), "a b c \"\" \xff");
    qztoken_clear(list);
    EXPECT_EQ(joined(list), "");
    EXPECT_EQ(joined(List{""}), "\"\"");
}

} // namespace
