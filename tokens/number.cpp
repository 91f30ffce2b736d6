#include "tokens/number.h"

#include "tokens/digits.h"
#include "tokens/real_number.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace qz::tokens {
namespace {

/// A point and digits, infinity or not-a-number: as much of it as tells it from most words.
bool may_start_real(const char *text)
{
    switch (*text) {
    case '.':
        return is_digit(text[1]);
    case 'i':
    case 'I':
        return text[1] == 'n' || text[1] == 'N';
    case 'n':
    case 'N':
        return text[1] == 'a' || text[1] == 'A';
    default:
        return false;
    }
}

/// Reads a text without a plus.
template <bool minus> Number parse_signed(const char *text)
{
    Digits digits(text + minus);
    if (!is_digit(*digits.next) && !may_start_real(digits.next))
        return Number();
    digits.read();
    constexpr std::uint64_t kLimit = std::uint64_t{std::numeric_limits<int>::max()} + minus;
    if (*digits.next != '\0' || digits.value > kLimit || !digits.exact())
        return parse_real(text, digits.next, digits.value);
    const auto value = static_cast<std::int64_t>(digits.value);
    const auto real = static_cast<double>(value);
    return {NumberType::Integer, static_cast<int>(minus ? -value : value), minus ? -real : real};
}

/// Few numbers have a plus. "+-5" counts as one, but its conversion stops at the second sign.
[[gnu::cold]] Number parse_behind_plus(const char *text)
{
    if (*text == '+')
        return Number();
    const Number number = parse_number(text);
    return *text == '-' ? Number{number.type, 0, 0.0} : number;
}

} // namespace

// A branch for each sign and no arithmetic on the address: the processor goes ahead on a branch,
// and would wait for the address.
Number parse_number(const char *padded_text)
{
    if (*padded_text == '+')
        return parse_behind_plus(padded_text + 1);
    if (*padded_text == '-')
        return parse_signed<true>(padded_text);
    return parse_signed<false>(padded_text);
}

NumberType number_type(const char *text)
{
    char usual[64];
    std::unique_ptr<char[]> longer;
    char *padded = usual;
    const std::size_t length = std::strlen(text);
    if (length + kPaddingSize > sizeof usual) {
        longer.reset(new (std::nothrow) char[length + kPaddingSize]);
        padded = longer.get();
        if (padded == nullptr)
            return NumberType::None;
    }
    std::memcpy(padded, text, length);
    std::memset(padded + length, '\0', kPaddingSize);
    return parse_number(padded).type;
}

} // namespace qz::tokens
