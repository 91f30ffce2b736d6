/** @file
 *  What the exported token calls share.
 */
#ifndef QZFILESHARED_TOKENS_LIST_CALLS_H
#define QZFILESHARED_TOKENS_LIST_CALLS_H

#include "tokens/report.h"
#include "tokens/token_table.h"

#include <new>

namespace qz::tokens {

/// The list that @p handle names; null after a report.
inline TokenList *list_or_report(const char *call, int handle)
{
    TokenList *list = find_list(handle);
    if (list == nullptr)
        report_bad_handle(call, handle);
    return list;
}

/// The two lists of a call that copies tokens; the first fault is the one reported.
struct ListPair {
    TokenList *destination;
    TokenList *source = nullptr;

    ListPair(const char *call, int destination_handle, int source_handle)
        : destination(find_list(destination_handle))
    {
        if (destination == nullptr)
            report_bad_handle(call, "dest", destination_handle);
        else if ((source = find_list(source_handle)) == nullptr)
            report_bad_handle(call, "source", source_handle);
    }

    explicit operator bool() const { return source != nullptr; }
};

/// Runs @p change, which takes memory for a token.
/// @return 0, or -1 after a report when there is none.
template <typename Change> int with_memory(Change change)
{
    try {
        change();
        return 0;
    } catch (const std::bad_alloc &) {
        report_full_list();
        return -1;
    }
}

/// Calls @p append with each token that the source has now; when source and destination are one
/// list, the tokens that are appended meanwhile are not copied again.
template <typename Append> int append_each(const ListPair &lists, Append append)
{
    return with_memory([&] {
        const int count = lists.source->count();
        for (int i = 0; i < count; ++i)
            append(lists.source->token(i));
    });
}

} // namespace qz::tokens

#endif
