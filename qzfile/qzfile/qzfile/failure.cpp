#include "qzfile/qzfile/qzfile/failure.h"

#include "platform/text.h"
#include "qzerr.h"

#include <cerrno>
#include <cstdarg>

namespace qz::file {

int fail(const char *format, ...)
{
    const int kept_errno = errno;
    char message[kMessageBytes] = "qzfile_failure():";
    if (format) {
        std::va_list arguments;
        va_start(arguments, format);
        platform::qzwin32_vsnprintf(message, sizeof message, format, arguments);
        va_end(arguments);
    }
    qzerr_throw(-1, QZERR_WARNING, "%s", message);
    errno = kept_errno;
    return -1;
}

} // namespace qz::file
