#include "errors/message_sink.h"
#include "qzerr.hpp"
#include "thrown.h"

#include <optional>
#include <stdexcept>
#include <utility>

namespace {

using halcyra::qzlibs::CaptureQZErr;
using halcyra::qzlibs::RedirectQzerrToPythonStderr;

void say(const MessageSink &sink, const char *text)
{
    EXPECT_EQ(qzerr_throw(sink.id(), QZERR_FATAL, "%s", text), 1);
}

TEST(Capture, TakesWhatTheHandlerShowsAndSilencesIt)
{
    MessageSink sink;
    qzerr_prefix(sink.id(), "x: ");
    {
        CaptureQZErr capture(sink.id());
        say(sink, "a\n");
        qzerr_throw(sink.id(), QZERR_INFO, "below the level\n");
        say(sink, "b\n");
        capture.restore();
        say(sink, "after\n");
        EXPECT_EQ(capture.getMessages(), "x: FATAL a\nx: FATAL b\n");
        EXPECT_EQ(capture.getMessages(), "x: FATAL a\nx: FATAL b\n") << "after restore it stays";
    }
    say(sink, "end\n");
    EXPECT_EQ(sink.text(), "x: FATAL after\nx: FATAL end\n");
}

TEST(Capture, WhileActiveEachCallReturnsWhatCameSince)
{
    MessageSink sink;
    CaptureQZErr capture(sink.id());
    EXPECT_EQ(capture.getMessagesOrDefault("nothing"), "nothing");
    EXPECT_EQ(capture.addMessagesAsDetails("Failed"), "Failed");
    say(sink, "a\n");
    EXPECT_EQ(sink.max_level(), unsigned{QZERR_FATAL});
    EXPECT_EQ(capture.getMessagesOrDefault("nothing"), "FATAL a\n");
    EXPECT_EQ(sink.max_level(), unsigned{QZERR_OK});
    qzerr_throw(sink.id(), QZERR_WARNING, "no file\n");
    EXPECT_EQ(capture.addMessagesAsDetails("Failed"), "Failed:\n WARNING no file\n");
    EXPECT_EQ(capture.getMessages(), "");
}

TEST(Capture, NestedCapturesKeepTheirOwnMessagesAndTheSilence)
{
    MessageSink sink;
    CaptureQZErr outer(sink.id());
    say(sink, "1");
    {
        CaptureQZErr inner(sink.id());
        say(sink, "2");
        EXPECT_EQ(inner.getMessages(), "FATAL 2");
        say(sink, "3");
    }
    say(sink, "4");
    EXPECT_EQ(outer.getMessages(), "FATAL 1FATAL 4");
    EXPECT_EQ(sink.text(), "");
}

TEST(Capture, ABadIdIsRefused)
{
    for (int id : {99, -7}) {
        const auto capture = [id] { const CaptureQZErr refused(id); };
        EXPECT_EQ(qz::test::thrown<std::out_of_range>(capture),
                  "Invalid qzerr handle: " + std::to_string(id));
    }
}

TEST(Capture, AMovedFromCaptureGivesNothingBack)
{
    MessageSink sink;
    std::optional<CaptureQZErr> first(sink.id());
    say(sink, "a");
    CaptureQZErr second(std::move(*first));
    EXPECT_EQ(first->getMessages(), "");
    first.reset();
    say(sink, "b");
    EXPECT_EQ(sink.text(), "") << "still silenced by the second";
    second.restore();
    EXPECT_EQ(second.getMessages(), "FATAL aFATAL b");
    say(sink, "c");
    EXPECT_EQ(sink.text(), "FATAL c");
}

TEST(Capture, AssignmentGivesUpTheTargetsCaptureWithoutRestoringIt)
{
    MessageSink left;
    MessageSink right;
    {
        CaptureQZErr target(left.id());
        CaptureQZErr source(right.id());
        say(right, "r");
        target = std::move(source);
        target.restore();
        EXPECT_EQ(target.getMessages(), "FATAL r");
    }
    int printing = 1;
    qzerr_print_state(left.id(), &printing);
    EXPECT_EQ(printing, 0) << "the handler of the target stays silenced";
    qzerr_print_state(right.id(), &printing);
    EXPECT_EQ(printing, 1);
}

TEST(Capture, OutlivesItsHandler)
{
    std::optional<MessageSink> sink(std::in_place);
    CaptureQZErr capture(sink->id());
    say(*sink, "a");
    sink.reset();
    EXPECT_EQ(capture.getMessages(), "");
    capture.restore();
}

TEST(Capture, AHundredThousandMessagesArriveInOrder)
{
    MessageSink sink;
    CaptureQZErr capture(sink.id());
    std::string expected;
    for (int i = 0; i < 100000; ++i) {
        qzerr_throw(sink.id(), QZERR_FATAL, "%d\n", i);
        expected += "FATAL " + std::to_string(i) + "\n";
    }
    EXPECT_TRUE(capture.getMessages() == expected);
}

TEST(Redirect, IsActiveWhileAnUnclosedOneLives)
{
    EXPECT_FALSE(RedirectQzerrToPythonStderr::isActive());
    {
        RedirectQzerrToPythonStderr outer;
        {
            RedirectQzerrToPythonStderr closed_twice;
            closed_twice.close();
            closed_twice.close();
        }
        EXPECT_TRUE(RedirectQzerrToPythonStderr::isActive());
    }
    EXPECT_FALSE(RedirectQzerrToPythonStderr::isActive());
}

} // namespace
