#ifndef QZ_TOOLS_SEARCH_PATH_H
#define QZ_TOOLS_SEARCH_PATH_H

#include "qz/command.h"

namespace qz::cli {

/// What the search path consists of besides what every process starts with.
struct SearchPathOptions : CommonOptions {
    std::vector<std::string> lists;
    bool only = false;
    bool directory = false;
};

void declare_search_path(CLI::App &command, SearchPathOptions &options);

/// One directory of the path, and how it came to be there.
struct PathEntry {
    std::string written;            ///< as the list has it
    std::string directory;          ///< expanded, as the library has it
    std::string origin;             ///< "default", "environment" or "option"
    std::vector<std::string> unset; ///< variables in @p written that are not set
    int same_as = -1;               ///< index of the earlier entry for which this one is dropped
};

/// Takes the search path apart, entry by entry, in the order in which it is made. The library's own
/// path is changed meanwhile.
std::vector<PathEntry> trace_search_path(const SearchPathOptions &options);

/// Gives the library's search path the form that the options ask for.
void make_search_path(const SearchPathOptions &options);

} // namespace qz::cli

#endif
