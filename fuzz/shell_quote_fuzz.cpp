// Any text and any stated size, in memory that ends with the longest result.

#include "fuzz/require.h"
#include "qzcommon.h"
#include "tests/common/plain_quote.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t len)
{
    using qz::fuzz::require;

    if (len == 0)
        return 0;
    // The first byte moves the size around the length, where the checks decide.
    std::string text(data + 1, data + len);
    text = text.c_str();
    const int size = static_cast<int>(text.size()) + static_cast<std::int8_t>(data[0]);

    const std::string quoted = text.empty() ? "" : qz::test::plain_quote(text);
    std::vector<char> memory(std::max(quoted.size(), text.size()) + 1);
    std::copy(text.begin(), text.end(), memory.begin());
    if (qzcommon_prepare_str_for_shell(memory.data(), size) != 0) {
        require(text == memory.data());
        return 0;
    }
    require(quoted == memory.data());
    require(quoted.size() + 1 <= static_cast<std::size_t>(size) + 4);
    return 0;
}
