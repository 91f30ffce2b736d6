// Every fault of the token calls: the result and the message, letter for letter.

#include "tokens/token_test.h"

#include <climits>

namespace {

int value_int;
double value_double;

int is_null(const void *pointer)
{
    return pointer == nullptr ? -1 : 0;
}

// clang-format off
struct Fault {
    const char *call;   ///< as the message names it
    const char *what;   ///< is bad
    std::size_t indent; ///< of the second line; 0 for none
    int result;         ///< 1 is that of the throw
    int (*with)(int list, int bad);
};

const Fault kFaults[] = {
    {"add", "tok ", 0, -1, [](int, int bad) { return qztoken_add(bad, nullptr); }},
    {"add", "tok ", 0, -1, [](int, int bad) { return qztoken_addn(bad, "x", 1, 0, 0); }},
    {"clear", "tok ", 0, -1, [](int, int bad) { return qztoken_clear(bad); }},
    {"delete", "tok ", 0, -1, [](int, int bad) { return qztoken_delete(bad); }},
    {"delete_token", "tok ", 0, -1, [](int, int bad) { return qztoken_delete_token(bad, 0); }},
    {"num", "tok ", 0, -1, [](int, int bad) { return qztoken_num(bad); }},
    {"set_quoted_characters", "tok ", 0, 1,
     [](int, int bad) { return qztoken_set_quoted_characters(bad, "x"); }},
    {"copy", "dest ", 0, -1, [](int list, int bad) { return qztoken_copy(bad, list); }},
    {"copy", "dest ", 0, -1, [](int, int bad) { return qztoken_copy(bad, bad); }},
    {"copy", "source ", 0, -1, [](int list, int bad) { return qztoken_copy(list, bad); }},
    {"copy", "dest ", 0, -1, [](int list, int bad) { return qztoken_copyn(bad, list, 1, 0, 0); }},
    {"copy", "source ", 0, -1, [](int list, int bad) { return qztoken_copyn(list, bad, 1, 0, 0); }},
    {"merge", "dest ", 0, -1, [](int list, int bad) { return qztoken_merge(bad, list); }},
    {"merge", "source ", 0, -1, [](int list, int bad) { return qztoken_merge(list, bad); }},
    {"mergen", "dest ", 0, -1, [](int list, int bad) { return qztoken_mergen(bad, list, 1, 0, 0); }},
    {"mergen", "source ", 0, -1, [](int list, int bad) { return qztoken_mergen(list, bad, 1, 0, 0); }},
    {"find_type", "tok ", 0, -1, [](int, int bad) { return qztoken_find_type(bad, 0); }},
    {"get_token", "tok ", 0, -1, [](int, int bad) { return is_null(qztoken_get_token(bad, 0)); }},
    {"get_int", "tok ", 0, -1, [](int, int bad) { return qztoken_get_int(bad, 0, &value_int); }},
    {"get_double", "tok ", 0, -1,
     [](int, int bad) { return qztoken_get_double(bad, 0, &value_double); }},
    {"index", "tok ", 0, -1, [](int, int bad) { return qztoken_index(bad, "a"); }},
    {"indexn", "tok ", 0, -1, [](int, int bad) { return qztoken_indexn(bad, "a", 1); }},
    {"replace", "tok ", 0, -1, [](int, int bad) { return qztoken_replace(bad, 0, "x"); }},
    {"tolower_token", "tok ", 0, 1, [](int, int bad) { return qztoken_tolower_token(bad, 0); }},
    {"toupper", "tok ", 0, -1, [](int, int bad) { return qztoken_toupper(bad); }},
    {"get_string", "tok ", 0, -1, [](int, int bad) { return is_null(qztoken_get_string(bad)); }},
    {"regex_compile", "tok ", 0, -1, [](int, int bad) { return qztoken_regex_compile(bad); }},
    {"delete_token", "", 22, -1, qztoken_delete_token},
    {"find_type", "", 21, -1, qztoken_find_type},
    {"get_token", "", 17, -1, [](int list, int bad) { return is_null(qztoken_get_token(list, bad)); }},
    {"get_int", "", 17, -1, [](int list, int bad) { return qztoken_get_int(list, bad, &value_int); }},
    {"get_double", "", 17, -1,
     [](int list, int bad) { return qztoken_get_double(list, bad, &value_double); }},
    {"replace", "", 17, -1, [](int list, int bad) { return qztoken_replace(list, bad, "x"); }},
    {"tolower_token", "", 17, 1, qztoken_tolower_token},
};

/// What fails without a message.
struct SilentFault {
    const char *call;
    int (*with)(int list);
};

const SilentFault kSilentFaults[] = {
    {"get_int", [](int list) { return qztoken_get_int(list, 0, &value_int); }},
    {"get_double", [](int list) { return qztoken_get_double(list, 0, &value_double); }},
    {"index", [](int list) { return qztoken_index(list, "x"); }},
    {"index of no text", [](int list) { return qztoken_index(list, nullptr); }},
    {"indexn of no text", [](int list) { return qztoken_indexn(list, nullptr, 1); }},
    {"replace by no text", [](int list) { return qztoken_replace(list, 0, nullptr); }},
};

// clang-format on

/// @p call gets a list of the three tokens a, b, c.
template <typename Call>
void expect_fault(const std::string &name, Call call, int result, const std::string &messages)
{
    SCOPED_TRACE(name);
    const List list{"a", "b", "c"};
    value_int = 7;
    value_double = 7.0;
    EXPECT_EQ(messages_of([&] { EXPECT_EQ(call(list), result); }), messages);
    EXPECT_EQ(list.text(), "[a][b][c]") << "a fault changes nothing";
    EXPECT_EQ(value_int, name == "get_int" ? 0 : 7);
    EXPECT_EQ(value_double, name == "get_double" ? 0.0 : 7.0);
}

TEST(Messages, EveryFault)
{
    for (const Fault &fault : kFaults) {
        for (int bad : {9999, -1, INT_MIN}) {
            std::string messages = "WARNING qztoken_" + std::string(fault.call) + "(): bad " +
                                   fault.what + "index = " + std::to_string(bad) + " \n";
            if (fault.indent != 0)
                messages +=
                    "WARNING " + std::string(fault.indent, ' ') + ":  only 3 tokens in list\n";
            const auto call = [&](int list) { return fault.with(list, bad); };
            expect_fault(fault.call, call, fault.result, messages);
        }
    }
    const auto regex_index = [](int) { return qztoken_regex_index(9999, "a"); };
    expect_fault("regex_index", regex_index, -1,
                 "WARNING qztoken_regex_index():bad tok index = 9999\n");
    for (const SilentFault &fault : kSilentFaults)
        expect_fault(fault.call, fault.with, -1, "");
}

} // namespace
