#include "common/base64/codec.h"
#include "qzbase64.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace modp {

namespace {

// A string clears what it grows by before that is written. Growing by pieces of this size keeps the
// clearing in the nearest cache.
constexpr std::size_t kPieceGroups = 2048;

/// Makes @p out longer by @p len characters.
/// @return the first of them.
char *grow(std::string &out, std::size_t len)
{
    const std::size_t old_size = out.size();
    out.resize(old_size + len);
    return &out[old_size];
}

} // namespace

std::string b64_encode(const char *data, std::size_t len)
{
    std::string out;
    out.reserve((len + 2) / 3 * 4 + 1);
    for (; len > 3 * kPieceGroups; len -= 3 * kPieceGroups, data += 3 * kPieceGroups)
        qz::base64::encode_groups(grow(out, 4 * kPieceGroups), data, kPieceGroups);
    qz::base64::encode(grow(out, (len + 2) / 3 * 4), data, len);
    return out;
}

std::string b64_encode(const char *text)
{
    if (text == nullptr)
        return {};
    return b64_encode(text, static_cast<std::uint32_t>(std::strlen(text)));
}

std::string b64_encode(const std::string &data)
{
    return b64_encode(data.data(), data.size());
}

std::string &b64_encode(std::string &data)
{
    return data = b64_encode(data.data(), data.size());
}

std::string b64_decode(const char *data, std::size_t len)
{
    std::string out;
    out.reserve((len / 4 + 1) * 3);
    // The 0 behind a piece falls on the string's own terminator.
    for (; len > 4 * kPieceGroups; len -= 4 * kPieceGroups, data += 4 * kPieceGroups) {
        char *const piece = grow(out, 3 * kPieceGroups);
        if (qz::base64::decode_groups(piece, data, kPieceGroups) != kPieceGroups)
            return {};
    }
    const std::size_t before = out.size();
    const std::size_t last = qz::base64::decode(grow(out, len / 4 * 3), data, len);
    out.resize(last == qz::base64::kBadText ? 0 : before + last);
    return out;
}

std::string b64_decode(const char *text)
{
    if (text == nullptr)
        return {};
    return b64_decode(text, std::strlen(text));
}

std::string b64_decode(const std::string &text)
{
    return b64_decode(text.data(), text.size());
}

std::string &b64_decode(std::string &text)
{
    return text = b64_decode(text.data(), text.size());
}

} // namespace modp
