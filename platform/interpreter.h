#ifndef QZ_PLATFORM_INTERPRETER_H
#define QZ_PLATFORM_INTERPRETER_H

namespace qz::platform {

// The interpreter that the host embeds is found in the running process at each call. The library
// links none: a program without one must not load it, and any version of it will do.

/// Whether the process holds an interpreter that is initialised and not finalised.
bool interpreter_is_initialized();

/// Holds the interpreter's global lock; made only while the interpreter is initialised. The caller
/// may hold the lock already, and need not be a thread that the interpreter knows.
class InterpreterLock {
public:
    InterpreterLock();
    ~InterpreterLock();
    InterpreterLock(const InterpreterLock &) = delete;
    InterpreterLock &operator=(const InterpreterLock &) = delete;

private:
    int state_;
};

/// Writes a text of at most 1,000 bytes to the interpreter's standard error, under its lock.
void write_interpreter_stderr(const char *text);

} // namespace qz::platform

#endif
