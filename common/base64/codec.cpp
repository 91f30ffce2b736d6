#include "common/base64/codec.h"

#include "common/base64/tables.h"
#include "common/base64/vector.h"

#include <cstdint>

namespace qz::base64 {

namespace {

constexpr EncodeTables kEncode = make_encode_tables();
constexpr DecodeTables kDecode = make_decode_tables();

unsigned char byte_at(const char *text, std::size_t index)
{
    return static_cast<unsigned char>(text[index]);
}

/// The character for the 6 bits that begin with the low bits of @p left.
char middle_character(unsigned left, unsigned right)
{
    return kEncode.middle[static_cast<unsigned char>(left | right)];
}

/// A group's word, kBadCharacter or more when a character is bad.
std::uint32_t decode_word(const char *src)
{
    return kDecode.first[byte_at(src, 0)] | kDecode.second[byte_at(src, 1)] |
           kDecode.third[byte_at(src, 2)] | kDecode.fourth[byte_at(src, 3)];
}

/// Byte by byte, so that the order in memory is the same on every machine; where it is the
/// machine's own order the compiler makes one store of it.
void store_word(char *dest, std::uint32_t word)
{
    dest[0] = static_cast<char>(word);
    dest[1] = static_cast<char>(word >> 8);
    dest[2] = static_cast<char>(word >> 16);
    dest[3] = static_cast<char>(word >> 24);
}

/// Encodes the last 1 or 2 bytes, padded to 4 characters.
void encode_tail(char *dest, const char *src, std::size_t len)
{
    const unsigned a = byte_at(src, 0);
    const unsigned b = len == 1 ? 0 : byte_at(src, 1);
    dest[0] = kEncode.first[a];
    dest[1] = middle_character(a << 4, b >> 4);
    dest[2] = len == 1 ? kPadding : middle_character(b << 2, 0);
    dest[3] = kPadding;
}

/// Decodes the last 4 characters of a text, of which one or two may be padding.
/// @return the number of bytes written, 1 to 3, or 0 for a bad group, which writes nothing.
std::size_t decode_last_group(char *dest, const char *src)
{
    // Padding stands for no bits, as 'A' does; elsewhere in the group it is a bad character.
    std::size_t significant = 4;
    char group[] = {src[0], src[1], src[2], src[3]};
    while (significant > 2 && group[significant - 1] == kPadding)
        group[--significant] = kAlphabet[0];

    const std::uint32_t word = decode_word(group);
    if (word >= kBadCharacter)
        return 0;
    const std::size_t bytes = significant * 6 / 8;
    for (std::size_t i = 0; i < bytes; ++i)
        dest[i] = static_cast<char>(word >> (8 * i));
    return bytes;
}

} // namespace

void encode_groups_by_table(char *dest, const char *src, std::size_t groups)
{
    for (; groups != 0; --groups, src += 3, dest += 4) {
        const unsigned a = byte_at(src, 0);
        const unsigned b = byte_at(src, 1);
        const unsigned c = byte_at(src, 2);
        dest[0] = kEncode.first[a];
        dest[1] = middle_character(a << 4, b >> 4);
        dest[2] = middle_character(b << 2, c >> 6);
        dest[3] = kEncode.last[c];
    }
}

void encode_groups(char *dest, const char *src, std::size_t groups)
{
    const std::size_t done = encode_groups_by_vector(dest, src, groups);
    encode_groups_by_table(dest + 4 * done, src + 3 * done, groups - done);
}

std::size_t decode_groups_by_table(char *dest, const char *src, std::size_t groups)
{
    for (std::size_t i = 0; i < groups; ++i, src += 4, dest += 3) {
        const std::uint32_t word = decode_word(src);
        if (word >= kBadCharacter)
            return i;
        store_word(dest, word);
    }
    return groups;
}

std::size_t decode_groups(char *dest, const char *src, std::size_t groups)
{
    const std::size_t done = decode_groups_by_vector(dest, src, groups);
    return done + decode_groups_by_table(dest + 3 * done, src + 4 * done, groups - done);
}

std::size_t encode(char *dest, const char *src, std::size_t len)
{
    const std::size_t groups = len / 3;
    encode_groups(dest, src, groups);
    if (len % 3 == 0)
        return 4 * groups;
    encode_tail(dest + 4 * groups, src + 3 * groups, len % 3);
    return 4 * groups + 4;
}

std::size_t decode(char *dest, const char *src, std::size_t len)
{
    if (len == 0)
        return 0;
    if (len % 4 != 0)
        return kBadText;
    const std::size_t before_last = len / 4 - 1;
    if (decode_groups(dest, src, before_last) != before_last)
        return kBadText;
    const std::size_t last = decode_last_group(dest + 3 * before_last, src + 4 * before_last);
    return last == 0 ? kBadText : 3 * before_last + last;
}

} // namespace qz::base64
