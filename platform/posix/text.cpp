#include "platform/text.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace qz::platform {

int qzwin32_vsnprintf(char *buffer, std::size_t size, const char *format, va_list arguments)
{
    return std::vsnprintf(buffer, size, format, arguments);
}

std::string qzwin32_get_last_error()
{
    char buffer[256];
    return strerror_r(errno, buffer, sizeof buffer);
}

} // namespace qz::platform
