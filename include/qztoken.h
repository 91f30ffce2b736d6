/** @file
 *  Token lists, token access and number classification.
 *
 *  A token list is a numbered list of texts: a line split by rules, or texts added one by one.
 *  Handles and token indexes count from 0. Where a call's description does not say otherwise it
 *  returns 0 for success and -1 for failure, and reports a handle that names no list, or an index
 *  that names no token, as QZERR_WARNING on handler -1. A text that is passed in is copied.
 *
 *  Call all of these functions from one thread at a time: they share one table.
 */
#ifndef QZFILESHARED_QZTOKEN_H
#define QZFILESHARED_QZTOKEN_H

#include "qzexport.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Does nothing; kept for callers of old. @return 0. */
QZ_API int qztoken_initialize(void);

/** Does nothing; kept for callers of old. @return 0. */
QZ_API int qztoken_terminate(void);

/**
 * Makes a token list and splits a line into it.
 *
 * Each character of the line is looked for in the sets, and the first set that has it decides:
 *  - a comment character ends the line; a token that it interrupts is lost;
 *  - an escape character is dropped and the character behind it taken as it is;
 *  - an opening character takes everything up to its closing character into the token, which then
 *    ends, even when it is empty; what stood directly before it is the beginning of the token;
 *  - a separator ends the token; a run of separators counts as one, and makes no empty token;
 *  - a single is a token of its own.
 *
 * @param[out] handle  The new list, released by the caller with qztoken_delete(). The highest
 *                     handle that is free is used again.
 * @param text         The line; null or empty makes an empty list.
 * @param separators   Separator characters; null stands for blank, comma and tab.
 * @param pairs        Opening and closing characters in turn, at most 9,999 pairs; null for none.
 * @param comments     Comment characters; null for none.
 * @param escapes      Escape characters; null for none.
 * @param singles      Characters that are tokens of their own; null for none.
 *
 * @return  0  made; an odd number of characters in @p pairs leaves the list empty (QZERR_FATAL), a
 *             missing closing character takes the rest of the line into the last token
 *             (QZERR_WARNING), a lack of memory ends the splitting (QZERR_FATAL);
 *         -1  @p handle is null (no message), or there is no memory for a list (QZERR_FATAL).
 */
QZ_API int qztoken_new(int *handle, const char *text, const char *separators, const char *pairs,
                       const char *comments, const char *escapes, const char *singles);

/**
 * Appends a token.
 *
 * @param handle  The list.
 * @param text    The token; null adds nothing and succeeds.
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_add(int handle, const char *text);

/**
 * Appends a token in a field of blanks that is @p width characters long, or as long as the text if
 * that is longer. What would lie outside the field is cut.
 *
 * @param handle  The list.
 * @param text    The token; null adds nothing and succeeds.
 * @param width   Length of the field, in characters.
 * @param left    Not 0: the text stands at the left end, whatever the offset.
 * @param offset  Where the text starts in the field; 0 puts it at the right end, and a negative
 *                offset cuts as many characters from its front.
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_addn(int handle, const char *text, int width, int left, int offset);

/**
 * Removes every token. The compiled patterns and the quoted characters stay.
 *
 * @param handle  The list.
 *
 * @return 0, or -1 for a bad handle.
 */
QZ_API int qztoken_clear(int handle);

/**
 * Releases a list; its handle is free for another one.
 *
 * @param handle  The list.
 *
 * @return 0, or -1 for a bad handle.
 */
QZ_API int qztoken_delete(int handle);

/**
 * Removes a token; the later ones move up.
 *
 * @param handle  The list.
 * @param index   The token.
 *
 * @return 0, or -1 for a bad handle or index.
 */
QZ_API int qztoken_delete_token(int handle, int index);

/**
 * Counts the tokens.
 *
 * @param handle  The list.
 *
 * @return their number, or -1 for a bad handle.
 */
QZ_API int qztoken_num(int handle);

/**
 * Tells whether a handle names a list.
 *
 * @param handle  Any number.
 *
 * @return the answer; nothing is reported.
 */
QZ_API bool qztoken_in_use(int handle);

/**
 * Sets the characters that make qztoken_get_string() put a token in quotes; at first that is the
 * blank.
 *
 * @param handle  The list.
 * @param text    The characters; null changes nothing.
 *
 * @return 0; for a bad handle what qzerr_throw() returned for the message, which is 1 when it was
 *         printed; -1 when memory runs out (QZERR_FATAL).
 */
QZ_API int qztoken_set_quoted_characters(int handle, const char *text);

/**
 * Clears a list and appends every token of another one. A list copied into itself is empty.
 *
 * @param destination  The list that changes.
 * @param source       The list that is read.
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_copy(int destination, int source);

/**
 * As qztoken_copy(), with each token in a field as qztoken_addn() makes it. Its messages name
 * qztoken_copy().
 *
 * @param destination  The list that changes.
 * @param source       The list that is read.
 * @param width        See qztoken_addn().
 * @param left         See qztoken_addn().
 * @param offset       See qztoken_addn().
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_copyn(int destination, int source, int width, int left, int offset);

/**
 * Tells whether a text is a number: an optional '+', an optional '-', then decimal digits within 32
 * bits for an integer, or a fixed or scientific form, an infinity or a not-a-number for a real.
 * No blank and no hexadecimal form is accepted, and no locale has a say.
 *
 * @param text  The text; null is no number.
 *
 * @return 0 no number, 1 an integer, 2 a real.
 */
QZ_API int qz_number_type(const char *text);

/**
 * Tells whether a token is a number, as qz_number_type() does.
 *
 * @param handle  The list.
 * @param index   The token.
 *
 * @return 0, 1 or 2, or -1 for a bad handle or index.
 */
QZ_API int qztoken_find_type(int handle, int index);

/**
 * Gives the text of a token.
 *
 * @param handle  The list.
 * @param index   The token.
 *
 * @return the text, borrowed until the token or the list changes; null for a bad handle or index.
 */
QZ_API const char *qztoken_get_token(int handle, int index);

/**
 * Reads a token as a whole number.
 *
 * @param handle      The list.
 * @param index       The token.
 * @param[out] value  The number; 0 when -1 is returned, and for a token that starts "+-". Null
 *                    stores nothing.
 *
 * @return 0, or -1 for a token that is no integer (no message) and for a bad handle or index.
 */
QZ_API int qztoken_get_int(int handle, int index, int *value);

/**
 * Reads a token as a number, integer or real. A '.' is the decimal point in every locale.
 *
 * @param handle      The list.
 * @param index       The token.
 * @param[out] value  The number; 0.0 when -1 is returned, and for a token that starts "+-". Null
 *                    stores nothing.
 *
 * @return 0, or -1 for a token that is no number (no message) and for a bad handle or index.
 */
QZ_API int qztoken_get_double(int handle, int index, double *value);

/**
 * Finds a token.
 *
 * @param handle  The list.
 * @param text    What to look for; upper and lower case differ.
 *
 * @return the index of the first token equal to @p text; -1 when there is none or @p text is null
 *         (no message), and for a bad handle.
 */
QZ_API int qztoken_index(int handle, const char *text);

/**
 * Finds a token by its first characters, compared as strncmp() does.
 *
 * @param handle  The list.
 * @param text    What to look for; upper and lower case differ.
 * @param n       How many characters count; a negative number compares whole texts.
 *
 * @return the index of the first such token; -1 when there is none or @p text is null (no
 *         message), and for a bad handle.
 */
QZ_API int qztoken_indexn(int handle, const char *text, int n);

/**
 * Appends every token of a list to another one. A list merged into itself has each token twice.
 *
 * @param destination  The list that changes.
 * @param source       The list that is read.
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_merge(int destination, int source);

/**
 * As qztoken_merge(), with each token in a field as qztoken_addn() makes it.
 *
 * @param destination  The list that changes.
 * @param source       The list that is read.
 * @param width        See qztoken_addn().
 * @param left         See qztoken_addn().
 * @param offset       See qztoken_addn().
 *
 * @return 0, or -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_mergen(int destination, int source, int width, int left, int offset);

/**
 * Puts another text in the place of a token.
 *
 * @param handle  The list.
 * @param index   The token.
 * @param text    The new text; it may be a part of the old one.
 *
 * @return 0; -1 when @p text is null (no message), for a bad handle or index and, as QZERR_FATAL,
 *         when memory runs out.
 */
QZ_API int qztoken_replace(int handle, int index, const char *text);

/**
 * Turns a token into lower case, byte by byte as tolower() does.
 *
 * @param handle  The list.
 * @param index   The token.
 *
 * @return the length of the token; for a bad handle or index what qzerr_throw() returned for the
 *         message, which is 1 when it was printed.
 */
QZ_API int qztoken_tolower_token(int handle, int index);

/**
 * Turns every token into upper case, byte by byte as toupper() does.
 *
 * @param handle  The list.
 *
 * @return 0, or -1 for a bad handle.
 */
QZ_API int qztoken_toupper(int handle);

/**
 * Compiles every token as a wildcard, for qztoken_regex_index(). The patterns stay as they are when
 * the tokens change.
 *
 * '?' stands for any character, '*' for any text, '#' for a digit, and '.' for itself. Blanks
 * behind a '*' are dropped. A backslash takes the meaning from one of "[]+#()"; before any other
 * character it is a backslash. All else has the meaning of qz_regcomp(). A wildcard matches every
 * text that begins with a match.
 *
 * @param handle  The list.
 *
 * @return 0, also when a wildcard is malformed or longer than 10,000 bytes as an expression: that
 *         is reported as QZERR_FATAL, and the wildcard matches nothing;
 *         -1 for a bad handle or, as QZERR_FATAL, when memory runs out.
 */
QZ_API int qztoken_regex_compile(int handle);

/**
 * Finds the first wildcard that matches a text.
 *
 * @param handle  The list.
 * @param text    The text; null is reported by the matcher, once for each wildcard.
 *
 * @return the index of the wildcard; -1 when none matches, for a bad handle, and when the number of
 *         tokens is not the number of compiled patterns (QZERR_WARNING).
 */
QZ_API int qztoken_regex_index(int handle, const char *text);

/**
 * Joins the tokens into one line, with a blank between two. A token that is empty or has one of the
 * list's quoted characters stands in double quotes.
 *
 * @param handle  The list.
 *
 * @return the line, released by the caller with free(); null for a bad handle or, as QZERR_FATAL,
 *         when memory runs out.
 */
QZ_API char *qztoken_get_string(int handle);

#ifdef __cplusplus
}
#endif

#endif
