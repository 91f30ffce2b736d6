#define PY_SSIZE_T_CLEAN
#include "platform/interpreter.h"

#include <Python.h>
#include <dlfcn.h>

namespace qz::platform {

namespace {

/// The interpreter's function of that name, typed by the interpreter's own header; null when no
/// interpreter is in the process.
template <typename Function> Function *interpreter_function(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_DEFAULT, name));
}

} // namespace

bool interpreter_is_initialized()
{
    auto *is_initialized = interpreter_function<decltype(Py_IsInitialized)>("Py_IsInitialized");
    return is_initialized != nullptr && is_initialized() != 0;
}

InterpreterLock::InterpreterLock()
    : state_(interpreter_function<decltype(PyGILState_Ensure)>("PyGILState_Ensure")())
{}

InterpreterLock::~InterpreterLock()
{
    interpreter_function<decltype(PyGILState_Release)>("PyGILState_Release")(
        static_cast<PyGILState_STATE>(state_));
}

void write_interpreter_stderr(const char *text)
{
    interpreter_function<decltype(PySys_WriteStderr)>("PySys_WriteStderr")("%s", text);
}

} // namespace qz::platform
