/** @file
 *  Base64 on strings (RFC 4648 section 4).
 */
#ifndef QZFILESHARED_QZBASE64_HPP
#define QZFILESHARED_QZBASE64_HPP

#include "qzbase64.h"
#include "qzexport.h"

#include <cstddef>
#include <string>

namespace modp {
QZ_API std::string b64_encode(const char *text);
QZ_API std::string b64_encode(const char *data, std::size_t len);
QZ_API std::string b64_encode(const std::string &data);
QZ_API std::string &b64_encode(std::string &data);
QZ_API std::string b64_decode(const char *text);
QZ_API std::string b64_decode(const char *data, std::size_t len);
QZ_API std::string b64_decode(const std::string &text);
QZ_API std::string &b64_decode(std::string &text);
} // namespace modp

#endif
