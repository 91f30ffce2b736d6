#include "qzfile/qzfile/qzfile/search_path.h"

#include "platform/native_path.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"
#include "qzfile/qzfile/qzfile/search_list.h"
#include "qzfile/qzfile/qzfile/search_templates.h"

#include <new>
#include <utility>

namespace qz::file {

namespace {

/// The longest directory of a list, before and after its expansion.
constexpr std::size_t kLongestDirectory = 1024;

/// What a directory stands for. A home that cannot be found has been reported and stands for
/// nothing.
std::string expanded(const std::string &directory)
{
    char *expansion = nullptr;
    qzfile_dir_expand(directory.c_str(), &expansion);
    if (!expansion)
        throw std::bad_alloc();
    const CText owned(expansion);
    return expansion;
}

SearchPath *search_path_or_null()
{
    return guarded(static_cast<SearchPath *>(nullptr), [] { return &search_path(); });
}

} // namespace

SearchPath::SearchPath()
{
    add_list(".");
    add_list(kSharedComponentsTemplate);
}

void SearchPath::add_list(std::string_view list)
{
    for (const std::string &entry : split_search_list(list)) {
        std::string text = entry.size() > kLongestDirectory ? entry : expanded(entry);
        if (text.size() > kLongestDirectory)
            fail("QZFILE: a directory of the search path is longer than %d bytes: \"%.200s\"\n",
                 static_cast<int>(kLongestDirectory), entry.c_str());
        else
            add({localized(std::move(text))});
    }
}

void SearchPath::clear()
{
    directories_.clear();
    texts_.clear();
}

void SearchPath::add(SearchDirectory directory)
{
    if (texts_.count(directory.text) != 0)
        return;
    if (!directory.text.empty())
        directory.native_prefix = platform::native_path(append_name(directory.text, ""));
    directories_.push_back(directory);
    texts_.insert(std::move(directory.text));
}

SearchPath &search_path()
{
    static SearchPath path;
    return path;
}

void print(const SearchPath *path, std::FILE *stream)
{
    if (!path) {
        std::fputs("** null object passed to print_search_path **\n", stream);
        return;
    }
    // There is one list, whose number is 0.
    std::fprintf(stream, "QZFILE search path:  id = %d\n", 0);
    int number = 0;
    for (const SearchDirectory &directory : path->directories())
        std::fprintf(stream, "item:%d  cwd:%d home:%d  dir:%s\n", ++number,
                     directory.is_working_directory, directory.is_home, directory.text.c_str());
}

} // namespace qz::file

using namespace qz::file;

int qzfile_path_add(const char *list)
{
    if (!*or_empty(list))
        return fail("QZFILE: empty string was given as a search path\n");
    return guarded(-1, [&] {
        search_path().add_list(list);
        return 0;
    });
}

int qzfile_path_set(const char *list)
{
    qzfile_path_clear();
    return qzfile_path_add(list);
}

int qzfile_path_clear(void)
{
    return guarded(-1, [] {
        search_path().clear();
        return 0;
    });
}

int qzfile_path_add_cwd(void)
{
    char *current = nullptr;
    if (qzfile_dir_current_get(&current) != 0)
        return -1;
    const CText owned(current);
    return guarded(-1, [&] {
        search_path().add({current, true, false});
        return 0;
    });
}

int qzfile_path_add_home(void)
{
    return guarded(-1, [] {
        search_path().add({halcyra::path::home().string(), false, true});
        return 0;
    });
}

int qzfile_path_get(char **out)
{
    return handing_out(out, [&] {
        std::string joined;
        const char *separator = "";
        for (const SearchDirectory &directory : search_path().directories()) {
            joined.append(separator).append(directory.text);
            separator = ":";
        }
        return hand_out(joined, out);
    });
}

int qzfile_path_print(FILE *stream)
{
    if (!stream)
        return -1;
    print(search_path_or_null(), stream);
    return 0;
}
