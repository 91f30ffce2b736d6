// The exported calls that read, search and edit tokens.

#include "qztoken.h"
#include "tokens/list_calls.h"
#include "tokens/number.h"

#include <cctype>
#include <cstring>

using namespace qz::tokens;

namespace {

/// Blanks before the second line of a bad-index message; one call has another number.
constexpr int kIndexIndent = 17;
constexpr int kFindTypeIndent = 21;

/// The list that has the token, or null.
TokenList *list_with(int handle, int index)
{
    TokenList *list = find_list(handle);
    return list != nullptr && list->holds(index) ? list : nullptr;
}

/// Reports which of the two is missing, list or token; returns -1.
[[gnu::cold, gnu::noinline]] int report_missing(const char *call, int handle, int index,
                                                int indent = kIndexIndent)
{
    const TokenList *list = list_or_report(call, handle);
    if (list != nullptr)
        report_bad_index(call, index, list->count(), indent);
    return -1;
}

template <typename Predicate> int index_of_first(const TokenList &list, Predicate matches)
{
    for (int i = 0; i < list.count(); ++i) {
        if (matches(list.token(i)))
            return i;
    }
    return -1;
}

/// The standard case functions want the byte as an unsigned number.
template <int (*convert)(int)> std::size_t convert_case(char *token)
{
    char *c = token;
    for (; *c != '\0'; ++c)
        *c = static_cast<char>(convert(static_cast<unsigned char>(*c)));
    return static_cast<std::size_t>(c - token);
}

template <typename Value> void store(Value *out, Value value)
{
    if (out != nullptr)
        *out = value;
}

} // namespace

int qz_number_type(const char *text)
{
    return text != nullptr ? static_cast<int>(number_type(text)) : 0;
}

int qztoken_find_type(int handle, int index)
{
    TokenList *list = list_with(handle, index);
    if (list == nullptr)
        return report_missing("qztoken_find_type", handle, index, kFindTypeIndent);
    return static_cast<int>(list->number(index).type);
}

const char *qztoken_get_token(int handle, int index)
{
    const TokenList *list = list_with(handle, index);
    if (list != nullptr)
        return list->token(index);
    report_missing("qztoken_get_token", handle, index);
    return nullptr;
}

int qztoken_get_int(int handle, int index, int *value)
{
    store(value, 0);
    TokenList *list = list_with(handle, index);
    if (list == nullptr)
        return report_missing("qztoken_get_int", handle, index);
    const Number number = list->number(index);
    if (number.type != NumberType::Integer)
        return -1;
    store(value, number.integer);
    return 0;
}

int qztoken_get_double(int handle, int index, double *value)
{
    store(value, 0.0);
    TokenList *list = list_with(handle, index);
    if (list == nullptr)
        return report_missing("qztoken_get_double", handle, index);
    const Number number = list->number(index);
    if (number.type == NumberType::None)
        return -1;
    store(value, number.real);
    return 0;
}

int qztoken_index(int handle, const char *text)
{
    const TokenList *list = list_or_report("qztoken_index", handle);
    if (list == nullptr || text == nullptr)
        return -1;
    return index_of_first(*list, [=](const char *token) { return std::strcmp(token, text) == 0; });
}

int qztoken_indexn(int handle, const char *text, int n)
{
    const TokenList *list = list_or_report("qztoken_indexn", handle);
    if (list == nullptr || text == nullptr)
        return -1;
    const auto length = static_cast<std::size_t>(n); // a negative one compares whole texts
    return index_of_first(
        *list, [=](const char *token) { return std::strncmp(token, text, length) == 0; });
}

int qztoken_replace(int handle, int index, const char *text)
{
    TokenList *list = list_with(handle, index);
    if (list == nullptr)
        return report_missing("qztoken_replace", handle, index);
    if (text == nullptr)
        return -1;
    return with_memory([=] { list->replace(index, text); });
}

int qztoken_tolower_token(int handle, int index)
{
    constexpr const char *kCall = "qztoken_tolower_token";
    TokenList *list = find_list(handle);
    if (list == nullptr)
        return report_bad_handle(kCall, handle); // the throw's result
    if (!list->holds(index))
        return report_bad_index(kCall, index, list->count(), kIndexIndent);
    return static_cast<int>(list->edit(index, convert_case<std::tolower>));
}

int qztoken_toupper(int handle)
{
    TokenList *list = list_or_report("qztoken_toupper", handle);
    if (list == nullptr)
        return -1;
    for (int i = 0; i < list->count(); ++i)
        list->edit(i, convert_case<std::toupper>);
    return 0;
}
