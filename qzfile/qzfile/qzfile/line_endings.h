#ifndef QZ_QZFILE_LINE_ENDINGS_H
#define QZ_QZFILE_LINE_ENDINGS_H

#include <cstddef>

namespace qz::file {

/// The most bytes that a line is read in at a time: what a reader with a 1 KB buffer takes.
constexpr std::size_t kPieceBytes = 1023;

/// How far a conversion came.
struct Converted {
    std::size_t read_bytes;    ///< input that is done; what follows is the beginning of a piece
    std::size_t written_bytes; ///< the result, never longer than that input
};

/// Converts the whole pieces at the beginning of @p text, in place.
///
/// A piece ends behind a line feed or after kPieceBytes. It is cut at its last carriage return, if
/// it has one, and a line feed ends what is left; any other piece stays as it is. A NUL is a byte
/// like any other.
///
/// @param is_end  Nothing follows @p text: an unfinished piece at its end is one as well.
Converted convert_line_endings(char *text, std::size_t size_bytes, bool is_end);

} // namespace qz::file

#endif
