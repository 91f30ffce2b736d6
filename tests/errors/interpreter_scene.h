#pragma once

#include "qzerr.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace scene {

/// An interpreter in the process from here to the end of the scope, whose standard error keeps each
/// piece that is written to it.
class RecordingInterpreter {
public:
    RecordingInterpreter();
    ~RecordingInterpreter();
    RecordingInterpreter(const RecordingInterpreter &) = delete;
    RecordingInterpreter &operator=(const RecordingInterpreter &) = delete;

    /// The pieces so far, with a '|' between two.
    std::string pieces() const;
    /// Waits for @p thread, without the interpreter's lock meanwhile.
    static void join(std::thread &thread);
};

inline void say(const char *text)
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

} // namespace scene
