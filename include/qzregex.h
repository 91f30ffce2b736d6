/** @file
 *  Regular expressions: compiled programs and matching.
 *
 *  A pattern is a list of alternatives separated by "|". An alternative is a sequence of pieces,
 *  and a piece is an atom followed by nothing, "*", "+" or "?". The atoms:
 *  @verbatim
        ^        the start of the text              $       the end of the text
        .        any byte                           \c      the character c itself
        [...]    any byte of the set                [^...]  any byte that is not in the set
        (...)    a group, at most nine of them      c       any other character, itself
    @endverbatim
 *  In a set "]" and "-" are literal when they come first, "-" also when it comes last, and "a-z" is
 *  a range. Bytes above 127 are ordinary bytes. There are no counted repetitions, named classes,
 *  back-references or case folding.
 *
 *  The leftmost match wins. From one start alternatives are tried in the order written, and "*",
 *  "+" and "?" take as much as they can and give back one at a time. A match takes time in
 *  proportion to the size of the program times the length of the text at worst, whatever the
 *  pattern.
 */
#ifndef QZFILESHARED_QZREGEX_H
#define QZFILESHARED_QZREGEX_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * A compiled pattern: one block, released by the caller with free(). It holds pointers into itself,
 * so it is not copied.
 */
typedef struct qz_regexp {
    /** Start of each sub-match after a successful qz_regexec(): entry 0 is the whole match, entries
     *  1 to 9 the groups in the order of their opening parenthesis; NULL for a group that took no
     *  part. A repeated group reports its last repetition. Borrowed until the text goes away. */
    const char *startp[10];
    /** One past the last byte of each sub-match; NULL where startp is. */
    const char *endp[10];
    /** The byte every match starts with, when the pattern is one alternative that begins with a
     *  literal; otherwise NUL. */
    char regstart;
    /** 1 when the pattern is one alternative that begins with "^", otherwise 0. */
    char reganch;
    /** The longest literal every match must contain, inside program; NULL for none. It is looked
     *  for only in patterns of one alternative that begin with a "*" or "+" repetition. */
    const char *regmust;
    /** Length of regmust in bytes. */
    int regmlen;
    /** Size of program in bytes. */
    int program_size;
    /** Where the matcher's own form of the program begins, in bytes from the start of the block. */
    int plan_at;
    /** The node program: a magic byte, then nodes of one opcode byte and a two-byte big-endian
     *  offset to the next node, with literal bytes inline. */
    unsigned char program[1];
} qz_regexp;

/**
 * Compiles a pattern.
 *
 * @param pattern  NUL-terminated pattern; copied.
 *
 * @return The compiled pattern, released by the caller with free(); NULL after a message
 *         "Error in regular expression: %s \n", QZERR_FATAL on handler -1, with one of the reasons
 *         "NULL argument", "regexp too big" (a program of 32767 bytes or more), "out of space",
 *         "too many ()", "unmatched ()", "junk on end", "*+ operand could be empty", "nested *?+",
 *         "invalid [] range", "unmatched []", "internal urp", "?+* follows nothing", "trailing \",
 *         "internal disaster".
 *
 * Any number of threads may compile at a time, apart from the messages, which use the handler
 * table.
 */
QZ_API qz_regexp *qz_regcomp(const char *pattern);

/**
 * Looks for the leftmost match of a compiled pattern.
 *
 * @param program  From qz_regcomp(). A match fills startp and endp, nothing else is changed.
 * @param text     NUL-terminated text to search.
 *
 * @return 1 when the pattern matches somewhere in @p text;
 *         0 when it does not, or after a message "Error in regular expression: %s \n",
 *         QZERR_FATAL on handler -1, with one of the reasons "NULL parameter", "corrupted program",
 *         "memory corruption", "corrupted pointers", "internal foulup", "out of space".
 *
 * One program serves one thread at a time; different programs may run at once.
 */
QZ_API int qz_regexec(qz_regexp *program, const char *text);

#ifdef __cplusplus
}
#endif

#endif
