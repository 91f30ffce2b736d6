#include "platform/standard_streams.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace qz::platform {

bool is_terminal(std::FILE *stream)
{
    return ::_isatty(::_fileno(stream)) != 0;
}

bool shows_colours(std::FILE *stream)
{
    // The value of the header of Windows 10, which older ones lack.
    constexpr DWORD kAnsiSequences = 0x0004;
    const HANDLE console = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) && SetConsoleMode(console, mode | kAnsiSequences);
}

void carry_bytes(std::FILE *stream)
{
    ::_setmode(::_fileno(stream), _O_BINARY);
}

// A console begins with the code page of old programs, which is not that of a process.
ReadableText::ReadableText() : kept_(GetConsoleOutputCP())
{
    SetConsoleOutputCP(GetACP());
}

ReadableText::~ReadableText()
{
    SetConsoleOutputCP(kept_);
}

} // namespace qz::platform
