#include "errors/interpreter_scene.h"
#include "errors/message.h"
#include "qzerr.hpp"

#include <algorithm>
#include <optional>
#include <thread>

using halcyra::qzlibs::RedirectQzerrToPythonStderr;
using scene::plain_stderr;
using scene::RecordingInterpreter;
using scene::say;

TEST(Redirection, TheStreamIsUsedOutsideTheInterpretersLife)
{
    const RedirectQzerrToPythonStderr redirect;
    for (int life = 0; life < 2; ++life) {
        EXPECT_EQ(plain_stderr([] { say("outside\n"); }), "WARNING outside\n");
        const RecordingInterpreter interpreter;
        EXPECT_EQ(plain_stderr([] { say("inside\n"); }), "");
        EXPECT_EQ(interpreter.pieces(), "WARNING inside\n");
    }
    EXPECT_EQ(plain_stderr([] { say("outside\n"); }), "WARNING outside\n");
}

TEST(Redirection, OnlyTheLibrarysHandlerOnStandardErrorIsRedirected)
{
    const RecordingInterpreter interpreter;
    EXPECT_EQ(plain_stderr([] { say("nobody asked\n"); }), "WARNING nobody asked\n");
    RedirectQzerrToPythonStderr redirect;
    EXPECT_EQ(plain_stderr([] { qzerr_throw(0, QZERR_FATAL, "other handler\n"); }),
              "FATAL other handler\n");
    FILE *file = std::tmpfile();
    qzerr_file(-1, file);
    say("other stream");
    EXPECT_EQ(std::ftell(file), 20);
    std::fclose(file);
    qzerr_file(-1, stderr);
    redirect.close();
    EXPECT_EQ(plain_stderr([] { say("closed\n"); }), "WARNING closed\n");
    EXPECT_EQ(interpreter.pieces(), "");
}

TEST(Redirection, AThreadWithoutTheLockWaitsForIt)
{
    const RecordingInterpreter interpreter;
    const RedirectQzerrToPythonStderr redirect;
    std::thread thread([] { say("from a thread"); });
    RecordingInterpreter::join(thread);
    EXPECT_EQ(interpreter.pieces(), "WARNING from a thread");
}

TEST(Redirection, LongMessagesGoInPieces)
{
    const struct {
        const char *why;
        std::string text; // follows "WARNING "
        std::size_t pieces;
    } cases[] = {
        {"fills one piece",                  std::string(992,   'x'),                 1 },
        {"one byte more",                    std::string(993,   'x'),                 2 },
        {"fills two",                        std::string(1992,  'x'),                 2 },
        {"as long as a message can be",      std::string(10231, 'x'),                 11},
        {"two bytes across the cut",         std::string(991,   'x') + "\u00e9",      2 },
        {"three bytes, two before the cut",  std::string(990,   'x') + "\u20ac",      2 },
        {"four bytes, three before the cut", std::string(989,   'x') + "\U0001f600",  2 },
        {"four bytes that end at the cut",   std::string(988,   'x') + "\U0001f600y", 2 },
    };

    for (const bool newline : {false, true}) {
        for (const auto &c : cases) {
            SCOPED_TRACE(c.why);
            const RecordingInterpreter interpreter;
            const RedirectQzerrToPythonStderr redirect;
            std::optional<qz::errors::NewlineAfterMessages> after;
            if (newline)
                after.emplace();
            say(c.text.c_str());
            const std::string pieces = interpreter.pieces();
            std::string whole = pieces;
            whole.erase(std::remove(whole.begin(), whole.end(), '|'), whole.end());
            EXPECT_EQ(whole, "WARNING " + c.text + (newline ? "\n" : ""));
            const bool full = (c.text.size() + 8) % 1000 == 0;
            EXPECT_EQ(pieces.size() - whole.size() + 1, c.pieces + (newline && full ? 1 : 0));
        }
    }
}
