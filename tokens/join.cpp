// Joining a list back into one line.

#include "qzerr.h"
#include "qztoken.h"
#include "tokens/list_calls.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace qz::tokens;

namespace {

/// Marks the bytes that call for quotes, and the terminator, so that one look finds either.
class QuoteFinder {
public:
    explicit QuoteFinder(std::string_view quoted_characters)
    {
        stops_[0] = true;
        for (char c : quoted_characters)
            stops_[static_cast<unsigned char>(c)] = true;
    }

    bool needs_quotes(const char *token) const
    {
        const char *c = token;
        while (!stops_[static_cast<unsigned char>(*c)])
            ++c;
        return *c != '\0' || c == token;
    }

private:
    std::array<bool, 256> stops_{};
};

char *append(char *out, const char *token, bool quoted)
{
    const std::size_t length = std::strlen(token);
    if (quoted)
        *out++ = '"';
    out = std::copy_n(token, length, out);
    if (quoted)
        *out++ = '"';
    return out;
}

char *fail(const char *message)
{
    qzerr_throw(kLibraryHandler, QZERR_FATAL, "%s", message);
    return nullptr;
}

} // namespace

char *qztoken_get_string(int handle)
{
    const TokenList *list = list_or_report("qztoken_get_string", handle);
    if (list == nullptr)
        return nullptr;
    const int count = list->count();
    const std::unique_ptr<bool[]> need_quotes(
        new (std::nothrow) bool[static_cast<std::size_t>(count)]);
    if (need_quotes == nullptr)
        return fail("qztoken_get_string(): can't allocate need_quotes array\n");

    const QuoteFinder finder(list->quoted_characters);
    std::size_t size = 0;
    for (int i = 0; i < count; ++i) {
        need_quotes[static_cast<std::size_t>(i)] = finder.needs_quotes(list->token(i));
        size += std::strlen(list->token(i)) + 1;
        size += need_quotes[static_cast<std::size_t>(i)] ? 2 : 0;
    }
    char *line = static_cast<char *>(std::malloc(std::max<std::size_t>(size, 1)));
    if (line == nullptr)
        return fail("qztoken_get_string(): can't allocate string\n");

    char *out = line;
    for (int i = 0; i < count; ++i) {
        if (i != 0)
            *out++ = ' ';
        out = append(out, list->token(i), need_quotes[static_cast<std::size_t>(i)]);
    }
    *out = '\0';
    return line;
}
