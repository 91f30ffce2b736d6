// Every fault of the token calls: the result and the message, letter for letter.

#include "tokens/token_test.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Fault {
    const char *why;
    int result;
    int (*call)(int list);
    const char *messages;
};

int is_null(const void *pointer)
{
    return pointer == nullptr ? -1 : 0;
}

int value_int = 7;
double value_double = 7.0;

// clang-format off
/// Each row gets a list of the three tokens a, b, c; handle 9999 is none.
const Fault kFaults[] = {
    {"add", -1, [](int) { return qztoken_add(9999, "x"); },
     "WARNING qztoken_add(): bad tok index = 9999 \n"},
    {"add null", -1, [](int) { return qztoken_add(-1, nullptr); },
     "WARNING qztoken_add(): bad tok index = -1 \n"},
    {"addn names add", -1, [](int) { return qztoken_addn(9999, "x", 1, 0, 0); },
     "WARNING qztoken_add(): bad tok index = 9999 \n"},
    {"clear", -1, [](int) { return qztoken_clear(9999); },
     "WARNING qztoken_clear(): bad tok index = 9999 \n"},
    {"delete", -1, [](int) { return qztoken_delete(9999); },
     "WARNING qztoken_delete(): bad tok index = 9999 \n"},
    {"delete_token, list", -1, [](int) { return qztoken_delete_token(9999, 0); },
     "WARNING qztoken_delete_token(): bad tok index = 9999 \n"},
    {"delete_token, index", -1, [](int h) { return qztoken_delete_token(h, 3); },
     "WARNING qztoken_delete_token(): bad index = 3 \n"
     "WARNING                       :  only 3 tokens in list\n"},
    {"num", -1, [](int) { return qztoken_num(-1); },
     "WARNING qztoken_num(): bad tok index = -1 \n"},
    {"set_quoted_characters has the throw's result", 1,
 [](int) { return qztoken_set_quoted_characters(9999, "x"); },
     "WARNING qztoken_set_quoted_characters(): bad tok index = 9999 \n"},
    {"copy, destination", -1, [](int h) { return qztoken_copy(9999, h); },
     "WARNING qztoken_copy(): bad dest index = 9999 \n"},
    {"copy, source", -1, [](int h) { return qztoken_copy(h, 9999); },
     "WARNING qztoken_copy(): bad source index = 9999 \n"},
    {"copy, both", -1, [](int) { return qztoken_copy(-1, -2); },
     "WARNING qztoken_copy(): bad dest index = -1 \n"},
    {"copyn names copy, destination", -1, [](int h) { return qztoken_copyn(9999, h, 1, 0, 0); },
     "WARNING qztoken_copy(): bad dest index = 9999 \n"},
    {"copyn names copy, source", -1, [](int h) { return qztoken_copyn(h, 9999, 1, 0, 0); },
     "WARNING qztoken_copy(): bad source index = 9999 \n"},
    {"find_type, list", -1, [](int) { return qztoken_find_type(9999, 0); },
     "WARNING qztoken_find_type(): bad tok index = 9999 \n"},
    {"find_type, index: one indentation of its own", -1,
 [](int h) { return qztoken_find_type(h, -1); },
     "WARNING qztoken_find_type(): bad index = -1 \n"
     "WARNING                      :  only 3 tokens in list\n"},
    {"get_token, list", -1, [](int) { return is_null(qztoken_get_token(9999, 0)); },
     "WARNING qztoken_get_token(): bad tok index = 9999 \n"},
    {"get_token, index", -1, [](int h) { return is_null(qztoken_get_token(h, 3)); },
     "WARNING qztoken_get_token(): bad index = 3 \n"
     "WARNING                  :  only 3 tokens in list\n"},
    {"get_int, list", -1, [](int) { return qztoken_get_int(9999, 0, &value_int); },
     "WARNING qztoken_get_int(): bad tok index = 9999 \n"},
    {"get_int, index", -1, [](int h) { return qztoken_get_int(h, 3, &value_int); },
     "WARNING qztoken_get_int(): bad index = 3 \n"
     "WARNING                  :  only 3 tokens in list\n"},
    {"get_int of no integer is no fault to report", -1,
 [](int h) { return qztoken_get_int(h, 0, &value_int); }, ""},
    {"get_double, list", -1, [](int) { return qztoken_get_double(9999, 0, &value_double); },
     "WARNING qztoken_get_double(): bad tok index = 9999 \n"},
    {"get_double, index", -1, [](int h) { return qztoken_get_double(h, 3, &value_double); },
     "WARNING qztoken_get_double(): bad index = 3 \n"
     "WARNING                  :  only 3 tokens in list\n"},
    {"get_double of no number", -1, [](int h) { return qztoken_get_double(h, 0, &value_double); },
 ""},
    {"index, list", -1, [](int) { return qztoken_index(9999, "a"); },
     "WARNING qztoken_index(): bad tok index = 9999 \n"},
    {"index of an absent text", -1, [](int h) { return qztoken_index(h, "x"); }, ""},
    {"index of no text", -1, [](int h) { return qztoken_index(h, nullptr); }, ""},
    {"indexn, list", -1, [](int) { return qztoken_indexn(9999, "a", 1); },
     "WARNING qztoken_indexn(): bad tok index = 9999 \n"},
    {"indexn of no text", -1, [](int h) { return qztoken_indexn(h, nullptr, 1); }, ""},
    {"merge, destination", -1, [](int h) { return qztoken_merge(9999, h); },
     "WARNING qztoken_merge(): bad dest index = 9999 \n"},
    {"merge, source", -1, [](int h) { return qztoken_merge(h, 9999); },
     "WARNING qztoken_merge(): bad source index = 9999 \n"},
    {"mergen, destination", -1, [](int h) { return qztoken_mergen(9999, h, 1, 0, 0); },
     "WARNING qztoken_mergen(): bad dest index = 9999 \n"},
    {"mergen, source", -1, [](int h) { return qztoken_mergen(h, 9999, 1, 0, 0); },
     "WARNING qztoken_mergen(): bad source index = 9999 \n"},
    {"replace, list", -1, [](int) { return qztoken_replace(9999, 0, "x"); },
     "WARNING qztoken_replace(): bad tok index = 9999 \n"},
    {"replace, index", -1, [](int h) { return qztoken_replace(h, 3, "x"); },
     "WARNING qztoken_replace(): bad index = 3 \n"
     "WARNING                  :  only 3 tokens in list\n"},
    {"replace by no text", -1, [](int h) { return qztoken_replace(h, 0, nullptr); }, ""},
    {"tolower_token has the throw's result, list", 1,
 [](int) { return qztoken_tolower_token(9999, 0); },
     "WARNING qztoken_tolower_token(): bad tok index = 9999 \n"},
    {"tolower_token has the throw's result, index", 1,
 [](int h) { return qztoken_tolower_token(h, 3); },
     "WARNING qztoken_tolower_token(): bad index = 3 \n"
     "WARNING                  :  only 3 tokens in list\n"},
    {"toupper", -1, [](int) { return qztoken_toupper(9999); },
     "WARNING qztoken_toupper(): bad tok index = 9999 \n"},
    {"get_string", -1, [](int) { return is_null(qztoken_get_string(9999)); },
     "WARNING qztoken_get_string(): bad tok index = 9999 \n"},
};

// clang-format on

TEST(Messages, EveryFault)
{
    for (const Fault &fault : kFaults) {
        SCOPED_TRACE(fault.why);
        const List list{"a", "b", "c"};
        value_int = 7;
        value_double = 7.0;
        EXPECT_EQ(messages_of([&] { EXPECT_EQ(fault.call(list), fault.result); }), fault.messages);
        EXPECT_EQ(list.text(), "[a][b][c]") << "a fault changes nothing";
        const std::string call = fault.why;
        EXPECT_EQ(value_int, call.rfind("get_int", 0) == 0 ? 0 : 7);
        EXPECT_EQ(value_double, call.rfind("get_double", 0) == 0 ? 0.0 : 7.0);
    }
}

} // namespace
