// What happens when memory runs out. The program's allocations go through functions of which a
// chosen one fails.

#include "failing_memory.h"
#include "qzregex.h"
#include "tokens/token_test.h"

#include <cstdlib>

namespace {

qz::test::Countdown malloc_fault;

/// What is reported while the @p call th allocation of @p action fails.
template <typename Action> std::string messages_without_memory(int call, Action action)
{
    return messages_of([&] {
        qz::test::new_fault.calls = call;
        action();
        qz::test::new_fault.calls = 0;
    });
}

class Memory : public testing::Test {
protected:
    // The handle table has room for a list when a test starts.
    Memory() { List warm_up; }
};

} // namespace

extern "C" void *__real_malloc(std::size_t size);
extern "C" void *__wrap_malloc(std::size_t size);

extern "C" void *__wrap_malloc(std::size_t size)
{
    return malloc_fault.is_over() ? nullptr : __real_malloc(size);
}

TEST_F(Memory, NoneForTheTokensOfALine)
{
    const struct {
        int call;
        const char *first; ///< of the tokens; null for none
        const char *message;
    } cases[] = {
  // The list is there; or the block and the first slots too.
        {2, nullptr, "FATAL qztoken_new(): failed to allocate memory for the token.\n"},
        {4, "a",     "FATAL qztoken_add(): can't expand list \n"                      },
    };

    for (const auto &c : cases) {
        int handle = -1;
        const auto make = [&handle] {
            EXPECT_EQ(qztoken_new(&handle, "a b c d e f g h i j k l m n o p q r s t u v", nullptr,
                                  nullptr, nullptr, nullptr, nullptr),
                      0);
        };
        EXPECT_EQ(messages_without_memory(c.call, make), c.message);
        EXPECT_EQ(qztoken_num(handle) > 0, c.first != nullptr);
        if (c.first != nullptr) {
            EXPECT_STREQ(qztoken_get_token(handle, 0), c.first);
        }
        qztoken_delete(handle);
    }
}

TEST_F(Memory, NoneForAnAddedToken)
{
    for (int call : {1, 2}) {
        const List list;
        EXPECT_EQ(messages_without_memory(call, [&] { EXPECT_EQ(qztoken_add(list, "a"), -1); }),
                  "FATAL qztoken_add(): can't expand list \n");
        EXPECT_EQ(qztoken_num(list), 0);
        EXPECT_EQ(qztoken_add(list, "a"), 0);
    }
}

TEST_F(Memory, NoneForTheJoinedLine)
{
    const List list{"a", "b"};
    const auto join = [&list] { EXPECT_EQ(qztoken_get_string(list), nullptr); };
    EXPECT_EQ(messages_without_memory(1, join),
              "FATAL qztoken_get_string(): can't allocate need_quotes array\n");
    malloc_fault.calls = 2; // the first is for the array
    EXPECT_EQ(messages_of(join), "FATAL qztoken_get_string(): can't allocate string\n");
    malloc_fault.calls = 0;
}

TEST_F(Memory, NoneForAPattern)
{
    EXPECT_EQ(messages_without_memory(1, [] { EXPECT_EQ(qz_regcomp("a"), nullptr); }),
              "FATAL Error in regular expression: out of space \n");
}
