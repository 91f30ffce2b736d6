/** @file
 *  Decimal numbers of everyday size as doubles, exactly rounded.
 */
#ifndef QZFILESHARED_TOKENS_POWER_OF_TEN_H
#define QZFILESHARED_TOKENS_POWER_OF_TEN_H

#include <cstdint>

namespace qz::tokens {

/// The largest power of five that fits into 64 bits.
constexpr int kMaxPower = 27;

/// Powers of ten and whole numbers that a double holds exactly.
inline constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                          1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;
constexpr std::uint64_t kMaxExactValue = std::uint64_t{1} << 53;

/// For the numbers that scale_by_power_of_ten() cannot leave to the processor.
double scale_exactly(std::uint64_t value, int exponent);

/// The double nearest to @p value times ten to the power @p exponent, the even one of two.
/// @param exponent  From -kMaxPower to kMaxPower.
inline double scale_by_power_of_ten(std::uint64_t value, int exponent)
{
    // When both factors are exact, the one rounding of their product or quotient is the right one.
    if (value > kMaxExactValue || exponent > kMaxExactPower || exponent < -kMaxExactPower)
        return scale_exactly(value, exponent);
    const auto exact = static_cast<double>(value);
    return exponent < 0 ? exact / kExactPowers[-exponent] : exact * kExactPowers[exponent];
}

} // namespace qz::tokens

#endif
