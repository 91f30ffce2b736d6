#include "qzfile/qzfile/qzfile/line_endings.h"

#include <algorithm>
#include <cstring>

namespace qz::file {

namespace {

char *find_forward(char *from, char *end, char wanted)
{
    return static_cast<char *>(std::memchr(from, wanted, static_cast<std::size_t>(end - from)));
}

/// The last @p wanted in a text that has one, or else @p begin.
char *behind_last(char *begin, char *end, char wanted)
{
    while (end != begin && end[-1] != wanted)
        --end;
    return end;
}

/// The beginning of the piece that @p position lies in or ends, where @p begin begins one.
char *piece_of(char *begin, char *position)
{
    char *line = behind_last(begin, position, '\n');
    return position - static_cast<std::size_t>(position - line) % kPieceBytes;
}

/// The end of the piece that begins at @p piece and has no line feed before @p from; null when
/// @p end comes first.
char *end_of_piece(char *piece, char *from, char *end)
{
    const bool is_whole = static_cast<std::size_t>(end - piece) >= kPieceBytes;
    char *limit = is_whole ? piece + kPieceBytes : end;
    if (char *line_feed = find_forward(from, limit, '\n'))
        return line_feed + 1;
    return is_whole ? limit : nullptr;
}

} // namespace

Converted convert_line_endings(char *text, std::size_t size_bytes, bool is_end)
{
    char *const end = text + size_bytes;
    char *piece = text;   // where a piece begins; all before it is done
    char *written = text; // the end of the result
    const auto keep = [&](char *until) {
        const std::size_t kept_bytes = static_cast<std::size_t>(until - piece);
        if (written != piece)
            std::memmove(written, piece, kept_bytes);
        written += kept_bytes;
    };

    // The pieces before the next carriage return stay as they are, whatever they are, so only
    // carriage returns are looked for. Most stand right before the line feed that ends their piece,
    // for which it is enough that the piece cannot be full between the two.
    while (char *carriage_return = find_forward(piece, end, '\r')) {
        const std::size_t distance = static_cast<std::size_t>(carriage_return - piece);
        const bool is_line_end = end - carriage_return > 1 && carriage_return[1] == '\n';
        char *next = nullptr;
        if (is_line_end && distance + 2 <= kPieceBytes) {
            next = carriage_return + 2;
        } else {
            next = end_of_piece(piece_of(piece, carriage_return), carriage_return, end);
            if (!next && !is_end)
                break;
            if (!next)
                next = end;
            carriage_return = behind_last(carriage_return, next, '\r') - 1;
        }
        keep(carriage_return);
        *written++ = '\n';
        piece = next;
    }
    char *rest = is_end ? end : piece_of(piece, end);
    keep(rest);
    return {static_cast<std::size_t>(rest - text), static_cast<std::size_t>(written - text)};
}

} // namespace qz::file
