// The splitter against the rules written down slowly, and the calls that read what it made.

#include "fuzz/require.h"
#include "qzerr.hpp"
#include "qztoken.h"
#include "tests/tokens/slow_splitter.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using qz::fuzz::require;

/// The input is five lines, each a set, and the text behind them; a NUL ends each as for a caller.
std::string next_field(std::string &input)
{
    const std::size_t end = input.find('\n');
    std::string field = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + 1);
    return field.c_str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    std::string input(reinterpret_cast<const char *>(data), size);
    std::array<std::string, 5> sets;
    for (std::string &set : sets)
        set = next_field(input);
    const std::string line = input.c_str();

    halcyra::qzlibs::CaptureQZErr capture(-1);
    int handle = -1;
    require(qztoken_new(&handle, line.c_str(), sets[0].c_str(), sets[1].c_str(), sets[2].c_str(),
                        sets[3].c_str(), sets[4].c_str()) == 0);
    std::string tokens;
    for (int i = 0; i < qztoken_num(handle); ++i)
        tokens.append("[").append(qztoken_get_token(handle, i)).append("]");
    std::string expected;
    slow_split(line, sets[0], sets[1], sets[2], sets[3], sets[4], expected);
    require(tokens == expected);

    qztoken_merge(handle, handle);
    qztoken_mergen(handle, handle, static_cast<int>(size % 40), 0, static_cast<int>(size) - 20);
    qztoken_toupper(handle);
    std::free(qztoken_get_string(handle));
    while (qztoken_num(handle) > 0)
        require(qztoken_delete_token(handle, qztoken_num(handle) / 2) == 0);
    require(qztoken_delete(handle) == 0);
    return 0;
}
