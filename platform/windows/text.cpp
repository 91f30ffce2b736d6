#include "platform/text.h"

#include <cstdio>

#include <windows.h>

namespace qz::platform {

int qzwin32_vsnprintf(char *buffer, std::size_t size, const char *format, va_list arguments)
{
    return std::vsnprintf(buffer, size, format, arguments);
}

std::string qzwin32_get_last_error()
{
    const DWORD code = GetLastError();
    char text[1024];
    // The length limit of 0xFF means one line: the system's own line breaks are left out.
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                            FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                        nullptr, code, 0, text, sizeof text, nullptr);
    std::string message(text, length);
    message.erase(message.find_last_not_of(" \r\n") + 1);
    return message;
}

} // namespace qz::platform
