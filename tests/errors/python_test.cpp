// What only the interpreter itself can show.

#include "errors/interpreter_scene.h"

#include <Python.h>

using halcyra::qzlibs::RedirectQzerrToPythonStderr;
using scene::plain_stderr;
using scene::RecordingInterpreter;
using scene::say;

// The interpreter keeps some memory to the end of the process.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libpython3";
}

/// Replaces standard error and records each call of its writer.
constexpr const char *kRecordPieces = "import sys\n"
                                      "class Recorder:\n"
                                      "    pieces = []\n"
                                      "    def write(self, text): self.pieces.append(text)\n"
                                      "    def flush(self): pass\n"
                                      "sys.stderr = Recorder()\n";

RecordingInterpreter::RecordingInterpreter()
{
    Py_InitializeEx(0);
    EXPECT_EQ(PyRun_SimpleString(kRecordPieces), 0);
}

RecordingInterpreter::~RecordingInterpreter()
{
    Py_FinalizeEx();
}

std::string RecordingInterpreter::pieces() const
{
    PyObject *globals = PyModule_GetDict(PyImport_AddModule("__main__"));
    PyObject *value = PyRun_String("'|'.join(sys.stderr.pieces)", Py_eval_input, globals, globals);
    const char *utf8 = value != nullptr ? PyUnicode_AsUTF8(value) : nullptr;
    std::string text(utf8 != nullptr ? utf8 : "(no text)");
    Py_XDECREF(value);
    return text;
}

void RecordingInterpreter::join(std::thread &thread)
{
    PyThreadState *const state = PyEval_SaveThread();
    thread.join();
    PyEval_RestoreThread(state);
}

TEST(Redirection, AUselessWriterLosesNothing)
{
    const struct {
        const char *why, *statements;
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
        const RecordingInterpreter interpreter;
        EXPECT_EQ(PyRun_SimpleString(c.statements), 0);
        const RedirectQzerrToPythonStderr redirect;
        EXPECT_EQ(plain_stderr([] { say("100%s\n"); }), "WARNING 100%s\n");
        EXPECT_EQ(PyErr_Occurred(), nullptr);
    }
}

TEST(Redirection, APendingExceptionOfTheHostSurvives)
{
    const RecordingInterpreter interpreter;
    const RedirectQzerrToPythonStderr redirect;
    PyErr_SetString(PyExc_KeyError, "of the host");
    say("x");
    EXPECT_TRUE(PyErr_ExceptionMatches(PyExc_KeyError));
    PyErr_Clear();
    EXPECT_EQ(interpreter.pieces(), "WARNING x");
}

TEST(Redirection, TextThatIsNoUtf8ReachesTheStreamWhole)
{
    const RecordingInterpreter interpreter;
    const RedirectQzerrToPythonStderr redirect;
    const std::string bytes(2500, '\xb4');
    EXPECT_EQ(plain_stderr([&] { say(bytes.c_str()); }), "WARNING " + bytes);
}
