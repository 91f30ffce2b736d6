// The exported calls that match texts with the wildcards of a list.

#include "qzerr.h"
#include "qztoken.h"
#include "tokens/list_calls.h"

using namespace qz::tokens;

int qztoken_regex_compile(int handle)
{
    TokenList *list = list_or_report("qztoken_regex_compile", handle);
    if (list == nullptr)
        return -1;
    list->patterns.clear();
    return with_memory([=] {
        list->patterns.reserve(static_cast<std::size_t>(list->count()));
        for (int i = 0; i < list->count(); ++i)
            list->patterns.emplace_back(list->token(i));
    });
}

int qztoken_regex_index(int handle, const char *text)
{
    const TokenList *list = find_list(handle);
    if (list == nullptr) {
        qzerr_throw(kLibraryHandler, QZERR_WARNING, "qztoken_regex_index():bad tok index = %d\n",
                    handle);
        return -1;
    }
    const std::vector<Wildcard> &patterns = list->patterns;
    if (patterns.size() != static_cast<std::size_t>(list->count())) {
        qzerr_throw(kLibraryHandler, QZERR_WARNING,
                    "qztoken_regex_index(): not enough regular expressions\n");
        qzerr_throw(kLibraryHandler, QZERR_WARNING,
                    "                      : call qztoken_regex_compile() first\n");
        return -1;
    }
    const Subject subject(text);
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        if (patterns[i].matches(subject))
            return static_cast<int>(i);
    }
    return -1;
}
