#include "errors/message_sink.h"
#include "qzerr.h"

#include <utility>
#include <vector>

namespace {

int make()
{
    int id = 0;
    EXPECT_EQ(qzerr_new(&id), 1);
    return id;
}

TEST(Handlers, TheLowestFreeIdIsUsedAgain)
{
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(make(), 2);
    EXPECT_EQ(make(), 3);
    qzerr_delete(2);
    EXPECT_EQ(make(), 2);
    for (int id : {3, 2, 1})
        qzerr_delete(id);
    EXPECT_EQ(make(), 1);
    EXPECT_EQ(make(), 2);
    qzerr_delete(1);
    qzerr_delete(2);
}

TEST(Handlers, AUsedSlotStartsAsANewOne)
{
    MessageSink sink;
    const int id = make();
    qzerr_level(id, QZERR_BUMMER);
    qzerr_prefix(id, "old: ");
    qzerr_file(id, sink.stream());
    qzerr_window(id, [](const char *) { return -1; });
    qzerr_suppress_print(id);
    qzerr_throw(id, QZERR_FATAL, "x");
    qzerr_delete(id);

    ASSERT_EQ(make(), id);
    unsigned level = 0;
    unsigned max_level = 0;
    int printing = -1;
    qzerr_get_level(id, &level);
    qzerr_maxlevel(id, &max_level);
    qzerr_print_state(id, &printing);
    EXPECT_EQ(level, unsigned{QZERR_WARNING});
    EXPECT_EQ(max_level, unsigned{QZERR_OK});
    EXPECT_EQ(printing, 1);
    EXPECT_EQ(qzerr_throw(id, QZERR_FATAL, "nobody hears this"), 1);
    qzerr_file(id, sink.stream());
    qzerr_throw(id, QZERR_FATAL, "no prefix");
    EXPECT_EQ(sink.text(), "FATAL no prefix");
    qzerr_delete(id);
}

TEST(Handlers, AnIdWithoutAHandlerFailsEverywhereAndSaysNothing)
{
    const int freed = make();
    qzerr_delete(freed);
    testing::internal::CaptureStderr();
    for (int id : {-5, -2, freed, 99, 2147483647, -2147483647 - 1}) {
        SCOPED_TRACE(id);
        unsigned level = 0;
        int printing = 0;
        qzerr_delete(id);
        EXPECT_EQ(qzerr_level(id, 0), 0);
        EXPECT_EQ(qzerr_get_level(id, &level), 0);
        EXPECT_EQ(qzerr_maxlevel(id, &level), 0);
        EXPECT_EQ(qzerr_errclear(id), 0);
        EXPECT_EQ(qzerr_prefix(id, "p"), 0);
        EXPECT_EQ(qzerr_file(id, stderr), 0);
        EXPECT_EQ(qzerr_window(id, nullptr), 0);
        EXPECT_EQ(qzerr_suppress_print(id), 0);
        EXPECT_EQ(qzerr_restore_print(id), 0);
        EXPECT_EQ(qzerr_print_state(id, &printing), 0);
        EXPECT_EQ(qzerr_throw(id, QZERR_FATAL, "x"), 0);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Handlers, TheDefaultHandlersStayAndWriteToStandardError)
{
    testing::internal::CaptureStderr();
    qzerr_prefix(-1, "lib: ");
    qzerr_delete(0);
    qzerr_delete(-1);
    qzerr_prefix(-1, "");
    EXPECT_EQ(qzerr_throw(0, QZERR_WARNING, "still here\n"), 1);
    EXPECT_EQ(qzerr_throw(-1, QZERR_INFO, "too low\n"), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "lib: WARNING Default handler can not be deleted.\n"
              "lib: WARNING Default handler can not be deleted.\n"
              "WARNING still here\n");
}

TEST(Handlers, Prefix)
{
    const std::string longest(511, 'p');

    const struct {
        const char *why;
        std::string prefix;
        int result;
        std::string printed;
    } cases[] = {
        {"stands directly in front",       "app: ",       1, "app: "},
        {"the longest",                    longest,       1, longest},
        {"too long: the old one goes too", longest + "p", 0, ""     },
        {"empty",                          "",            1, ""     },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        MessageSink sink;
        qzerr_prefix(sink.id(), "before: ");
        EXPECT_EQ(qzerr_prefix(sink.id(), c.prefix.c_str()), c.result);
        qzerr_throw(sink.id(), QZERR_FATAL, "x");
        EXPECT_EQ(sink.text(), c.printed + "FATAL x");
        EXPECT_EQ(qzerr_prefix(sink.id(), nullptr), 0);
    }
}

TEST(Handlers, ReturnCodeTextsLastForTenCalls)
{
    const std::pair<unsigned, const char *> cases[] = {
        {0,   "QZERR_BUMMER"         },
        {4,   "QZERR_WARNING"        },
        {7,   "QZERR_LEVEL UNDEFINED"},
        {8,   "(bogus QZERR level)"  },
        {~0U, "(bogus QZERR level)"  },
    };

    std::vector<const char *> texts;
    for (const auto &[level, text] : cases)
        texts.push_back(qzerr_return_code(level));
    for (int i = 0; i < 5; ++i)
        qzerr_return_code(QZERR_DEBUG);
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_STREQ(texts[i], cases[i].second);
    EXPECT_EQ(qzerr_return_code(QZERR_INFO), texts[0]);
}

TEST(Handlers, AssertWritesWhereItFailed)
{
    testing::internal::CaptureStderr();
    qzerr_suppress_print(-1);
    qzerr_assert(1, "mesh.c", 11);
    qzerr_assert(0, "mesh.c", 12);
    qzerr_restore_print(-1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Assert failed.  File: mesh.c  Line: 12\n");
}

} // namespace
