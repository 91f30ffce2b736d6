/** @file
 *  Decimal digits as whole numbers, eight at a time: a branch for every digit would be guessed
 * wrong at the end of most numbers, and a wrong guess takes longer than all the arithmetic.
 */
#ifndef QZFILESHARED_TOKENS_DIGITS_H
#define QZFILESHARED_TOKENS_DIGITS_H

#include "platform/compiler.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qz::tokens {

inline bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

/// The digits at the start of eight bytes, all of which are read.
struct DigitBlock {
    static constexpr unsigned kSize = 8;
    /// For every count of digits, what a value before them counts.
    static constexpr std::uint64_t kScales[kSize + 1] = {
        1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

    unsigned count = kSize;
    std::uint64_t value;

    // The first character is the lowest byte, as on every processor of the library.
    explicit DigitBlock(const char *text)
    {
        constexpr std::uint64_t kEachByte = 0x0101010101010101;
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, text, kSize);
        bytes ^= '0' * kEachByte;
        // The top bit of each byte that is above 9, and of some that follow one.
        const std::uint64_t others = ((bytes + (0x7F - 9) * kEachByte) | bytes) & 0x80 * kEachByte;
        if (others != 0) {
            count = static_cast<unsigned>(platform::trailing_zeros(others)) / 8;
            // Zeros in front push out what stands behind; no shift pushes out all eight at once.
            bytes = bytes << 4 * (kSize - count) << 4 * (kSize - count);
        }
        // Two digits in every second byte, then four in two, then all.
        bytes = bytes * 10 + (bytes >> 8);
        constexpr std::uint64_t kPairs = 0x000000FF000000FF;
        value = ((bytes & kPairs) * (100 + (std::uint64_t{1'000'000} << 32)) +
                 (bytes >> 16 & kPairs) * (1 + (std::uint64_t{10'000} << 32))) >>
                32;
    }
};

/// Decimal digits, with a point or without, read into one whole number. The seven bytes behind the
/// text's terminator must be there to be read.
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
        unsigned read_count = DigitBlock::kSize;
        while (read_count == DigitBlock::kSize) {
            const DigitBlock block(next);
            read_count = block.count;
            value = value * DigitBlock::kScales[read_count] + block.value;
            next += read_count;
            count += read_count;
        }
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

} // namespace qz::tokens

#endif
