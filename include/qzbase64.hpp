/** @file
 *  Base64 on strings (RFC 4648 section 4): the rules of qzbase64.h for texts of any length.
 *
 *  The forms that take a length or a std::string have no limit but memory. std::bad_alloc and
 *  std::length_error are the only exceptions.
 */
#ifndef QZFILESHARED_QZBASE64_HPP
#define QZFILESHARED_QZBASE64_HPP

#include "qzbase64.h"
#include "qzexport.h"

#include <cstddef>
#include <string>

namespace modp {

/**
 * Encodes a NUL-terminated text; null counts as empty.
 *
 * Its length is taken as a 32-bit number: of a text of 4 GiB or more, only the remainder is
 * encoded. Such texts go through the form with a length.
 *
 * @return  the encoding.
 */
QZ_API std::string b64_encode(const char *text);

/**
 * Encodes @p len bytes.
 *
 * @return  the encoding, 4 x ceil(@p len / 3) characters.
 */
QZ_API std::string b64_encode(const char *data, std::size_t len);

/** Encodes the content of @p data and returns the encoding. */
QZ_API std::string b64_encode(const std::string &data);

/**
 * Replaces the content of a string by its encoding. A string that is not const comes here.
 *
 * @return  @p data itself.
 */
QZ_API std::string &b64_encode(std::string &data);

/**
 * Decodes a NUL-terminated text; null counts as empty.
 *
 * @return  the bytes, NULs among them; empty when the text is not Base64.
 */
QZ_API std::string b64_decode(const char *text);

/**
 * Decodes @p len characters.
 *
 * @return  the bytes, NULs among them; empty when the text is not Base64.
 */
QZ_API std::string b64_decode(const char *data, std::size_t len);

/** Decodes the content of @p text; the result is empty when it is not Base64. */
QZ_API std::string b64_decode(const std::string &text);

/**
 * Replaces the content of a string by the bytes it encodes, and by nothing when it is not Base64.
 * A string that is not const comes here.
 *
 * @return  @p text itself.
 */
QZ_API std::string &b64_decode(std::string &text);

} // namespace modp

#endif
