#include "common/base64/vector.h"

#include "common/base64/tables.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))

#include <cstdint>
#include <cstring>

#include <tmmintrin.h>

// The library runs on every x86 processor, so the instructions are turned on for these functions
// alone, and whether the processor has them is asked first.
#define QZ_SSSE3 __attribute__((target("ssse3")))

namespace qz::base64 {

namespace {

using Bytes16 = std::array<unsigned char, 16>;

/// Kinds of upper half-bytes: the characters of one kind have the same lower half-bytes.
enum Kind : unsigned char {
    kSigns = 0x01,        // 2x: + and /
    kDigits = 0x02,       // 3x
    kLettersToO = 0x04,   // 4x and 6x
    kLettersFromP = 0x08, // 5x and 7x
    kForeign = 0x10,      // everything else
};

constexpr Kind kind_of(unsigned character)
{
    switch (character >> 4) {
    case 0x2:
        return kSigns;
    case 0x3:
        return kDigits;
    case 0x4:
    case 0x6:
        return kLettersToO;
    case 0x5:
    case 0x7:
        return kLettersFromP;
    default:
        return kForeign;
    }
}

/// By upper half-byte: the kind.
constexpr Bytes16 make_kinds()
{
    Bytes16 kinds{};
    for (unsigned upper = 0; upper < 16; ++upper)
        kinds[upper] = kind_of(upper << 4);
    return kinds;
}

/// By lower half-byte: the kinds in which it makes no character of the alphabet.
constexpr Bytes16 make_bad_kinds()
{
    Bytes16 bad{};
    for (unsigned lower = 0; lower < 16; ++lower) {
        bad[lower] = kSigns | kDigits | kLettersToO | kLettersFromP | kForeign;
        for (std::size_t i = 0; i < kAlphabetSize; ++i) {
            const auto character = static_cast<unsigned char>(kAlphabet[i]);
            if (character % 16U == lower)
                bad[lower] = static_cast<unsigned char>(bad[lower] & ~kind_of(character));
        }
    }
    return bad;
}

/// By upper half-byte: what turns a character into its value. The one exception, '/', shares its
/// half-byte with '+' and takes the unused entry before it.
constexpr Bytes16 make_steps_to_value()
{
    Bytes16 steps{};
    for (std::size_t value = 0; value < kAlphabetSize; ++value) {
        const auto character = static_cast<unsigned char>(kAlphabet[value]);
        const std::size_t entry = character == '/' ? 0x1 : character / 16U;
        steps[entry] = static_cast<unsigned char>(value - character);
    }
    return steps;
}

/// What turns a value into its character, by encode_16's numbers of the alphabet's five runs:
/// 0 for a to z, 1 to 10 for the digits, 11 for +, 12 for /, 13 for A to Z.
constexpr Bytes16 make_steps_to_character()
{
    Bytes16 steps{};
    steps[0] = static_cast<unsigned char>(kAlphabet[26] - 26);
    for (std::size_t run = 1; run <= 12; ++run)
        steps[run] = static_cast<unsigned char>(kAlphabet[51 + run] - static_cast<int>(51 + run));
    steps[13] = static_cast<unsigned char>(kAlphabet[0]);
    return steps;
}

constexpr Bytes16 kKinds = make_kinds();
constexpr Bytes16 kBadKinds = make_bad_kinds();
constexpr Bytes16 kStepsToValue = make_steps_to_value();
constexpr Bytes16 kStepsToCharacter = make_steps_to_character();

bool has_ssse3()
{
    return __builtin_cpu_supports("ssse3") != 0;
}

QZ_SSSE3 __m128i load(const void *from)
{
    return _mm_loadu_si128(static_cast<const __m128i *>(from));
}

/// Twelve bytes, the first of @p in, as sixteen characters.
QZ_SSSE3 __m128i encode_16(__m128i in)
{
    // Bytes a b c of a group become b a c b, so that each 6-bit value lies in a 16-bit half.
    const __m128i spread =
        _mm_shuffle_epi8(in, _mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10));
    // A multiplication moves two fields by different distances at once.
    const __m128i even = _mm_mulhi_epu16(_mm_and_si128(spread, _mm_set1_epi32(0x0FC0FC00)),
                                         _mm_set1_epi32(0x04000040));
    const __m128i odd = _mm_mullo_epi16(_mm_and_si128(spread, _mm_set1_epi32(0x003F03F0)),
                                        _mm_set1_epi32(0x01000010));
    const __m128i values = _mm_or_si128(even, odd);

    const __m128i past_small_z = _mm_subs_epu8(values, _mm_set1_epi8(51));
    const __m128i is_capital = _mm_cmpgt_epi8(_mm_set1_epi8(26), values);
    const __m128i run = _mm_or_si128(past_small_z, _mm_and_si128(is_capital, _mm_set1_epi8(13)));
    return _mm_add_epi8(values, _mm_shuffle_epi8(load(kStepsToCharacter.data()), run));
}

/// Sixteen characters as twelve bytes, followed by four of 0.
/// @return false when a character is bad.
QZ_SSSE3 bool decode_16(__m128i in, __m128i &out)
{
    const __m128i low_half = _mm_set1_epi8(0x0F);
    const __m128i upper = _mm_and_si128(_mm_srli_epi32(in, 4), low_half);
    const __m128i lower = _mm_and_si128(in, low_half);
    const __m128i bad = _mm_and_si128(_mm_shuffle_epi8(load(kKinds.data()), upper),
                                      _mm_shuffle_epi8(load(kBadKinds.data()), lower));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(bad, _mm_setzero_si128())) != 0xFFFF)
        return false;

    const __m128i entry = _mm_add_epi8(upper, _mm_cmpeq_epi8(in, _mm_set1_epi8('/')));
    const __m128i values = _mm_add_epi8(in, _mm_shuffle_epi8(load(kStepsToValue.data()), entry));
    // 6 + 6 bits in each 16, then 12 + 12 bits in each 32, most significant first.
    const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi32(0x01400140));
    const __m128i groups = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00011000));
    out = _mm_shuffle_epi8(groups,
                           _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
    return true;
}

/// The first twelve bytes, and no more: what follows may be past a bad group.
QZ_SSSE3 void store_12(char *dest, __m128i value)
{
    _mm_storel_epi64(reinterpret_cast<__m128i *>(dest), value);
    const std::int32_t rest = _mm_cvtsi128_si32(_mm_srli_si128(value, 8));
    std::memcpy(dest + 8, &rest, sizeof(rest));
}

QZ_SSSE3 void encode_4_groups(char *dest, __m128i in)
{
    _mm_storeu_si128(reinterpret_cast<__m128i *>(dest), encode_16(in));
}

QZ_SSSE3 std::size_t encode_ssse3(char *dest, const char *src, std::size_t groups)
{
    // A load takes sixteen bytes for the twelve in use. Only the first takes four that follow,
    // the others four that went before, so that none reads past the source.
    if (groups < 6)
        return 0;
    encode_4_groups(dest, load(src));
    std::size_t done = 4;
    for (; groups - done >= 4; done += 4)
        encode_4_groups(dest + 4 * done, _mm_srli_si128(load(src + 3 * done - 4), 4));
    // The last four once more, of which some are new.
    if (done != groups)
        encode_4_groups(dest + 4 * groups - 16, _mm_srli_si128(load(src + 3 * groups - 16), 4));
    return groups;
}

QZ_SSSE3 std::size_t decode_ssse3(char *dest, const char *src, std::size_t groups)
{
    std::size_t done = 0;
    for (; groups - done >= 4; done += 4) {
        __m128i bytes;
        if (!decode_16(load(src + 4 * done), bytes))
            break;
        store_12(dest + 3 * done, bytes);
    }
    // The tables write a fourth byte of 0 with every group.
    if (done != 0)
        dest[3 * done] = 0;
    return done;
}

} // namespace

std::size_t encode_groups_by_vector(char *dest, const char *src, std::size_t groups)
{
    return has_ssse3() ? encode_ssse3(dest, src, groups) : 0;
}

std::size_t decode_groups_by_vector(char *dest, const char *src, std::size_t groups)
{
    return has_ssse3() ? decode_ssse3(dest, src, groups) : 0;
}

} // namespace qz::base64

#else

namespace qz::base64 {

std::size_t encode_groups_by_vector(char *, const char *, std::size_t)
{
    return 0;
}

std::size_t decode_groups_by_vector(char *, const char *, std::size_t)
{
    return 0;
}

} // namespace qz::base64

#endif
