// The exported calls that make, fill and release token lists.

#include "tokens/list_calls.h"

#include "qztoken.h"
#include "tokens/splitter.h"

#include <utility>

using namespace qz::tokens;

int qztoken_initialize(void)
{
    return 0;
}

int qztoken_terminate(void)
{
    return 0;
}

int qztoken_new(int *handle, const char *text, const char *separators, const char *pairs,
                const char *comments, const char *escapes, const char *singles)
{
    if (handle == nullptr)
        return -1;
    int made = -1;
    const int status = with_memory([&] { *handle = made = token_table().create(); });
    if (status != 0 || text == nullptr || *text == '\0')
        return status;
    // Splitting may report, and whoever listens may use the lists.
    SplitResult tokens = split(text, {separators, pairs, comments, escapes, singles});
    if (TokenList *list = find_list(made))
        list->adopt(std::move(tokens));
    return 0;
}

int qztoken_add(int handle, const char *text)
{
    TokenList *list = list_or_report("qztoken_add", handle);
    if (list == nullptr)
        return -1;
    if (text == nullptr)
        return 0;
    return with_memory([=] { list->append(text); });
}

int qztoken_addn(int handle, const char *text, int width, int left, int offset)
{
    TokenList *list = list_or_report("qztoken_add", handle);
    if (list == nullptr)
        return -1;
    if (text == nullptr)
        return 0;
    return with_memory([=] { list->append_field(text, width, left != 0, offset); });
}

int qztoken_clear(int handle)
{
    TokenList *list = list_or_report("qztoken_clear", handle);
    if (list == nullptr)
        return -1;
    list->clear();
    return 0;
}

int qztoken_delete(int handle)
{
    if (list_or_report("qztoken_delete", handle) == nullptr)
        return -1;
    token_table().erase(handle);
    return 0;
}

int qztoken_delete_token(int handle, int index)
{
    TokenList *list = list_or_report("qztoken_delete_token", handle);
    if (list == nullptr)
        return -1;
    if (!list->holds(index)) {
        report_bad_index("qztoken_delete_token", index, list->count(), 22);
        return -1;
    }
    list->remove(index);
    return 0;
}

int qztoken_num(int handle)
{
    const TokenList *list = list_or_report("qztoken_num", handle);
    return list != nullptr ? list->count() : -1;
}

bool qztoken_in_use(int handle)
{
    return find_list(handle) != nullptr;
}

int qztoken_set_quoted_characters(int handle, const char *text)
{
    TokenList *list = find_list(handle);
    if (list == nullptr)
        return report_bad_handle("qztoken_set_quoted_characters", handle); // the throw's result
    if (text == nullptr)
        return 0;
    return with_memory([=] { list->quoted_characters = text; });
}

int qztoken_copy(int destination, int source)
{
    const ListPair lists("qztoken_copy", destination, source);
    if (!lists)
        return -1;
    lists.destination->clear();
    return append_each(lists, [&](const char *token) { lists.destination->append(token); });
}

int qztoken_copyn(int destination, int source, int width, int left, int offset)
{
    const ListPair lists("qztoken_copy", destination, source);
    if (!lists)
        return -1;
    lists.destination->clear();
    return append_each(lists, [&](const char *token) {
        lists.destination->append_field(token, width, left != 0, offset);
    });
}

int qztoken_merge(int destination, int source)
{
    const ListPair lists("qztoken_merge", destination, source);
    if (!lists)
        return -1;
    return append_each(lists, [&](const char *token) { lists.destination->append(token); });
}

int qztoken_mergen(int destination, int source, int width, int left, int offset)
{
    const ListPair lists("qztoken_mergen", destination, source);
    if (!lists)
        return -1;
    return append_each(lists, [&](const char *token) {
        lists.destination->append_field(token, width, left != 0, offset);
    });
}
