#ifndef QZ_COMMON_BASE64_VECTOR_H
#define QZ_COMMON_BASE64_VECTOR_H

#include <cstddef>

/// Sixteen characters at a time, where compiler and processor can. Each call takes as many groups
/// as it can from the front and leaves the rest to the tables; elsewhere it takes none.
namespace qz::base64 {

/// Encodes groups from the front, and writes their characters and nothing else.
/// @return the number of groups encoded.
std::size_t encode_groups_by_vector(char *dest, const char *src, std::size_t groups);

/// Decodes groups from the front, never past a bad one, and leaves @p dest as the tables would:
/// n decoded groups write n x 3 bytes and a 0.
/// @return the number of groups decoded; it may stop short of a bad group.
std::size_t decode_groups_by_vector(char *dest, const char *src, std::size_t groups);

} // namespace qz::base64

#endif
