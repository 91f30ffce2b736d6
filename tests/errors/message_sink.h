#pragma once

#include "qzerr.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

/// An error handler of its own whose stream a test reads back.
class MessageSink {
public:
    explicit MessageSink(unsigned level = QZERR_WARNING) : stream_(std::tmpfile())
    {
        qzerr_new(&id_);
        qzerr_file(id_, stream_);
        qzerr_level(id_, level);
    }

    ~MessageSink()
    {
        qzerr_delete(id_);
        std::fclose(stream_);
    }

    MessageSink(const MessageSink &) = delete;
    MessageSink &operator=(const MessageSink &) = delete;

    int id() const { return id_; }

    FILE *stream() const { return stream_; }

    unsigned max_level() const
    {
        unsigned level = 0;
        qzerr_maxlevel(id_, &level);
        return level;
    }

    /// Everything written so far.
    std::string text() const
    {
        std::string text;
        std::rewind(stream_);
        for (int c = std::fgetc(stream_); c != EOF; c = std::fgetc(stream_))
            text += static_cast<char>(c);
        return text;
    }

private:
    FILE *stream_;
    int id_ = 0;
};
