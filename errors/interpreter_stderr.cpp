#include "errors/interpreter_stderr.h"

#include "platform/interpreter.h"

#include <cstring>

namespace qz::errors {

namespace {

/// The interpreter's writer drops what goes beyond that in one call.
constexpr std::size_t kPieceBytes = 1000;

bool is_utf8_continuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How much of the text goes in the next piece. A piece is decoded on its own, so it must not end
/// inside a character; text that is no UTF-8 is cut anywhere.
std::size_t next_piece(std::string_view text)
{
    if (text.size() <= kPieceBytes)
        return text.size();
    for (std::size_t length = kPieceBytes; length > kPieceBytes - 4; --length) {
        if (!is_utf8_continuation(text[length]))
            return length;
    }
    return kPieceBytes;
}

} // namespace

bool write_to_interpreter(std::string_view message, bool newline)
{
    if (!platform::interpreter_is_initialized())
        return false;
    const platform::InterpreterLock lock;
    char piece[kPieceBytes + 1];
    while (!message.empty()) {
        std::size_t length = next_piece(message);
        std::memcpy(piece, message.data(), length);
        message.remove_prefix(length);
        if (newline && message.empty() && length < kPieceBytes) {
            piece[length++] = '\n';
            newline = false;
        }
        piece[length] = '\0';
        platform::write_interpreter_stderr(piece);
    }
    if (newline)
        platform::write_interpreter_stderr("\n");
    return true;
}

} // namespace qz::errors
