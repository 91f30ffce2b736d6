#ifndef QZ_QZFILE_SEARCH_PATH_H
#define QZ_QZFILE_SEARCH_PATH_H

#include <cstdio>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace qz::file {

/// A directory in which files are looked up.
struct SearchDirectory {
    std::string text;
    bool is_working_directory = false; ///< added as what was the working directory then
    bool is_home = false;              ///< added as the user's home
    /// What comes before a name on its way to the system, kept ready for lookups; "" where nothing
    /// can be found.
    std::string native_prefix = {};
};

/// The directories in which files are looked up, in order and each once.
class SearchPath {
public:
    /// The list of a fresh process: the working directory and the shared components' data.
    SearchPath();

    /// Adds the directories of a list, expanded and with '\\' as their separator. One that is too
    /// long is reported and left out: a shortened one would name something else.
    void add_list(std::string_view list);

    /// Adds a directory at the end; one whose text is there already is dropped.
    void add(SearchDirectory directory);

    void clear();

    const std::vector<SearchDirectory> &directories() const { return directories_; }

private:
    std::vector<SearchDirectory> directories_;
    std::unordered_set<std::string> texts_; ///< of the directories, to know one that is there
};

/// The search path of the process, made by the first call.
SearchPath &search_path();

/// Writes the list with a number for each directory; null stands for one that could not be made.
void print(const SearchPath *path, std::FILE *stream);

} // namespace qz::file

#endif
