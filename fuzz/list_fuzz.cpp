// Any list: split as a slow reading of the rule splits it, then taken as the search path.

#include "fuzz/require.h"
#include "fuzz/surroundings.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/search_list.h"
#include "qzfile/qzfile/qzfile/search_path.h"

#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

using qz::fuzz::require;

namespace {

/// Character by character: what is collected so far ends at a separator.
std::vector<std::string> plain_split(const std::string &list)
{
    std::vector<std::string> entries;
    std::string entry;
    std::size_t token_begin = 0;
    for (std::size_t i = 0; i <= list.size(); ++i) {
        const bool is_separator = i < list.size() && (list[i] == ':' || list[i] == ';');
        if (i < list.size() && !is_separator) {
            entry += list[i];
            continue;
        }
        const bool is_letter =
            i - token_begin == 1 && std::isalpha(static_cast<unsigned char>(list[token_begin]));
        if (is_letter && i + 1 < list.size() && list[i + 1] == '\\') {
            entry += ':';
        } else if (!entry.empty()) {
            entries.push_back(entry);
            entry.clear();
        }
        token_begin = i + 1;
    }
    return entries;
}

bool make_surroundings()
{
    qz::fuzz::make_surroundings("list_fuzz_home");
    ::setenv("A", "a/b", 1);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    [[maybe_unused]] static const bool is_ready = make_surroundings();
    std::string list(data, data + size);
    list = list.c_str();
    require(qz::file::split_search_list(list) == plain_split(list));

    require(qzfile_path_set(list.c_str()) == (list.empty() ? -1 : 0));
    std::set<std::string> seen;
    for (const qz::file::SearchDirectory &directory : qz::file::search_path().directories()) {
        require(directory.text.size() <= 1024);
        require(directory.text.find('/') == std::string::npos);
        require(seen.insert(directory.text).second);
    }
    return 0;
}
