#ifndef QZ_TESTS_ERRORS_PYTHON_INTERPRETER_H
#define QZ_TESTS_ERRORS_PYTHON_INTERPRETER_H

#include <gtest/gtest.h>

#include <string>

#include <Python.h>

namespace scene {

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
inline constexpr const char *kRecordPieces = "import sys\n"
                                             "class Recorder:\n"
                                             "    pieces = []\n"
                                             "    def write(self, text): self.pieces.append(text)\n"
                                             "    def flush(self): pass\n"
                                             "sys.stderr = Recorder()\n";
inline constexpr const char *kPieces = "'|'.join(sys.stderr.pieces)";

} // namespace scene

#endif
