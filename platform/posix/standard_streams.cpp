#include "platform/standard_streams.h"

#include <cstdlib>
#include <cstring>

#include <unistd.h>

namespace qz::platform {

bool is_terminal(std::FILE *stream)
{
    return ::isatty(::fileno(stream)) != 0;
}

bool shows_colours(std::FILE *stream)
{
    const char *const kind = std::getenv("TERM");
    return is_terminal(stream) && kind && std::strcmp(kind, "dumb") != 0;
}

void carry_bytes(std::FILE *) {}

ReadableText::ReadableText() : kept_(0) {}

ReadableText::~ReadableText() = default;

} // namespace qz::platform
