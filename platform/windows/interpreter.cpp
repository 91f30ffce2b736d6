#include "platform/interpreter.h"

// clang-format off
#define PSAPI_VERSION 2
#include <windows.h>
#include <psapi.h> // needs the types of the one above
// clang-format on

#include <algorithm>

namespace qz::platform {

namespace {

// The interpreter's header is not there on every machine that builds for this system, so its four
// prototypes stand here as it declares them.
enum LockState { kLockWasHeld, kLockWasFree };

using IsInitialized = int();
using Ensure = LockState();
using Release = void(LockState);
using WriteStderr = void(const char *format, ...);

/// The interpreter's function of that name; null when no module of the process exports it.
template <typename Function> Function *interpreter_function(const char *name)
{
    constexpr DWORD kMostModules = 1024;
    HMODULE modules[kMostModules];
    DWORD bytes = 0;
    if (!EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &bytes))
        return nullptr;
    const DWORD count = std::min<DWORD>(bytes / sizeof(HMODULE), kMostModules);
    for (DWORD i = 0; i < count; ++i) {
        if (const auto address = GetProcAddress(modules[i], name))
            return reinterpret_cast<Function *>(reinterpret_cast<void *>(address));
    }
    return nullptr;
}

} // namespace

bool interpreter_is_initialized()
{
    auto *is_initialized = interpreter_function<IsInitialized>("Py_IsInitialized");
    return is_initialized != nullptr && is_initialized() != 0;
}

InterpreterLock::InterpreterLock() : state_(interpreter_function<Ensure>("PyGILState_Ensure")()) {}

InterpreterLock::~InterpreterLock()
{
    interpreter_function<Release>("PyGILState_Release")(static_cast<LockState>(state_));
}

void write_interpreter_stderr(const char *text)
{
    interpreter_function<WriteStderr>("PySys_WriteStderr")("%s", text);
}

} // namespace qz::platform
