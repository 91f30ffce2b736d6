#include "tokens/real_number.h"

#include "tokens/digits.h"
#include "tokens/power_of_ten.h"

#include <absl/strings/charconv.h>

#include <cstdlib>
#include <cstring>
#include <system_error>

namespace qz::tokens {
namespace {

/// Reads an exponent of a few digits; a longer one is left to the general parser.
bool read_short_exponent(const char *&text, int &exponent)
{
    ++text;
    const bool minus = *text == '-';
    if (minus || *text == '+')
        ++text;
    int value = 0;
    const char *start = text;
    for (; is_digit(*text) && text - start < 4; ++text)
        value = value * 10 + (*text - '0');
    exponent += minus ? -value : value;
    return text != start;
}

/// The everyday reals: what a 64-bit number and a small power of ten give. @p digits stands behind
/// the whole part.
bool parse_short_real(Digits digits, double &value)
{
    int exponent = 0;
    if (*digits.next == '.') {
        ++digits.next;
        const std::ptrdiff_t whole_count = digits.count;
        digits.read();
        const std::ptrdiff_t fraction_count = digits.count - whole_count;
        if (digits.count == 0 || fraction_count > kMaxPower)
            return false;
        exponent = -static_cast<int>(fraction_count);
    }
    if (*digits.next == 'e' || *digits.next == 'E') {
        if (!read_short_exponent(digits.next, exponent))
            return false;
    }
    if (*digits.next != '\0' || !digits.exact() || std::abs(exponent) > kMaxPower)
        return false;
    value = scale_by_power_of_ten(digits.value, exponent);
    return true;
}

/// Every other real, infinity and not-a-number. The parser takes "0x10" for a number although it
/// is not asked for hexadecimal forms.
[[gnu::cold]] Number parse_general_real(const char *text)
{
    const char *magnitude = text + (*text == '-');
    if (magnitude[0] == '0' && (magnitude[1] == 'x' || magnitude[1] == 'X'))
        return Number();
    const char *end = text + std::strlen(text);
    double value = 0.0;
    const absl::from_chars_result result =
        absl::from_chars(text, end, value, absl::chars_format::general);
    const bool is_number = result.ec == std::errc() && result.ptr == end;
    return is_number ? Number{NumberType::Real, 0, value} : Number();
}

} // namespace

Number parse_real(const char *text, const char *whole_end, std::uint64_t whole_value)
{
    const bool minus = *text == '-';
    double value = 0.0;
    if (!parse_short_real(Digits(text + minus, whole_end, whole_value), value))
        return parse_general_real(text);
    return {NumberType::Real, 0, minus ? -value : value};
}

} // namespace qz::tokens
