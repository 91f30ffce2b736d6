#include "common/base64/codec.h"
#include "qzbase64.h"

#include <limits>

namespace {

/// More would make a text whose length no int holds.
constexpr int kMaxEncodable = std::numeric_limits<int>::max() / 4 * 3;

} // namespace

int modp_b64_encode(char *dest, const char *src, int len)
{
    if (len > kMaxEncodable)
        return -1;
    const std::size_t written =
        len > 0 ? qz::base64::encode(dest, src, static_cast<std::size_t>(len)) : 0;
    dest[written] = '\0';
    return static_cast<int>(written);
}

int modp_b64_decode(char *dest, const char *src, int len)
{
    if (len < 0)
        return -1;
    const std::size_t written = qz::base64::decode(dest, src, static_cast<std::size_t>(len));
    return written == qz::base64::kBadText ? -1 : static_cast<int>(written);
}
