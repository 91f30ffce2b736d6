/** @file
 *  Base64 on raw buffers (RFC 4648 section 4).
 *
 *  The alphabet is A to Z, a to z, 0 to 9, '+' and '/', the padding '='. Nothing else is written
 *  and nothing else is read: no line break, no blank. The calls keep no state and may run in any
 *  number of threads; they allocate nothing. Source and destination must not overlap.
 */
#ifndef QZFILESHARED_QZBASE64_H
#define QZFILESHARED_QZBASE64_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Encodes bytes into characters and a terminating NUL.
 *
 * @param[out] dest  Room for 4 x ceil(@p len / 3) + 1 characters, which are all that is written.
 * @param src        The bytes.
 * @param len        Their number; 0 or less makes an empty text.
 *
 * @return  the number of characters without the NUL, always a multiple of 4;
 *          -1 when @p len is above 1,610,612,733, whose text no int can count. Nothing is written
 *          then.
 */
QZ_API int modp_b64_encode(char *dest, const char *src, int len);

/**
 * Decodes characters into bytes. No NUL is added.
 *
 * @param[out] dest  Room for 3 x (@p len / 4 + 1) bytes, one group more than the result.
 * @param src        The characters.
 * @param len        Their number, padding included.
 *
 * @return  the number of bytes; 0 when @p len is 0;
 *          -1 when @p len is negative or no multiple of 4, when a character is outside the alphabet
 *          or when there is padding anywhere but in the last two positions. The bytes of the groups
 *          before the bad one are in @p dest then.
 */
QZ_API int modp_b64_decode(char *dest, const char *src, int len);

#ifdef __cplusplus
}
#endif

#endif
