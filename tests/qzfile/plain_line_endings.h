#pragma once

#include <string>

namespace qz::test {

/// The conversion of a whole file, piece by piece as a line reader with a 1024-byte buffer meets
/// them.
inline std::string plain_line_endings(const std::string &file)
{
    std::string result;
    std::string piece;
    const auto finish = [&] {
        const std::size_t carriage_return = piece.rfind('\r');
        result +=
            carriage_return == std::string::npos ? piece : piece.substr(0, carriage_return) + '\n';
        piece.clear();
    };
    for (const char c : file) {
        piece += c;
        if (c == '\n' || piece.size() == 1023)
            finish();
    }
    finish();
    return result;
}

} // namespace qz::test
