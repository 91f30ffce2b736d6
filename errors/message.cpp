#include "errors/message.h"

#include "errors/handler_table.h"
#include "errors/interpreter_stderr.h"
#include "errors/level.h"
#include "errors/message_text.h"
#include "platform/fortran_unit.h"
#include "qzerr.h"
#include "qzerr.hpp"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace qz::errors {

namespace {

constexpr std::size_t kMessageBytes = 10240;

/// Process-wide, as the handlers are.
bool newline_after_message = false;

/// Writes prefix, level name and a blank.
/// @return their length; the longest prefix leaves most of the buffer free.
std::size_t compose_head(char *message, const QzerrHandler &handler, unsigned level)
{
    std::size_t length = 0;
    if (handler.prefix != nullptr) {
        length = std::strlen(handler.prefix);
        std::memcpy(message, handler.prefix, length);
    }
    const std::string_view name = level_name(level);
    std::memcpy(message + length, name.data(), name.size());
    length += name.size();
    message[length] = ' ';
    return length + 1;
}

bool write_to_stream(int id, FILE *stream, std::string_view message)
{
    if (stream == nullptr)
        return true; // taken away while QzerrSuppressDeprecation kept the kind
    if (id == kLibraryHandler && stream == stderr &&
        halcyra::qzlibs::RedirectQzerrToPythonStderr::isActive() &&
        write_to_interpreter(message, newline_after_message)) {
        return true;
    }
    if (std::fwrite(message.data(), 1, message.size(), stream) != message.size())
        return false;
    return !newline_after_message || std::fputs("\n", stream) != EOF;
}

/// Sends a message, which a NUL follows, wherever its handler says.
/// @return false when the stream or the window refused it.
bool print(int id, const QzerrHandler &handler, std::string_view message)
{
    // Read before the interpreter runs code of the host, which may move or reuse the record.
    const auto window = handler.window;
    switch (handler.kind) {
    case DestinationKind::kNone:
        break;
    case DestinationKind::kStream:
        if (!write_to_stream(id, handler.stream, message))
            return false;
        break;
    case DestinationKind::kFortranUnit:
        qz_write_fortran_unit(handler.unit, message.data(), static_cast<int>(message.size()));
        break;
    }
    return window == nullptr || window(message.data()) != -1;
}

/// Reports a message. It stands apart from the filter in front of it, so that most messages neither
/// touch the stack of the big buffer nor save registers for the formatter.
[[gnu::noinline]] int report(int id, unsigned level, const char *format, va_list arguments)
{
    QzerrHandler *handler = find_handler(id);
    if (handler == nullptr)
        return 0;
    if (level < kLevelUndefined && level > handler->max_level)
        handler->set_max_level(level);
    if (level < handler->level)
        return 1;

    char buffer[kMessageBytes];
    std::size_t length = compose_head(buffer, *handler, level);
    if (format != nullptr)
        length += format_message_text(buffer + length, kMessageBytes - length, format, arguments);
    else
        buffer[length] = '\0';
    const std::string_view message(buffer, length);

    if (!handler->printing_suppressed && !print(id, *handler, message))
        return 0;
    // The interpreter and the window run code of the host, which may make and delete handlers.
    handler = find_handler(id);
    if (handler == nullptr || !handler->capturing)
        return 1;
    return append(handler->captured, message) ? 1 : 0;
}

} // namespace

NewlineAfterMessages::NewlineAfterMessages()
{
    newline_after_message = true;
}

NewlineAfterMessages::~NewlineAfterMessages()
{
    newline_after_message = false;
}

} // namespace qz::errors

using namespace qz::errors;

int qzerr_vthrow(int id, unsigned level, const char *format, va_list arguments)
{
    if (level < idle_below(id))
        return 1;
    return report(id, level, format, arguments);
}

int qzerr_throw(int id, unsigned level, const char *format, ...)
{
    if (level < idle_below(id))
        return 1;
    va_list arguments;
    va_start(arguments, format);
    const int result = report(id, level, format, arguments);
    va_end(arguments);
    return result;
}
