#ifndef QZ_COMMON_BASE64_TABLES_H
#define QZ_COMMON_BASE64_TABLES_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace qz::base64 {

inline constexpr char kAlphabet[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
inline constexpr std::size_t kAlphabetSize = sizeof(kAlphabet) - 1;
inline constexpr char kPadding = '=';

/// What a decode table holds for a character outside the alphabet. Good words stay below 2^24, so
/// an OR of four words reaches this value exactly when one of them is the marker.
inline constexpr std::uint32_t kBadCharacter = 0x01FFFFFF;

/// The characters of a 3-byte group. A middle position is looked up by its 6 bits with two
/// neighbours still above them, the last by a whole byte: the tables repeat every 64 entries, which
/// saves the masks.
struct EncodeTables {
    std::array<char, 256> first{};
    std::array<char, 256> middle{};
    std::array<char, 256> last{};
};

/// The 6 bits of each character of a 4-character group, moved to where they belong in a 3-byte
/// result whose first byte is the lowest of the word.
struct DecodeTables {
    std::array<std::uint32_t, 256> first{};
    std::array<std::uint32_t, 256> second{};
    std::array<std::uint32_t, 256> third{};
    std::array<std::uint32_t, 256> fourth{};
};

constexpr EncodeTables make_encode_tables()
{
    EncodeTables tables;
    for (std::size_t byte = 0; byte < 256; ++byte) {
        tables.first[byte] = kAlphabet[byte >> 2];
        tables.middle[byte] = kAlphabet[byte % kAlphabetSize];
        tables.last[byte] = kAlphabet[byte % kAlphabetSize];
    }
    return tables;
}

constexpr DecodeTables make_decode_tables()
{
    DecodeTables tables;
    for (std::size_t byte = 0; byte < 256; ++byte) {
        tables.first[byte] = kBadCharacter;
        tables.second[byte] = kBadCharacter;
        tables.third[byte] = kBadCharacter;
        tables.fourth[byte] = kBadCharacter;
    }
    for (std::uint32_t value = 0; value < kAlphabetSize; ++value) {
        const auto character = static_cast<unsigned char>(kAlphabet[value]);
        tables.first[character] = value << 2;
        tables.second[character] = (value >> 4) | (value & 0x0F) << 12;
        tables.third[character] = (value >> 2) << 8 | (value & 0x03) << 22;
        tables.fourth[character] = value << 16;
    }
    return tables;
}

} // namespace qz::base64

#endif
