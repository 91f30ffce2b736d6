#include "platform/text.h"
#include "qzerr.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace halcyra {

namespace {

constexpr int kMostDigits = 20;    // of an unsigned 64-bit number
constexpr int kMostPrecision = 18; // the largest power of ten in 64 bits

/// The nearest integer, halves away from zero; the nearest limit beyond 64 bits, 0 for no number.
std::int64_t rounded(double value)
{
    constexpr double kLimit = 9223372036854775808.0; // 2 to the power 63
    const double nearest = std::round(value);
    if (nearest >= kLimit)
        return std::numeric_limits<std::int64_t>::max();
    if (nearest < -kLimit)
        return std::numeric_limits<std::int64_t>::min();
    return std::isnan(nearest) ? 0 : static_cast<std::int64_t>(nearest);
}

char *write_digits(char *out, std::uint64_t value, int width)
{
    char digits[kMostDigits];
    int count = 0;
    do {
        digits[count++] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    for (int padding = count; padding < width; ++padding)
        *out++ = '0';
    return std::reverse_copy(digits, digits + count, out);
}

/// The absolute value; the lowest number has one only here.
std::uint64_t magnitude(std::int64_t value)
{
    const auto bits = static_cast<std::uint64_t>(value);
    return value < 0 ? 0 - bits : bits;
}

} // namespace

char *safe_format(char *out, const char *text)
{
    return text != nullptr ? std::copy_n(text, std::strlen(text), out) : out;
}

char *safe_format(char *out, std::int64_t value, int width)
{
    if (value < 0)
        *out++ = '-';
    return write_digits(out, magnitude(value), width);
}

char *safe_format(char *out, double value, int precision)
{
    const int digits = std::clamp(precision, 0, kMostPrecision);
    std::int64_t scale = 1;
    for (int i = 0; i < digits; ++i)
        scale *= 10;
    const std::int64_t scaled = rounded(value * static_cast<double>(scale));
    // The sign belongs to the integer part: -0.5 comes out as "0.5".
    out = safe_format(out, scaled / scale, 0);
    *out++ = '.';
    return write_digits(out, magnitude(scaled % scale), digits);
}

std::string get_last_error()
{
    return qz::platform::qzwin32_get_last_error();
}

} // namespace halcyra
