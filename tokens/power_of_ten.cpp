#include "tokens/power_of_ten.h"

#include "platform/compiler.h"

#include <array>
#include <cstring>

namespace qz::tokens {
namespace {

using platform::leading_zeros;
using platform::multiplied;
using platform::Wide;

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
    const Wide product = multiplied(value, kPowersOfFive[static_cast<std::size_t>(exponent)]);
    if (product.high == 0)
        return assemble(product.low, exponent);
    const int spare = leading_zeros(product.high);
    const int cut = 64 - spare;
    if (spare == 0)
        return assemble(product.high | static_cast<std::uint64_t>(product.low != 0),
                        exponent + cut);
    const std::uint64_t top = product.high << spare | product.low >> cut;
    const bool lost = product.low << spare != 0;
    return assemble(top | static_cast<std::uint64_t>(lost), exponent + cut);
}

struct Divisor {
    std::uint64_t power;      ///< a power of five, moved to the top of its 64 bits
    std::uint64_t reciprocal; ///< (2 to the power 128 - 1) / power - 2 to the power 64
    int shift;
};

/// The quotient of 2 to the power 128 - 1 by @p power without its bit 64, digit by digit. The top
/// bit of @p power is set, so that each digit is 1 or 0 and the bit is the first of them.
constexpr std::uint64_t reciprocal_of(std::uint64_t power)
{
    std::uint64_t rest = ~power; // what is left of the upper half of the dividend behind that bit
    std::uint64_t reciprocal = 0;
    for (int digit = 0; digit < 64; ++digit) {
        const bool carry = rest >> 63 != 0;
        rest = rest << 1 | 1; // all digits of the dividend are 1
        reciprocal <<= 1;
        if (carry || rest >= power) {
            rest -= power;
            reciprocal |= 1;
        }
    }
    return reciprocal;
}

constexpr std::array<Divisor, kMaxPower + 1> make_divisors()
{
    std::array<Divisor, kMaxPower + 1> divisors{};
    for (std::size_t i = 0; i < divisors.size(); ++i) {
        std::uint64_t power = kPowersOfFive[i];
        int shift = 0;
        for (; power >> 63 == 0; ++shift)
            power <<= 1;
        divisors[i].power = power;
        divisors[i].reciprocal = reciprocal_of(power);
        divisors[i].shift = shift;
    }
    return divisors;
}

constexpr std::array<Divisor, kMaxPower + 1> kDivisors = make_divisors();

/// @p dividend times 2 to the power 63 by the divisor, the last bit set when a rest is left.
/// The division with a precomputed reciprocal of Moeller and Granlund: the processor's own takes
/// longer than all the rest together.
std::uint64_t quotient_with_rest(std::uint64_t dividend, const Divisor &divisor)
{
    const Wide whole = {dividend >> 1, dividend << 63};
    Wide estimate = multiplied(whole.high, divisor.reciprocal);
    estimate.low += whole.low;
    estimate.high += whole.high + static_cast<std::uint64_t>(estimate.low < whole.low);
    std::uint64_t quotient = estimate.high + 1;
    std::uint64_t rest = whole.low - quotient * divisor.power;
    if (rest > estimate.low) {
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
    const Divisor &divisor = kDivisors[static_cast<std::size_t>(exponent)];
    const int shift = leading_zeros(value);
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
