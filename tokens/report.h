/** @file
 *  The messages that several token calls share.
 */
#ifndef QZFILESHARED_TOKENS_REPORT_H
#define QZFILESHARED_TOKENS_REPORT_H

namespace qz::tokens {

/// The handler on which the library itself reports.
constexpr int kLibraryHandler = -1;

/// Each reports a fault of the call named @p call and returns what the throw returned, which some
/// calls hand on to their callers.
int report_bad_handle(const char *call, int handle);
/// @p role tells which of two lists is meant: "dest" or "source".
int report_bad_handle(const char *call, const char *role, int handle);
/// @p indent is the number of blanks before the second line.
int report_bad_index(const char *call, int index, int count, int indent);
/// There is no memory for another token.
int report_full_list();

} // namespace qz::tokens

#endif
