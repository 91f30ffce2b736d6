#ifndef QZ_PLATFORM_STANDARD_STREAMS_H
#define QZ_PLATFORM_STANDARD_STREAMS_H

#include <cstdio>

namespace qz::platform {

// What a program on a command line asks of the streams that it was started with.

/// Whether somebody watches @p stream.
bool is_terminal(std::FILE *stream);

/// Whether @p stream is a terminal that shows the colours of ANSI sequences.
bool shows_colours(std::FILE *stream);

/// Lets @p stream carry every byte as it is from here on.
void carry_bytes(std::FILE *stream);

/// Terminals read the narrow text of this process as what it is while the object lives.
class ReadableText {
public:
    ReadableText();
    ~ReadableText();
    ReadableText(const ReadableText &) = delete;
    ReadableText &operator=(const ReadableText &) = delete;

private:
    unsigned kept_;
};

} // namespace qz::platform

#endif
