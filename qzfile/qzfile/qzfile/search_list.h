#ifndef QZ_QZFILE_SEARCH_LIST_H
#define QZ_QZFILE_SEARCH_LIST_H

#include <string>
#include <string_view>
#include <vector>

namespace qz::file {

/// The entries of a search-path list as they are written, none of them empty. ':' and ';' separate,
/// but for the one between a single letter and a '\\': that is a drive, "C:\\data", however its
/// separator was written. "C:/data" is two entries.
std::vector<std::string> split_search_list(std::string_view list);

} // namespace qz::file

#endif
