/** @file
 *  Splitting a line into tokens.
 */
#ifndef QZFILESHARED_TOKENS_SPLITTER_H
#define QZFILESHARED_TOKENS_SPLITTER_H

#include "tokens/token_list.h"

namespace qz::tokens {

/// The characters that mean something to the splitter; null is the empty set, but for the
/// separators, where it stands for blank, comma and tab.
struct CharacterSets {
    const char *separators;
    const char *pairs; ///< opening and closing characters in turn
    const char *comments;
    const char *escapes;
    const char *singles;
};

/// Splits @p text. What is wrong with the line or with the pairs is reported here; the tokens are
/// those found until then.
SplitResult split(const char *text, const CharacterSets &sets);

} // namespace qz::tokens

#endif
