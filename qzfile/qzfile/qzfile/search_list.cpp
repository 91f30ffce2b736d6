#include "qzfile/qzfile/qzfile/search_list.h"

#include "qzfile/qzfile/qzfile/path_text.h"

#include <algorithm>

namespace qz::file {

std::vector<std::string> split_search_list(std::string_view list)
{
    std::vector<std::string> entries;
    std::string drive;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of(":;"), list.size());
        const std::string_view token = list.substr(0, end);
        list.remove_prefix(std::min(end + 1, list.size()));
        if (token.empty())
            continue;
        if (token.size() == 1 && is_drive_letter(token[0]) && !list.empty() && list[0] == '\\') {
            drive.assign(token).append(":");
            continue;
        }
        entries.push_back(drive.append(token));
        drive.clear();
    }
    return entries;
}

} // namespace qz::file
