#ifndef QZ_QZFILE_LOOKUP_H
#define QZ_QZFILE_LOOKUP_H

#include "qzfile/qzfile/qzfile/search_path.h"

#include <string_view>

namespace qz::file {

/// What a lookup asks for, by the callers' numbers; any other number asks for nothing there is.
constexpr int kRegularFile = 0;
constexpr int kDirectory = 1;

struct Lookup {
    bool is_found = false;
    /// Where it was found, borrowed until the search path changes; null for an absolute name.
    const SearchDirectory *directory = nullptr;
};

/// Finds an absolute name where it says and any other in the first directory of the search path
/// that has it. An empty search path is reported.
Lookup look_up(std::string_view name, int type);

} // namespace qz::file

#endif
