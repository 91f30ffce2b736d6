/** @file
 *  Wildcards as regular expressions.
 */
#ifndef QZFILESHARED_TOKENS_WILDCARD_H
#define QZFILESHARED_TOKENS_WILDCARD_H

#include "tokens/token_list.h"

namespace qz::tokens {

/// Compiles a wildcard: '?' any character, '*' any text, '#' a digit. It matches every text that
/// begins with a match.
/// @return null after a report when it is too long or malformed.
Program compile_wildcard(const char *wildcard);

} // namespace qz::tokens

#endif
