#include "errors/message.h"
#include "errors/message_sink.h"
#include "qzerr.h"
#include "qzerr.hpp"

#include <climits>
#include <cstdio>
#include <cstring>
#include <set>

namespace {

using halcyra::qzlibs::CaptureQZErr;

std::string window_text;

int record(const char *message)
{
    window_text += message;
    return 0;
}

int refuse(const char *message)
{
    record(message);
    return -1;
}

TEST(Throw, FiltersByLevelAndNotesTheHighest)
{
    const struct {
        const char *why;
        unsigned threshold, level;
        const char *printed;
        unsigned max_level;
    } cases[] = {
        {"above the threshold",              4,   5,   "p: FATAL 3\n",           5},
        {"at the threshold",                 4,   4,   "p: WARNING 3\n",         4},
        {"below: counted but not shown",     4,   3,   "",                       3},
        {"the lowest level never counts",    0,   0,   "p: BUMMER 3\n",          1},
        {"OFF is the highest that counts",   6,   6,   "p: OFF 3\n",             6},
        {"7 has no name and does not count", 4,   7,   "p: LEVEL UNDEFINED 3\n", 1},
        {"a negative level is a large one",  4,   ~0U, "p: LEVEL UNDEFINED 3\n", 1},
        {"thresholds go on above 7",         100, 99,  "",                       1},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        MessageSink sink(c.threshold);
        qzerr_prefix(sink.id(), "p: ");
        for (int repeated = 0; repeated < 2; ++repeated)
            EXPECT_EQ(qzerr_throw(sink.id(), c.level, "%d\n", 3), 1);
        EXPECT_EQ(sink.text(), std::string(c.printed) + c.printed);
        EXPECT_EQ(sink.max_level(), c.max_level);
    }
}

template <typename... Arguments> void expect_as_printf(const char *format, Arguments... arguments)
{
    char expected[10240] = "FATAL ";
    std::snprintf(expected + 6, sizeof expected - 6, format, arguments...);
    MessageSink sink;
    EXPECT_EQ(qzerr_throw(sink.id(), QZERR_FATAL, format, arguments...), 1);
    EXPECT_EQ(sink.text(), expected);
}

TEST(Throw, TextIsThatOfPrintf)
{
    expect_as_printf("%s|%d|%i|%u|%%|%d\n", "a", INT_MIN, INT_MAX, UINT_MAX, 0);
    expect_as_printf("%s begins plainly, %5.2f and %ld do not, %-4d|%c", "x", 1.5, 7L, 3, 'c');
    const char *volatile none = nullptr; // a compiler that knew it would refuse the call
    expect_as_printf("%d %s", 1, none);
    expect_as_printf("a %");
    const std::string long_text(10231, 'x');
    expect_as_printf("%s%d", long_text.c_str(), 1234);
}

TEST(Throw, LongTextIsCutToTheBuffer)
{
    MessageSink sink;
    const std::string longest(20000, 'x');
    qzerr_throw(sink.id(), QZERR_FATAL, "%s\n", longest.c_str());
    EXPECT_EQ(sink.text(), "FATAL " + std::string(10239 - 6, 'x'));
}

TEST(Throw, TextThatCannotBeFormattedLeavesTheHead)
{
    MessageSink sink;
    const char *no_format = nullptr;
    EXPECT_EQ(qzerr_throw(sink.id(), QZERR_FATAL, no_format), 1);
    EXPECT_EQ(sink.text(), "FATAL ");
    EXPECT_EQ(qzerr_throw(sink.id(), QZERR_FATAL, "a %ls", L"\xd800"), 1);
    EXPECT_EQ(sink.text().substr(0, 14), "FATAL FATAL a ");
}

TEST(Throw, AMessageEndsAtItsFirstNul)
{
    MessageSink sink;
    CaptureQZErr captured(sink.id());
    qzerr_restore_print(sink.id());
    qzerr_throw(sink.id(), QZERR_FATAL, "a%cb", 0);
    qzerr_throw(sink.id(), QZERR_FATAL, "c");
    EXPECT_EQ(sink.text(), "FATAL aFATAL c");
    EXPECT_EQ(captured.getMessages(), "FATAL aFATAL c");
}

TEST(Throw, TheNewlineIsForStreamsOnly)
{
    MessageSink sink;
    window_text.clear();
    qzerr_window(sink.id(), record);
    {
        const qz::errors::NewlineAfterMessages newline;
        qzerr_throw(sink.id(), QZERR_FATAL, "a");
    }
    qzerr_throw(sink.id(), QZERR_FATAL, "b");
    EXPECT_EQ(sink.text(), "FATAL a\nFATAL b");
    EXPECT_EQ(window_text, "FATAL aFATAL b");
}

TEST(Throw, AFailedDestinationSkipsTheNextOnes)
{
    const std::string path = testing::TempDir() + "qzerr_read_only.txt";
    std::fclose(std::fopen(path.c_str(), "w"));
    FILE *const broken = std::fopen(path.c_str(), "r");
    FILE *const working = std::tmpfile();

    const struct {
        const char *why;
        FILE *stream;
        int (*window)(const char *);
        bool suppressed;
        int result;
        const char *shown, *captured;
    } cases[] = {
        {"all take it",               working, record, false, 1, "FATAL x", "FATAL x"},
        {"no stream",                 nullptr, record, false, 1, "FATAL x", "FATAL x"},
        {"the stream fails",          broken,  record, false, 0, "",        ""       },
        {"the window refuses",        working, refuse, false, 0, "FATAL x", ""       },
        {"suppressed: only captured", broken,  refuse, true,  1, "",        "FATAL x"},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        MessageSink sink;
        CaptureQZErr captured(sink.id());
        if (!c.suppressed)
            qzerr_restore_print(sink.id());
        qzerr_file(sink.id(), c.stream);
        qzerr_window(sink.id(), c.window);
        window_text.clear();
        EXPECT_EQ(qzerr_throw(sink.id(), QZERR_FATAL, "x"), c.result);
        EXPECT_EQ(window_text, c.shown);
        EXPECT_EQ(captured.getMessages(), c.captured);
    }
    EXPECT_EQ(std::ftell(working), 14) << "written twice";
    std::fclose(working);
    std::fclose(broken);
    std::remove(path.c_str());
}

int busy_handler;

TEST(Throw, AWindowMayMakeAndDeleteHandlers)
{
    qzerr_new(&busy_handler);
    CaptureQZErr captured(busy_handler);
    qzerr_restore_print(busy_handler);
    qzerr_window(busy_handler, [](const char *) {
        int made[100]; // enough to move the table
        for (int &id : made)
            qzerr_new(&id);
        for (int id : made)
            qzerr_delete(id);
        return 0;
    });
    EXPECT_EQ(qzerr_throw(busy_handler, QZERR_FATAL, "x"), 1);
    EXPECT_EQ(captured.getMessages(), "FATAL x");
    qzerr_window(busy_handler, [](const char *) {
        qzerr_delete(busy_handler);
        return 0;
    });
    EXPECT_EQ(qzerr_throw(busy_handler, QZERR_FATAL, "x"), 1);
    EXPECT_EQ(qzerr_throw(busy_handler, QZERR_FATAL, "x"), 0);
}

TEST(LastError, IsTheTextOfTheSystemForThisThread)
{
    ASSERT_EQ(std::fopen("no such file", "r"), nullptr);
    const std::string text = halcyra::get_last_error();
    const std::set<std::string> texts = {"No such file or directory", "File not found.",
                                         "The system cannot find the file specified."};
    EXPECT_EQ(texts.count(text), 1u) << text;
}

} // namespace
