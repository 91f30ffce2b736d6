// The functions of an interpreter that the library looks for, exported by the program itself: where
// there is no interpreter to embed, they stand in for it.

#include "errors/interpreter_scene.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <mutex>

#if defined(_WIN32)
#define STANDIN_EXPORT __declspec(dllexport)
#else
#define STANDIN_EXPORT __attribute__((visibility("default")))
#endif

namespace {

std::atomic<bool> lives{false};
std::recursive_mutex global_lock;
std::string written;

} // namespace

extern "C" {

STANDIN_EXPORT int Py_IsInitialized()
{
    return lives ? 1 : 0;
}

STANDIN_EXPORT int PyGILState_Ensure()
{
    global_lock.lock();
    return 0;
}

STANDIN_EXPORT void PyGILState_Release(int)
{
    global_lock.unlock();
}

STANDIN_EXPORT void PySys_WriteStderr(const char *format, ...)
{
    char piece[1001]; // of more, an interpreter keeps this much
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(piece, sizeof piece, format, arguments);
    va_end(arguments);
    const std::lock_guard<std::recursive_mutex> guard(global_lock);
    written += (written.empty() ? "" : "|") + std::string(piece);
}
}

namespace scene {

RecordingInterpreter::RecordingInterpreter()
{
    global_lock.lock();
    written.clear();
    lives = true;
}

RecordingInterpreter::~RecordingInterpreter()
{
    lives = false;
    global_lock.unlock();
}

std::string RecordingInterpreter::pieces() const
{
    return written;
}

void RecordingInterpreter::join(std::thread &thread)
{
    global_lock.unlock();
    thread.join();
    global_lock.lock();
}

} // namespace scene
