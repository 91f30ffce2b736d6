/** @file
 *  Reading a real number.
 */
#ifndef QZFILESHARED_TOKENS_REAL_NUMBER_H
#define QZFILESHARED_TOKENS_REAL_NUMBER_H

#include "tokens/number.h"

#include <cstddef>
#include <cstdint>

namespace qz::tokens {

inline bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

/// Decimal digits, with a point or without, read into one whole number.
struct Digits {
    const char *first;
    const char *next;
    std::uint64_t value = 0; ///< modulo 2 to the power 64
    std::ptrdiff_t count = 0;

    explicit Digits(const char *text) : first(text), next(text) {}

    /// Digits that have been read before, up to @p end.
    Digits(const char *text, const char *end, std::uint64_t read_value)
        : first(text), next(end), value(read_value), count(end - text)
    {}

    /// Reads digits while they come.
    void read()
    {
        const char *start = next;
        for (unsigned digit; (digit = static_cast<unsigned char>(*next) - unsigned{'0'}) <= 9;
             ++next)
            value = value * 10 + digit;
        count += next - start;
    }

    /// Whether the value fitted into its 64 bits: 19 digits do, and zeros before them.
    bool exact() const
    {
        std::ptrdiff_t significant = count;
        for (const char *c = first; significant > 19 && (*c == '0' || *c == '.'); ++c)
            significant -= *c == '0';
        return significant <= 19;
    }
};

/// Reads all of @p text, in the general format, as a real. It has no plus in front.
/// @param whole_end    The first character behind an optional minus that is no digit.
/// @param whole_value  What the digits before it gave. (Two values and no struct: it would travel
///                     through memory, and take as long as a short number does.)
/// @return no number for another text and for a number that a double cannot hold.
Number parse_real(const char *text, const char *whole_end, std::uint64_t whole_value);

} // namespace qz::tokens

#endif
