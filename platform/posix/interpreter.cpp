#define PY_SSIZE_T_CLEAN
#include "platform/interpreter.h"

#include <string>
#include <vector>

#include <Python.h>
#include <dlfcn.h>
#include <link.h>

namespace qz::platform {

namespace {

/// The function of that name in the process, wherever a host loaded it. One that keeps its
/// interpreter to itself, in a plug-in, has it outside the global scope.
void *process_symbol(const char *name)
{
    if (void *symbol = dlsym(RTLD_DEFAULT, name))
        return symbol;
    std::vector<std::string> modules;
    const auto note_module = [](dl_phdr_info *module, std::size_t, void *names) {
        static_cast<std::vector<std::string> *>(names)->emplace_back(module->dlpi_name);
        return 0;
    };
    dl_iterate_phdr(note_module, &modules);
    void *symbol = nullptr;
    for (std::size_t i = 0; symbol == nullptr && i < modules.size(); ++i) {
        if (void *module = dlopen(modules[i].c_str(), RTLD_LAZY | RTLD_NOLOAD)) {
            symbol = dlsym(module, name);
            dlclose(module);
        }
    }
    return symbol;
}

/// The interpreter's function of that name, typed by the interpreter's own header; null when no
/// interpreter is in the process.
template <typename Function> Function *interpreter_function(const char *name)
{
    return reinterpret_cast<Function *>(process_symbol(name));
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
