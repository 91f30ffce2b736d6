#ifndef QZ_COMMON_BASE64_CODEC_H
#define QZ_COMMON_BASE64_CODEC_H

#include <cstddef>

/// The codec proper. Lengths are unlimited here; the public calls put their own limits on top.
namespace qz::base64 {

/// What decode returns for a text that is not Base64.
inline constexpr std::size_t kBadText = static_cast<std::size_t>(-1);

/// Encodes @p len bytes, padded to groups of 4 characters, and writes nothing else.
/// @return the number of characters.
std::size_t encode(char *dest, const char *src, std::size_t len);

/// Decodes a whole text of @p len characters. Writes at most len / 4 x 3 bytes, those before a bad
/// group included.
/// @return the number of bytes, or kBadText.
std::size_t decode(char *dest, const char *src, std::size_t len);

/// Encodes @p groups x 3 bytes into @p groups x 4 characters, and writes nothing else.
void encode_groups(char *dest, const char *src, std::size_t groups);

/// Decodes @p groups x 4 characters, none of them padding, up to the first bad group.
///
/// Each group is written as 4 bytes, the fourth 0, so n decoded groups write n x 3 + 1 bytes.
/// @return the number of groups decoded; less than @p groups when the next one is bad.
std::size_t decode_groups(char *dest, const char *src, std::size_t groups);

/// What encode_groups and decode_groups do on a processor that has nothing faster.
void encode_groups_by_table(char *dest, const char *src, std::size_t groups);
std::size_t decode_groups_by_table(char *dest, const char *src, std::size_t groups);

} // namespace qz::base64

#endif
