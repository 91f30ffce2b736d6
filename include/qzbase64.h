/** @file
 *  Base64 on raw buffers (RFC 4648 section 4).
 */
#ifndef QZFILESHARED_QZBASE64_H
#define QZFILESHARED_QZBASE64_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

QZ_API int modp_b64_encode(char *dest, const char *src, int len);
QZ_API int modp_b64_decode(char *dest, const char *src, int len);

#ifdef __cplusplus
}
#endif

#endif
