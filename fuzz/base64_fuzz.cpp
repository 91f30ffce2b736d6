// Any bytes as a text to decode, and as data to encode.

#include "common/base64/codec.h"
#include "fuzz/require.h"
#include "qzbase64.hpp"
#include "tests/common/plain_base64.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {

using qz::fuzz::require;

bool is_base64(std::string text)
{
    if (text.size() % 4 != 0)
        return false;
    for (int padding = 0; padding < 2 && !text.empty() && text.back() == '='; ++padding)
        text.pop_back();
    return text.find_first_not_of(qz::test::kBase64Alphabet) == std::string::npos;
}

/// Decodes into memory of exactly the promised size; @p decoded gets the bytes.
int decode(const std::string &text, std::string &decoded)
{
    std::vector<char> dest(3 * (text.size() / 4 + 1));
    const int size = modp_b64_decode(dest.data(), text.data(), static_cast<int>(text.size()));
    decoded.assign(dest.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    return size;
}

/// A good text comes back when its bytes are encoded again, but for the bits that its last
/// character holds beyond the last byte.
void check_decoding(const std::string &text)
{
    std::string decoded;
    const int size = decode(text, decoded);
    require((size >= 0) == is_base64(text));
    require(modp::b64_decode(text.data(), text.size()) == decoded);
    if (size < 0)
        return;
    const std::string again = qz::test::plain_encode(decoded);
    require(again.size() == text.size());
    const std::size_t last = text.find_last_not_of('=');
    require(last == std::string::npos || text.compare(0, last, again, 0, last) == 0);
}

/// The fast path finds the same bad group and leaves the same memory as the tables.
void check_paths(const std::string &text)
{
    const std::size_t groups = text.size() / 4;
    std::vector<char> fast(3 * groups + 1, 'x');
    std::vector<char> plain(3 * groups + 1, 'x');
    require(qz::base64::decode_groups(fast.data(), text.data(), groups) ==
            qz::base64::decode_groups_by_table(plain.data(), text.data(), groups));
    require(fast == plain);
}

void check_encoding(const std::string &data)
{
    const std::string expected = qz::test::plain_encode(data);
    std::vector<char> dest(expected.size() + 1, 'x');
    const int size = modp_b64_encode(dest.data(), data.data(), static_cast<int>(data.size()));
    require(static_cast<std::size_t>(size) == expected.size() && expected == dest.data());

    std::string decoded;
    require(decode(expected, decoded) == static_cast<int>(data.size()) && decoded == data);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(data, data + size);
    check_decoding(input);
    check_paths(input);
    check_encoding(input);
    if (size == 0)
        return 0;
    // A long good text with a fault in it is rare among any bytes, so one is made.
    std::string text = qz::test::plain_encode(std::string(60, '\xA5') + input);
    text[data[0] % text.size()] = input.back();
    check_decoding(text);
    check_paths(text);
    return 0;
}
