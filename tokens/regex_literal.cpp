#include "tokens/regex_literal.h"

#include <cstdint>
#include <cstring>

namespace qz::regex {

namespace {

/// Sixteen bytes that are compared at once; every compiler of the library knows such vectors.
using Block = signed char __attribute__((vector_size(16)));

Block load(const unsigned char *from)
{
    Block block;
    std::memcpy(&block, from, sizeof block);
    return block;
}

Block filled_with(unsigned char c)
{
    return Block{} + static_cast<signed char>(c);
}

bool any(const Block &hits)
{
    std::uint64_t halves[2];
    std::memcpy(halves, &hits, sizeof halves);
    return (halves[0] | halves[1]) != 0;
}

/// Looks for two bytes of the literal at once: for texts in which its rare byte is common.
const unsigned char *find_by_two_bytes(const unsigned char *from, const unsigned char *end,
                                       const unsigned char *literal, std::size_t length,
                                       std::size_t rare)
{
    const std::size_t other = rare == 0 ? length - 1 : 0;
    const Block rare_bytes = filled_with(literal[rare]);
    const Block other_bytes = filled_with(literal[other]);
    const auto hits = [&](const unsigned char *at) {
        return (load(at + rare) == rare_bytes) & (load(at + other) == other_bytes);
    };
    const auto matches = [&](const unsigned char *at) {
        return at[rare] == literal[rare] && std::memcmp(at, literal, length) == 0;
    };

    constexpr std::size_t kWidth = sizeof(Block);
    const unsigned char *const last = end - length;
    for (; static_cast<std::size_t>(end - from) >= length + 2 * kWidth; from += 2 * kWidth) {
        if (!any(hits(from) | hits(from + kWidth)))
            continue;
        for (std::size_t i = 0; i < 2 * kWidth; ++i) {
            if (matches(from + i))
                return from + i;
        }
    }
    for (; from <= last; ++from) {
        if (matches(from))
            return from;
    }
    return nullptr;
}

} // namespace

std::size_t rare_byte(const unsigned char *literal, std::size_t length)
{
    // From common to rare; what is missing here is rarer still.
    constexpr const char *kCommon = " etaoinsrhldcumfpgwy_./bv-k0121xjqz";
    const auto commonness = [=](unsigned char c) {
        const char *place = std::strchr(kCommon, c);
        return place == nullptr ? 0 : std::strlen(place);
    };
    std::size_t best = 0;
    for (std::size_t i = 1; i < length; ++i) {
        if (commonness(literal[i]) < commonness(literal[best]))
            best = i;
    }
    return best;
}

const unsigned char *find_literal(const unsigned char *from, const unsigned char *end,
                                  const unsigned char *literal, std::size_t length,
                                  std::size_t rare)
{
    // The fastest look-up of one byte is as good as the byte is rare in this very text.
    constexpr std::ptrdiff_t kFalseHits = 4;
    constexpr std::ptrdiff_t kWorthwhileDistance = 64;
    std::ptrdiff_t false_hits = 0;
    for (const unsigned char *at = from; static_cast<std::size_t>(end - at) >= length; ++at) {
        const std::size_t room = static_cast<std::size_t>(end - at) - length + 1;
        const void *hit = std::memchr(at + rare, literal[rare], room);
        if (hit == nullptr)
            return nullptr;
        at = static_cast<const unsigned char *>(hit) - rare;
        if (std::memcmp(at, literal, length) == 0)
            return at;
        if (++false_hits >= kFalseHits && at - from < false_hits * kWorthwhileDistance)
            return find_by_two_bytes(at + 1, end, literal, length, rare);
    }
    return nullptr;
}

} // namespace qz::regex
