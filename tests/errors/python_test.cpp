// What only the interpreter itself can show.

#include "errors/interpreter_scene.h"
#include "errors/python_interpreter.h"
#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <string>

using halcyra::qzlibs::RedirectQzerrToPythonStderr;
using scene::Interpreter;
using scene::kPieces;
using scene::kRecordPieces;
using scene::plain_stderr;
using scene::say;

TEST(Redirection, AUselessWriterLosesNothing)
{
    const struct {
        const char *why;
        const char *statements;
    } cases[] = {
        {"closed",  "import io, sys\nsys.stderr = io.StringIO()\nsys.stderr.close()\n"},
        {"raising", "import sys\nclass Raising:\n"
                    "    def write(self, text): raise ValueError(text)\n"
                    "sys.stderr = Raising()\n"                     },
        {"None",    "import sys\nsys.stderr = None\n"                                 },
        {"deleted", "import sys\ndel sys.stderr\n"                                    },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const Interpreter interpreter;
        Interpreter::run(c.statements);
        const RedirectQzerrToPythonStderr redirect;
        EXPECT_EQ(plain_stderr([] { say("100%s\n"); }), "WARNING 100%s\n");
        EXPECT_EQ(PyErr_Occurred(), nullptr);
    }
}

TEST(Redirection, APendingExceptionOfTheHostSurvives)
{
    const Interpreter interpreter;
    Interpreter::run(kRecordPieces);
    const RedirectQzerrToPythonStderr redirect;
    PyErr_SetString(PyExc_KeyError, "of the host");
    say("x");
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_KeyError));
    PyErr_Clear();
    EXPECT_EQ(Interpreter::text(kPieces), "WARNING x");
}

TEST(Redirection, TextThatIsNoUtf8ReachesTheStreamWhole)
{
    const Interpreter interpreter;
    Interpreter::run(kRecordPieces);
    const RedirectQzerrToPythonStderr redirect;
    const std::string bytes(2500, '\xb4');
    EXPECT_EQ(plain_stderr([&] { say(bytes.c_str()); }), "WARNING " + bytes);
}
