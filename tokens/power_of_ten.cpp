#include "tokens/power_of_ten.h"

#include <array>
#include <cstring>

namespace qz::tokens {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::array<std::uint64_t, kMaxPower + 1> powers_of_five()
{
    std::array<std::uint64_t, kMaxPower + 1> powers{};
    powers[0] = 1;
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 5;
    return powers;
}

constexpr auto kPowersOfFive = powers_of_five();

/// @p bits, which is at least 2 to the power 62 or exact, times 2 to the power @p exponent. A set
/// last bit stands for all that was cut off: the conversion rounds ten bits higher.
double assemble(std::uint64_t bits, int exponent)
{
    constexpr int kExponentBias = 1023;
    constexpr int kFractionBits = 52;
    const std::uint64_t pattern = static_cast<std::uint64_t>(exponent + kExponentBias)
                                  << kFractionBits;
    double power = 0.0;
    std::memcpy(&power, &pattern, sizeof power);
    return static_cast<double>(bits) * power;
}

double multiply(std::uint64_t value, int exponent)
{
    const Wide product = Wide{value} * kPowersOfFive[static_cast<std::size_t>(exponent)];
    const auto high = static_cast<std::uint64_t>(product >> 64);
    if (high == 0)
        return assemble(static_cast<std::uint64_t>(product), exponent);
    const int cut = 64 - __builtin_clzll(high);
    const auto top = static_cast<std::uint64_t>(product >> cut);
    const bool lost = (product & ((Wide{1} << cut) - 1)) != 0;
    return assemble(top | static_cast<std::uint64_t>(lost), exponent + cut);
}

struct Divisor {
    std::uint64_t power;      ///< a power of five, moved to the top of its 64 bits
    std::uint64_t reciprocal; ///< (2 to the power 128 - 1) / power - 2 to the power 64
    int shift;
};

std::array<Divisor, kMaxPower + 1> make_divisors()
{
    std::array<Divisor, kMaxPower + 1> divisors{};
    for (std::size_t i = 0; i < divisors.size(); ++i) {
        const int shift = __builtin_clzll(kPowersOfFive[i]);
        const std::uint64_t power = kPowersOfFive[i] << shift;
        divisors[i] = {power, static_cast<std::uint64_t>(~Wide{0} / power), shift};
    }
    return divisors;
}

/// @p dividend times 2 to the power 63 by the divisor, the last bit set when a rest is left.
/// The division with a precomputed reciprocal of Moeller and Granlund: the processor's own takes
/// longer than all the rest together.
std::uint64_t quotient_with_rest(std::uint64_t dividend, const Divisor &divisor)
{
    const Wide whole = Wide{dividend} << 63;
    const auto high = static_cast<std::uint64_t>(whole >> 64);
    const Wide estimate = Wide{high} * divisor.reciprocal + whole;
    auto quotient = static_cast<std::uint64_t>(estimate >> 64) + 1;
    std::uint64_t rest = static_cast<std::uint64_t>(whole) - quotient * divisor.power;
    if (rest > static_cast<std::uint64_t>(estimate)) {
        --quotient;
        rest += divisor.power;
    }
    if (rest >= divisor.power) {
        ++quotient;
        rest -= divisor.power;
    }
    return quotient | static_cast<std::uint64_t>(rest != 0);
}

/// With both numbers at the top of their 64 bits, the quotient has 63 or 64 of them.
double divide(std::uint64_t value, int exponent)
{
    static const std::array<Divisor, kMaxPower + 1> kDivisors = make_divisors();
    const Divisor &divisor = kDivisors[static_cast<std::size_t>(exponent)];
    const int shift = __builtin_clzll(value);
    return assemble(quotient_with_rest(value << shift, divisor),
                    divisor.shift - shift - 63 - exponent);
}

} // namespace

double scale_exactly(std::uint64_t value, int exponent)
{
    if (value == 0)
        return 0.0;
    return exponent < 0 ? divide(value, -exponent) : multiply(value, exponent);
}

} // namespace qz::tokens
