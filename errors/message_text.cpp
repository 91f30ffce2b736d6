#include "errors/message_text.h"

#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace qz::errors {

namespace {

/// A buffer that is filled from the front; what does not fit is dropped.
class Cut {
public:
    Cut(char *buffer, std::size_t size) : begin_(buffer), at_(buffer), last_(buffer + size - 1) {}

    void append(std::string_view text)
    {
        const std::size_t room = static_cast<std::size_t>(last_ - at_);
        at_ = std::copy_n(text.data(), std::min(text.size(), room), at_);
    }

    template <typename Number> void append_number(Number number)
    {
        char digits[3 * sizeof number + 1];
        const char *const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        append({digits, static_cast<std::size_t>(end - digits)});
    }

    std::size_t finish()
    {
        *at_ = '\0';
        return static_cast<std::size_t>(at_ - begin_);
    }

private:
    char *const begin_;
    char *at_;
    char *const last_; ///< where the NUL fits at the latest
};

/// Formats what has no conversions but plain %s, %d, %i, %u and %%: most messages, for which the
/// formatter of the run-time would first set up a stream.
/// @return whether @p format was such a one; else the arguments and @p text are used up.
bool format_plainly(Cut &text, const char *format, va_list arguments)
{
    for (;;) {
        const std::size_t literal = std::strcspn(format, "%");
        text.append({format, literal});
        format += literal;
        if (*format == '\0')
            return true;
        switch (format[1]) {
        case 's': {
            const char *const argument = va_arg(arguments, const char *);
            if (argument == nullptr)
                return false;
            text.append(argument);
            break;
        }
        case 'd':
        case 'i':
            text.append_number(va_arg(arguments, int));
            break;
        case 'u':
            text.append_number(va_arg(arguments, unsigned));
            break;
        case '%':
            text.append("%");
            break;
        default:
            return false;
        }
        format += 2;
    }
}

} // namespace

std::size_t format_message_text(char *buffer, std::size_t size, const char *format,
                                va_list arguments)
{
    Cut text(buffer, size);
    va_list plain_arguments;
    va_copy(plain_arguments, arguments);
    const bool is_plain = format_plainly(text, format, plain_arguments);
    va_end(plain_arguments);
    if (is_plain)
        return text.finish();
    platform::qzwin32_vsnprintf(buffer, size, format, arguments);
    return std::strlen(buffer);
}

} // namespace qz::errors
