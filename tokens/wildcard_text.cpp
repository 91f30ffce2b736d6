#include "tokens/wildcard_text.h"

namespace qz::tokens {
namespace {

/// Whether a backslash before @p c makes it literal; before others it is itself literal.
bool is_escapable(char c)
{
    return c != '\0' && std::string_view("[]+#()").find(c) != std::string_view::npos;
}

/// Goes on from a star to the last of the blanks behind it, which mean nothing.
const char *last_of_star(const char *star)
{
    while (star[1] == ' ')
        ++star;
    return star;
}

} // namespace

WildcardExpression::WildcardExpression(const char *wildcard)
{
    add("^");
    for (const char *in = wildcard; *in != '\0' && fits_; ++in) {
        switch (*in) {
        case '?':
            add(".");
            break;
        case '*':
            add(".*");
            in = last_of_star(in);
            break;
        case '#':
            add("[0-9]");
            break;
        case '.':
            add("\\.");
            break;
        case '\\':
            if (is_escapable(in[1]))
                add({in++, 2});
            else
                add("\\\\");
            break;
        default:
            add({in, 1});
        }
    }
    buffer_[length_] = '\0';
}

void WildcardExpression::add(std::string_view text)
{
    fits_ = fits_ && text.size() < buffer_.size() - length_;
    if (fits_)
        length_ += text.copy(buffer_.data() + length_, text.size());
}

std::string wildcard_parts(const char *wildcard)
{
    std::string parts;
    bool in_first = true;
    for (const char *in = wildcard; *in != '\0'; ++in) {
        switch (*in) {
        case '?':
        case '#':
            if (!in_first)
                return "";
            parts += *in == '?' ? kAnyCharacter : kAnyDigit;
            break;
        case '*':
            if (in_first || parts.back() != '\0')
                parts += '\0';
            in_first = false;
            in = last_of_star(in);
            break;
        case '\\':
            parts += is_escapable(in[1]) ? *++in : '\\';
            break;
        case '[':
        case ']':
        case '+':
        case '(':
        case ')':
        case '|':
        case '^':
        case '$':
        case kAnyCharacter:
        case kAnyDigit:
            return "";
        default:
            parts += *in;
        }
    }
    if (in_first || parts.back() != '\0')
        parts += '\0';
    return parts;
}

} // namespace qz::tokens
