// Any text, expanded in memory of its own and in place, where the buffer ends with the room that
// is promised.

#include "fuzz/require.h"
#include "fuzz/surroundings.h"
#include "qzfile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

using qz::fuzz::require;

namespace {

bool make_surroundings()
{
    qz::fuzz::make_surroundings("expand_fuzz_home");
    ::setenv("A", "$B", 1);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    [[maybe_unused]] static const bool is_ready = make_surroundings();
    if (size < 2)
        return 0;
    // The first two bytes say how long an expansion is accepted in place.
    const int limit = 1 + (data[0] | (data[1] & 7) << 8);
    std::string text(data + 2, data + size);
    text = text.c_str();

    char *out = nullptr;
    const int status = qzfile_dir_expand(text.c_str(), &out);
    require(out != nullptr);
    const std::string expansion = out;
    std::free(out);
    if (text.find_first_of("~$") == std::string::npos)
        require(status == 0 && expansion == text);

    const std::size_t room =
        std::max<std::size_t>(static_cast<std::size_t>(limit), text.size()) + 1;
    const auto buffer = std::make_unique<char[]>(room);
    text.copy(buffer.get(), text.size());
    const int status_in_place = qzfile_dir_expand_buffer(buffer.get(), limit);
    if (text.empty() || text.size() > 1024)
        require(status_in_place == -1 && text == buffer.get());
    else if (expansion.size() <= static_cast<std::size_t>(limit))
        require(status_in_place == status && expansion == buffer.get());
    else
        require(status_in_place == -1 &&
                expansion.substr(0, static_cast<std::size_t>(limit)) == buffer.get());
    return 0;
}
