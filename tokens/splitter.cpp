#include "tokens/splitter.h"

#include "qzerr.h"
#include "tokens/character_roles.h"
#include "tokens/report.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace qz::tokens {
namespace {

constexpr const char *kDefaultSeparators = " ,\t";

/// A guess at the length of a token with its separator, for the first reservation of token slots.
constexpr std::size_t kUsualTokenSize = 8;

std::string_view set_or_empty(const char *set)
{
    return set != nullptr ? std::string_view(set) : std::string_view();
}

/// Each token needs its characters and a terminator. A terminator takes the place of a separator,
/// of a pair's closing character or of the line's end, except around a single-character token,
/// which adds its own and that of the token it ends. The last one is as long as a padding.
std::size_t block_size_for(std::string_view text, const CharacterRoles &roles, bool with_singles)
{
    std::size_t size = text.size() + kPaddingSize;
    if (with_singles)
        size += 2 * static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [&](char c) {
                    return roles.of(c) == Role::Single;
                }));
    return size;
}

const char *skip_separators(const char *in, const CharacterRoles &roles)
{
    while (roles.is_separator(*in))
        ++in;
    return in;
}

/// The end of the quoted characters at @p in: the closing character, or the line's end with a
/// report.
const char *find_closing(const char *in, char opening, char closing, std::string_view text)
{
    const auto rest = text.substr(static_cast<std::size_t>(in - text.data()));
    const std::size_t length = rest.find(closing);
    if (length != std::string_view::npos)
        return in + length;
    qzerr_throw(kLibraryHandler, QZERR_WARNING,
                " qztoken_new(), unmatched separator pair %c <-> %c in input: %s \n", opening,
                closing, text.data());
    return in + rest.size();
}

/// Goes over the line once. The tokens are written behind each other into the block, which is
/// large enough for all of them.
void split_into(SplitResult &result, std::string_view text, const CharacterRoles &roles)
{
    const char *in = text.data();
    char *out = result.block.get();
    char *token = out;
    const auto end_token = [&] {
        if (result.tokens.size() == std::numeric_limits<int>::max())
            throw std::bad_alloc(); // callers count in int
        *out++ = '\0';
        result.tokens.push_back(token);
        token = out;
    };
    const auto has_characters = [&] { return out != token; };

    for (;;) {
        const char c = *in;
        switch (roles.of(c)) {
        case Role::Ordinary:
            do
                *out++ = *in++;
            while (roles.is_ordinary(*in));
            break;
        case Role::Separator:
            in = skip_separators(in, roles);
            if (has_characters())
                end_token();
            break;
        case Role::Opening: {
            const char *closing = find_closing(++in, c, roles.closing(c), text);
            out = std::copy(in, closing, out);
            in = closing;
            if (*in == '\0')
                break; // unmatched: what was collected is the last token
            in = skip_separators(in + 1, roles);
            end_token(); // even an empty one
            break;
        }
        case Role::Single:
            if (has_characters())
                end_token();
            *out++ = *in++;
            end_token();
            break;
        case Role::Escape:
            if (*++in != '\0')
                *out++ = *in++;
            break;
        case Role::Comment:
            return; // and the token in progress is lost
        case Role::End:
            if (has_characters())
                end_token();
            return;
        }
    }
}

/// Pads the last token, and gives back what a line of long comments or few tokens did not need.
void finish(SplitResult &result)
{
    std::vector<char *> &tokens = result.tokens;
    if (tokens.empty()) {
        result = SplitResult();
        return;
    }
    if (tokens.capacity() / 2 > tokens.size() + kUsualTokenSize)
        tokens.shrink_to_fit();
    const char *start = result.block.get();
    char *end = tokens.back() + std::char_traits<char>::length(tokens.back());
    std::memset(end, '\0', kPaddingSize);
    const auto used = static_cast<std::size_t>(end - start) + kPaddingSize;
    if (used > result.block_size / 2)
        return;
    std::unique_ptr<char[]> block(new (std::nothrow) char[used]);
    if (block == nullptr)
        return;
    std::copy_n(start, used, block.get());
    for (char *&token : tokens)
        token = block.get() + (token - start);
    result.block = std::move(block);
    result.block_size = used;
}

} // namespace

SplitResult split(const char *line, const CharacterSets &sets)
{
    const std::string_view text(line);
    const std::string_view pairs = set_or_empty(sets.pairs);
    const std::string_view singles = set_or_empty(sets.singles);
    SplitResult result;
    if (pairs.size() % 2 != 0) {
        qzerr_throw(kLibraryHandler, QZERR_FATAL,
                    " qztoken_new(): an even number of pair separators must supplied\n");
        return result;
    }

    const CharacterRoles roles(sets.separators != nullptr ? sets.separators : kDefaultSeparators,
                               pairs, set_or_empty(sets.comments), set_or_empty(sets.escapes),
                               singles);
    result.block_size = block_size_for(text, roles, !singles.empty());
    result.block.reset(new (std::nothrow) char[result.block_size]);
    if (result.block == nullptr) {
        qzerr_throw(kLibraryHandler, QZERR_FATAL,
                    "qztoken_new(): failed to allocate memory for the token.\n");
        return SplitResult();
    }
    try {
        result.tokens.reserve(text.size() / kUsualTokenSize + 1);
        split_into(result, text, roles);
        finish(result);
    } catch (const std::bad_alloc &) {
        report_full_list();
    }
    return result;
}

} // namespace qz::tokens
