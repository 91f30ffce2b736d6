#ifndef QZ_PLATFORM_COMPILER_H
#define QZ_PLATFORM_COMPILER_H

#include <cstdint>
#include <cstring>

#if !defined(__GNUC__)
#include <emmintrin.h>
#include <intrin.h>
#endif

// What compilers spell differently. No other file asks which of them is at work, but for the base64
// codec, which must not include this one.

/// Gives a function of this source, extern "C", a second name that is exported as well.
#if defined(__clang__)
#define QZ_SECOND_NAME(function, name)                                                             \
    extern "C" QZ_API decltype(function) name __attribute__((alias(#function)))
#elif defined(__GNUC__)
#define QZ_SECOND_NAME(function, name)                                                             \
    extern "C" QZ_API decltype(function) name __attribute__((alias(#function), copy(function)))
#else
#define QZ_SECOND_NAME(function, name) __pragma(comment(linker, "/export:" #name "=" #function))
#endif

/// The truth of a condition that nearly always holds.
#if defined(__GNUC__)
#define QZ_LIKELY(condition) (__builtin_expect((condition), 1) != 0)
#else
#define QZ_LIKELY(condition) (condition)
#endif

namespace qz::platform {

/// A number of 128 bits.
struct Wide {
    std::uint64_t high;
    std::uint64_t low;
};

inline Wide multiplied(std::uint64_t a, std::uint64_t b)
{
#if defined(__GNUC__)
    __extension__ using Whole = unsigned __int128;
    const Whole product = Whole{a} * b;
    return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
    Wide product;
    product.low = _umul128(a, b, &product.high);
    return product;
#endif
}

/// The zeros in front of the first bit of @p value that is set; there is one.
inline int leading_zeros(std::uint64_t value)
{
#if defined(__GNUC__)
    return __builtin_clzll(value);
#else
    unsigned long place;
    _BitScanReverse64(&place, value);
    return 63 - static_cast<int>(place);
#endif
}

/// The zeros behind the last bit of @p value that is set; there is one.
inline int trailing_zeros(std::uint64_t value)
{
#if defined(__GNUC__)
    return __builtin_ctzll(value);
#else
    unsigned long place;
    _BitScanForward64(&place, value);
    return static_cast<int>(place);
#endif
}

#if defined(__GNUC__)
/// Sixteen bytes that are compared, joined and read by place; equal ones compare as -1.
using ByteBlock = signed char __attribute__((vector_size(16)));
#else
struct ByteBlock {
    __m128i bytes;

    signed char operator[](std::size_t place) const
    {
        signed char each[16];
        std::memcpy(each, &bytes, sizeof each);
        return each[place];
    }

    friend ByteBlock operator==(ByteBlock a, ByteBlock b)
    {
        return {_mm_cmpeq_epi8(a.bytes, b.bytes)};
    }

    friend ByteBlock operator&(ByteBlock a, ByteBlock b)
    {
        return {_mm_and_si128(a.bytes, b.bytes)};
    }

    friend ByteBlock operator|(ByteBlock a, ByteBlock b)
    {
        return {_mm_or_si128(a.bytes, b.bytes)};
    }
};
#endif

/// A block of sixteen times @p value.
inline ByteBlock filled_with(signed char value)
{
#if defined(__GNUC__)
    return ByteBlock{} + value;
#else
    return {_mm_set1_epi8(value)};
#endif
}

} // namespace qz::platform

#endif
