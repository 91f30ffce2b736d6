#include "qzcommon.h"

#include <algorithm>
#include <cstring>

int qzcommon_prepare_str_for_shell(char *str, int size)
{
    if (str == nullptr || str[0] == '\0')
        return -1;
    const std::size_t len = std::strlen(str);
    if (str[len - 1] == '/' || str[len - 1] == '\\')
        return -1;

    const auto quotes = static_cast<std::size_t>(std::count(str, str + len, '"'));
    const std::size_t marks = str[0] == '\\' ? 3 : 2;
    const std::size_t capacity = size > 0 ? static_cast<std::size_t>(size) : 0;
    if (capacity < len + marks || capacity < len + quotes || len + quotes < 2)
        return -1;

    // With every '"' escaped, the text begins with a backslash in two cases. The opening quote goes
    // behind that first character, which is doubled.
    const bool starts_with_quote = str[0] == '"';
    const bool doubled = starts_with_quote || str[0] == '\\';

    // From the end to the start: what is written stands at or behind what is still to be read.
    char *to = str + len + quotes + 2 + (doubled ? 1 : 0);
    *to = '\0';
    *--to = '"';
    const char *const rest = starts_with_quote ? str : str + 1;
    for (const char *from = str + len; from != rest;) {
        *--to = *--from;
        if (*from == '"' && from != str)
            *--to = '\\';
    }
    *--to = '"';
    if (doubled)
        *--to = '\\';
    if (starts_with_quote)
        *--to = '\\';
    return 0;
}
