#include "errors/python_interpreter.h"

#include "errors/interpreter_scene.h"

// The interpreter keeps some memory to the end of the process.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libpython3";
}

namespace scene {

RecordingInterpreter::RecordingInterpreter()
{
    Py_InitializeEx(0);
    Interpreter::run(kRecordPieces);
}

RecordingInterpreter::~RecordingInterpreter()
{
    Py_FinalizeEx();
}

std::string RecordingInterpreter::pieces() const
{
    return Interpreter::text(kPieces);
}

void RecordingInterpreter::join(std::thread &thread)
{
    PyThreadState *const state = PyEval_SaveThread();
    thread.join();
    PyEval_RestoreThread(state);
}

} // namespace scene
