#include "tokens/regex_literal.h"

#include "platform/compiler.h"

#include <cstdint>
#include <cstring>

namespace qz::regex {

namespace {

using Block = platform::ByteBlock;

Block load(const Byte *from)
{
    Block block;
    std::memcpy(&block, from, sizeof block);
    return block;
}

Block filled_with(Byte c)
{
    return platform::filled_with(static_cast<signed char>(c));
}

bool any(const Block &hits)
{
    std::uint64_t halves[2];
    std::memcpy(halves, &hits, sizeof halves);
    return (halves[0] | halves[1]) != 0;
}

/// Looks for two bytes of a literal at once: for texts in which its rare byte is common.
class PairSearch {
public:
    PairSearch(const Byte *literal, std::size_t length, std::size_t rare)
        : literal_(literal), length_(length), rare_(rare), other_(rare == 0 ? length - 1 : 0),
          rare_bytes_(filled_with(literal[rare_])), other_bytes_(filled_with(literal[other_]))
    {}

    const Byte *find(const Byte *from, const Byte *end) const
    {
        while (static_cast<std::size_t>(end - from) >= length_ + 2 * kWidth) {
            const Block first = hits(from);
            const Block second = hits(from + kWidth);
            if (any(first | second)) {
                if (const Byte *found = check(from, first))
                    return found;
                if (const Byte *found = check(from + kWidth, second))
                    return found;
            }
            from += 2 * kWidth;
        }
        for (; static_cast<std::size_t>(end - from) >= length_; ++from) {
            if (stands_at(from, literal_, length_))
                return from;
        }
        return nullptr;
    }

private:
    static constexpr std::size_t kWidth = sizeof(Block);

    Block hits(const Byte *from) const
    {
        return (load(from + rare_) == rare_bytes_) & (load(from + other_) == other_bytes_);
    }

    const Byte *check(const Byte *from, const Block &hits) const
    {
        for (std::size_t i = 0; any(hits) && i < kWidth; ++i) {
            if (hits[i] != 0 && std::memcmp(from + i, literal_, length_) == 0)
                return from + i;
        }
        return nullptr;
    }

    const Byte *literal_;
    std::size_t length_;
    std::size_t rare_;
    std::size_t other_;
    Block rare_bytes_;
    Block other_bytes_;
};

} // namespace

std::size_t rare_byte(const Byte *literal, std::size_t length)
{
    // From common to rare; what is missing here is rarer still.
    constexpr const char *kCommon = " etaoinsrhldcumfpgwy_./bv-k0121xjqz";
    const auto commonness = [=](Byte c) {
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

const Byte *find_literal(const Text &text, const Byte *from, const Byte *literal,
                         std::size_t length, std::size_t rare)
{
    // The fastest look-up of one byte is as good as the byte is rare in this very text. It needs no
    // end of the text: where the byte is missing, the text is read once.
    constexpr std::ptrdiff_t kFalseHits = 4;
    constexpr std::ptrdiff_t kWorthwhileDistance = 64;
    const Byte *next = from;
    for (std::ptrdiff_t hits = 1; hits < kFalseHits || next - from > hits * kWorthwhileDistance;
         ++hits) {
        const char *hit = std::strchr(reinterpret_cast<const char *>(next), literal[rare]);
        if (hit == nullptr)
            return nullptr;
        next = reinterpret_cast<const Byte *>(hit) + 1;
        if (next - from > static_cast<std::ptrdiff_t>(rare) &&
            stands_at(next - 1 - rare, literal, length))
            return next - 1 - rare;
    }
    // Every place up to here was looked at, unless it is so near that its rare byte comes later.
    const Byte *left = next - from > static_cast<std::ptrdiff_t>(rare) ? next - rare : from;
    return PairSearch(literal, length, rare).find(left, text.end_from(next));
}

} // namespace qz::regex
