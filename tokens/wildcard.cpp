#include "tokens/wildcard.h"

#include "qzerr.h"
#include "tokens/report.h"
#include "tokens/wildcard_text.h"

#include <cstring>

namespace qz::tokens {
namespace {

std::uint64_t kind_of(char c)
{
    return std::uint64_t{1} << (static_cast<unsigned char>(c) % 64);
}

/// Takes the characters of @p part from the start of @p text.
/// @return what is behind them; null when they differ.
const char *skip_first_part(const char *text, const char *part)
{
    for (; *part != '\0'; ++part, ++text) {
        if (*part == kAnyCharacter ? *text == '\0'
            : *part == kAnyDigit   ? *text < '0' || *text > '9'
                                   : *text != *part)
            return nullptr;
    }
    return text;
}

} // namespace

Subject::Subject(const char *subject_text) : text(subject_text)
{
    for (const char *c = text; c != nullptr && *c != '\0'; ++c)
        characters |= kind_of(*c);
}

Wildcard::Wildcard(const char *text)
{
    const WildcardExpression expression(text);
    if (expression.fits())
        program_.reset(qz_regcomp(expression.c_str()));
    else // in the words in which the engine refuses an expression that is too long for it
        qzerr_throw(kLibraryHandler, QZERR_FATAL, "Error in regular expression: %s \n",
                    "regexp too big");
    if (program_ != nullptr)
        parts_ = wildcard_parts(text);
    for (char c : parts_) {
        if (c != '\0' && c != kAnyCharacter && c != kAnyDigit)
            characters_ |= kind_of(c);
    }
}

bool Wildcard::matches(const Subject &subject) const
{
    if (program_ == nullptr)
        return false;
    if (parts_.empty() || subject.text == nullptr)
        return qz_regexec(program_.get(), subject.text) == 1;
    return (characters_ & ~subject.characters) == 0 && matches_parts(subject.text);
}

/// Each part is taken where it first comes behind the part before it: if any place lets the rest
/// match, that one does.
bool Wildcard::matches_parts(const char *text) const
{
    const char *part = parts_.data();
    const char *end = part + parts_.size();
    text = skip_first_part(text, part);
    for (part += std::strlen(part) + 1; part != end && text != nullptr;
         part += std::strlen(part) + 1) {
        text = std::strstr(text, part);
        if (text != nullptr)
            text += std::strlen(part);
    }
    return text != nullptr;
}

} // namespace qz::tokens
