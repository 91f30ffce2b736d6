// What happens when memory runs out. The program's allocations go through the functions below, of
// which a chosen one fails.

#include "tokens/token_test.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

constexpr int kNever = -1;

/// How many allocations succeed before the next one fails.
int news_left = kNever;
int mallocs_left = kNever;

bool fails_now(int &left)
{
    return left != kNever && left-- == 0;
}

struct FailingNew {
    explicit FailingNew(int successes) { news_left = successes; }

    ~FailingNew() { news_left = kNever; }
};

} // namespace

extern "C" void *__real_malloc(std::size_t size);
extern "C" void *__wrap_malloc(std::size_t size);

extern "C" void *__wrap_malloc(std::size_t size)
{
    return fails_now(mallocs_left) ? nullptr : __real_malloc(size);
}

// Every form is replaced: a sanitizer brings forms of its own for those that are not.
void *operator new(std::size_t size)
{
    void *memory = fails_now(news_left) ? nullptr : std::malloc(size != 0 ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void *operator new[](std::size_t size)
{
    return operator new(size);
}

void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    try {
        return operator new(size);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

class Memory : public testing::Test {
protected:
    // The handle table has room for a list when a test starts.
    Memory() { List warm_up; }
};

TEST_F(Memory, NoneForTheTokensOfALine)
{
    const char *const no_block = "FATAL qztoken_new(): failed to allocate memory for the token.\n";
    const char *const no_slots = "FATAL qztoken_add(): can't expand list \n";

    const struct {
        int successes;
        const char *first; ///< of the tokens; null for none
        const char *message;
    } cases[] = {
        {1, nullptr, no_block}, // the list
        {3, "a",     no_slots}, // the block and the first slots too
    };

    for (const auto &c : cases) {
        int handle = -1;
        EXPECT_EQ(messages_of([&] {
                      const FailingNew failing(c.successes);
                      EXPECT_EQ(qztoken_new(&handle, "a b c d e f g h i j k l m n o p q r s t u v",
                                            nullptr, nullptr, nullptr, nullptr, nullptr),
                                0);
                  }),
                  c.message);
        EXPECT_EQ(qztoken_num(handle) > 0, c.first != nullptr);
        if (c.first != nullptr) {
            EXPECT_STREQ(qztoken_get_token(handle, 0), c.first);
        }
        qztoken_delete(handle);
    }
}

TEST_F(Memory, NoneForAnAddedToken)
{
    for (int successes : {0, 1}) {
        const List list;
        EXPECT_EQ(messages_of([&] {
                      const FailingNew failing(successes);
                      EXPECT_EQ(qztoken_add(list, "a"), -1);
                  }),
                  "FATAL qztoken_add(): can't expand list \n");
        EXPECT_EQ(qztoken_num(list), 0);
        EXPECT_EQ(qztoken_add(list, "a"), 0);
    }
}

TEST_F(Memory, NoneForTheJoinedLine)
{
    const List list{"a", "b"};
    EXPECT_EQ(messages_of([&] {
                  const FailingNew failing(0);
                  EXPECT_EQ(qztoken_get_string(list), nullptr);
              }),
              "FATAL qztoken_get_string(): can't allocate need_quotes array\n");
    EXPECT_EQ(messages_of([&] {
                  mallocs_left = 1; // for the array; the line fails
                  EXPECT_EQ(qztoken_get_string(list), nullptr);
                  mallocs_left = kNever;
              }),
              "FATAL qztoken_get_string(): can't allocate string\n");
}

} // namespace
