// Any text, expanded in memory of its own and in place, where the buffer ends with the room that
// is promised.

#include "fuzz/require.h"
#include "qzerr.h"
#include "qzfile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

using qz::fuzz::require;

namespace {

/// A home and variables of its own, and no output.
bool make_surroundings()
{
    const auto home = std::filesystem::temp_directory_path() / "expand_fuzz_home";
    std::filesystem::create_directories(home);
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("A", "$B", 1);
    ::setenv("L", std::string(600, 'l').c_str(), 1);
    qzerr_level(-1, QZERR_OFF);
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
