#include "tokens/number.h"

#include <absl/strings/charconv.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>

namespace qz::tokens {
namespace {

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

/// Decimal digits read into a whole number, which is exact as long as it has no more than 19 of
/// them behind its leading zeros.
struct Digits {
    std::uint64_t value = 0;
    std::ptrdiff_t significant = 0;
    const char *next;

    explicit Digits(const char *text) : next(text) {}

    /// Reads digits while they come and returns how many.
    std::ptrdiff_t read()
    {
        const char *start = next;
        for (; is_digit(*next); ++next) {
            value = value * 10 + static_cast<std::uint64_t>(*next - '0');
            significant += significant != 0 || value != 0;
        }
        return next - start;
    }

    bool exact() const { return significant <= 19; }
};

/// Powers of ten that a double holds exactly.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;
constexpr std::uint64_t kMaxExactInteger = std::uint64_t{1} << 53;

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

/// The everyday reals: few digits and a small exponent. Both factors are exact then, so that the
/// one rounding of the product gives the nearest double, as the general parser does.
/// @p digits stands behind the whole part, which has @p whole_count digits.
bool parse_short_real(Digits digits, std::ptrdiff_t whole_count, double &value)
{
    int exponent = 0;
    if (*digits.next == '.') {
        ++digits.next;
        const std::ptrdiff_t fraction_count = digits.read();
        if (whole_count + fraction_count == 0 || fraction_count > kMaxExactPower)
            return false;
        exponent = -static_cast<int>(fraction_count);
    }
    if (*digits.next == 'e' || *digits.next == 'E') {
        if (!read_short_exponent(digits.next, exponent))
            return false;
    }
    if (*digits.next != '\0' || !digits.exact() || digits.value > kMaxExactInteger ||
        std::abs(exponent) > kMaxExactPower)
        return false;
    const auto mantissa = static_cast<double>(digits.value);
    value = exponent < 0 ? mantissa / kPowersOfTen[-exponent] : mantissa * kPowersOfTen[exponent];
    return true;
}

/// Every other real, infinity and not-a-number. The parser takes "0x10" for a number although it
/// is not asked for hexadecimal forms.
bool parse_general_real(const char *text, double &value)
{
    const char *magnitude = text + (*text == '-');
    if (magnitude[0] == '0' && (magnitude[1] == 'x' || magnitude[1] == 'X'))
        return false;
    const char *end = text + std::strlen(text);
    const absl::from_chars_result result =
        absl::from_chars(text, end, value, absl::chars_format::general);
    return result.ec == std::errc() && result.ptr == end;
}

bool may_start_number(char c)
{
    return is_digit(c) || std::strchr(".iInN", c) != nullptr;
}

Number number_of(NumberType type, double magnitude, bool minus)
{
    Number number;
    number.type = type;
    number.real = minus ? -magnitude : magnitude;
    if (type == NumberType::Integer)
        number.integer = static_cast<int>(number.real);
    return number;
}

} // namespace

Number parse_number(const char *text)
{
    const bool plus = *text == '+';
    const char *body = text + plus;
    const bool minus = *body == '-';
    const char *magnitude = body + minus;
    if (!may_start_number(*magnitude) || *magnitude == '\0')
        return Number();

    Number number;
    Digits digits(magnitude);
    const std::ptrdiff_t whole_count = digits.read();
    constexpr auto kMaxInt = static_cast<std::uint64_t>(std::numeric_limits<int>::max());
    double value = 0.0;
    if (*digits.next == '\0' && digits.exact() && digits.value <= kMaxInt + minus)
        number = number_of(NumberType::Integer, static_cast<double>(digits.value), minus);
    else if (parse_short_real(digits, whole_count, value))
        number = number_of(NumberType::Real, value, minus);
    else if (parse_general_real(body, value))
        number = number_of(NumberType::Real, value, false);

    // "+-5" counts as a number, but its conversion stops at the second sign.
    if (plus && minus)
        number.integer = 0, number.real = 0.0;
    return number;
}

} // namespace qz::tokens
