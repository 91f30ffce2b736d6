#include "qzfile/qzfile/qzfile/failure.h"

#include "platform/text.h"
#include "qzerr.h"

#include <cerrno>
#include <cstdarg>

namespace qz::file {

namespace {

void report(unsigned level, const char *format, std::va_list arguments)
{
    const int kept_errno = errno;
    char message[kMessageBytes] = "qzfile_failure():";
    if (format)
        platform::qzwin32_vsnprintf(message, sizeof message, format, arguments);
    qzerr_throw(-1, level, "%s", message);
    errno = kept_errno;
}

} // namespace

int fail(const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(QZERR_WARNING, format, arguments);
    va_end(arguments);
    return -1;
}

int fail_at(unsigned level, const char *format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(level, format, arguments);
    va_end(arguments);
    return -1;
}

} // namespace qz::file
