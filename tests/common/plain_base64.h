#pragma once

#include <string>

namespace qz::test {

inline const std::string kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Base64 bit by bit: slow, and nothing like the code under test.
inline std::string plain_encode(const std::string &data)
{
    std::string out;
    for (std::size_t bit = 0; bit < data.size() * 8; bit += 6) {
        unsigned value = 0;
        for (std::size_t i = bit; i < bit + 6; ++i) {
            const unsigned byte = i / 8 < data.size() ? static_cast<unsigned char>(data[i / 8]) : 0;
            value = value * 2 + (byte >> (7 - i % 8) & 1);
        }
        out += kBase64Alphabet[value];
    }
    while (out.size() % 4 != 0)
        out += '=';
    return out;
}

} // namespace qz::test
