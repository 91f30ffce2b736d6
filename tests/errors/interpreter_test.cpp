#include "errors/message.h"
#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

#include <Python.h>

// The interpreter keeps some memory to the end of the process.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libpython3";
}

namespace {

using halcyra::qzlibs::RedirectQzerrToPythonStderr;

/// An interpreter from here to the end of the scope.
class Interpreter {
public:
    Interpreter() { Py_InitializeEx(0); }

    ~Interpreter() { Py_FinalizeEx(); }

    Interpreter(const Interpreter &) = delete;
    Interpreter &operator=(const Interpreter &) = delete;

    static void run(const char *statements) { EXPECT_EQ(PyRun_SimpleString(statements), 0); }

    /// The value of a text expression.
    static std::string text(const char *expression)
    {
        PyObject *globals = PyModule_GetDict(PyImport_AddModule("__main__"));
        PyObject *value = PyRun_String(expression, Py_eval_input, globals, globals);
        const char *utf8 = value != nullptr ? PyUnicode_AsUTF8(value) : nullptr;
        std::string text(utf8 != nullptr ? utf8 : "(no text)");
        Py_XDECREF(value);
        return text;
    }
};

/// Replaces standard error and records each call of its writer.
constexpr const char *kRecordPieces = "import sys\n"
                                      "class Recorder:\n"
                                      "    pieces = []\n"
                                      "    def write(self, text): self.pieces.append(text)\n"
                                      "    def flush(self): pass\n"
                                      "sys.stderr = Recorder()\n";
constexpr const char *kPieces = "'|'.join(sys.stderr.pieces)";

void say(const char *text)
{
    EXPECT_EQ(qzerr_throw(-1, QZERR_WARNING, "%s", text), 1);
}

/// What reaches the process's own standard error.
template <typename Calls> std::string plain_stderr(Calls calls)
{
    testing::internal::CaptureStderr();
    calls();
    return testing::internal::GetCapturedStderr();
}

TEST(Redirection, TheStreamIsUsedOutsideTheInterpretersLife)
{
    const RedirectQzerrToPythonStderr redirect;
    for (int life = 0; life < 2; ++life) {
        EXPECT_EQ(plain_stderr([] { say("outside\n"); }), "WARNING outside\n");
        const Interpreter interpreter;
        Interpreter::run(kRecordPieces);
        EXPECT_EQ(plain_stderr([] { say("inside\n"); }), "");
        EXPECT_EQ(Interpreter::text(kPieces), "WARNING inside\n");
    }
    EXPECT_EQ(plain_stderr([] { say("outside\n"); }), "WARNING outside\n");
}

TEST(Redirection, OnlyTheLibrarysHandlerOnStandardErrorIsRedirected)
{
    const Interpreter interpreter;
    Interpreter::run(kRecordPieces);
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
    EXPECT_EQ(Interpreter::text(kPieces), "");
}

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

TEST(Redirection, AThreadWithoutTheLockWaitsForIt)
{
    const Interpreter interpreter;
    Interpreter::run(kRecordPieces);
    const RedirectQzerrToPythonStderr redirect;
    std::thread thread([] { say("from a thread"); });
    PyThreadState *const state = PyEval_SaveThread();
    thread.join();
    PyEval_RestoreThread(state);
    EXPECT_EQ(Interpreter::text(kPieces), "WARNING from a thread");
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
            const Interpreter interpreter;
            Interpreter::run(kRecordPieces);
            const RedirectQzerrToPythonStderr redirect;
            if (newline) {
                const qz::errors::NewlineAfterMessages after;
                say(c.text.c_str());
            } else {
                say(c.text.c_str());
            }
            const std::string pieces = Interpreter::text(kPieces);
            std::string whole = pieces;
            whole.erase(std::remove(whole.begin(), whole.end(), '|'), whole.end());
            EXPECT_EQ(whole, "WARNING " + c.text + (newline ? "\n" : ""));
            const bool full = (c.text.size() + 8) % 1000 == 0;
            EXPECT_EQ(pieces.size() - whole.size() + 1, c.pieces + (newline && full ? 1 : 0));
        }
    }
}

TEST(Redirection, TextThatIsNoUtf8ReachesTheStreamWhole)
{
    const Interpreter interpreter;
    Interpreter::run(kRecordPieces);
    const RedirectQzerrToPythonStderr redirect;
    const std::string bytes(2500, '\xb4');
    EXPECT_EQ(plain_stderr([&] { say(bytes.c_str()); }), "WARNING " + bytes);
}

} // namespace
