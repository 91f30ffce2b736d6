#include "qz/search_path.h"

#include "qzfile.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qz::cli {

namespace {

constexpr const char *kVariable = "QZ_PATH";
constexpr int kDefaultTemplate = 2;

struct List {
    std::string origin;
    std::string text;
};

/// The lists that make the path, in order.
std::vector<List> lists_of(const SearchPathOptions &options)
{
    std::vector<List> lists;
    if (!options.only)
        lists = {{"default", "."}, {"default", qzfile_get_constant(kDefaultTemplate)}};
    const char *const from_environment = std::getenv(kVariable);
    if (from_environment && *from_environment)
        lists.push_back({"environment", from_environment});
    for (const std::string &list : options.lists)
        lists.push_back({"option", list});
    return lists;
}

/// The directories of the library's path.
std::vector<std::string> current_entries()
{
    std::vector<std::string> entries;
    std::FILE *const stream = std::tmpfile();
    if (!stream)
        return entries;
    qzfile_path_print(stream);
    std::rewind(stream);
    // The directories alone could not be told apart: drive letters have the separator in them.
    std::array<char, 2048> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), stream)) {
        const char *const directory = std::strstr(line.data(), "dir:");
        if (std::strncmp(line.data(), "item:", 5) != 0 || !directory)
            continue;
        entries.emplace_back(directory + std::strlen("dir:"));
        if (!entries.back().empty() && entries.back().back() == '\n')
            entries.back().pop_back();
    }
    std::fclose(stream);
    return entries;
}

// What the library would expand or turn round in an entry, and what stands in for it meanwhile.
constexpr char kTouched[] = {'$', '~', '/'};
constexpr char kStandIns[] = {'\x01', '\x02', '\x03'};

std::string replaced(std::string text, const char (&from)[3], const char (&to)[3])
{
    for (char &c : text) {
        for (std::size_t i = 0; i < std::size(from); ++i) {
            if (c == from[i]) {
                c = to[i];
                break;
            }
        }
    }
    return text;
}

/// The entries of @p list as they are written. The library itself takes the list apart, so that its
/// rule for drive letters is asked, not copied.
std::vector<std::string> written_entries(const std::string &list)
{
    qzfile_path_set(replaced(list, kTouched, kStandIns).c_str());
    std::vector<std::string> entries = current_entries();
    for (std::string &entry : entries)
        entry = replaced(entry, kStandIns, kTouched);
    return entries;
}

std::vector<std::string> unset_variables(const std::string &text)
{
    static const char kNameCharacters[] =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    std::vector<std::string> unset;
    for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at + 1)) {
        const std::size_t end = text.find_first_not_of(kNameCharacters, at + 1);
        const std::string name = text.substr(at + 1, end - at - 1);
        const bool computed = name == "USERDATA" || name == "APPDATA" || name == "LOCAL_APPDATA";
        if (!name.empty() && !computed && !std::getenv(name.c_str()))
            unset.push_back(name);
    }
    return unset;
}

/// The entries that the library makes of one written entry: one, or none when it cannot be taken.
std::vector<std::string> expanded(const std::string &written)
{
    qzfile_path_clear();
    qzfile_path_add(written.c_str());
    return current_entries();
}

} // namespace

void declare_search_path(CLI::App &command, SearchPathOptions &options)
{
    // Each use of the option is one list: a list of the parser's own would be split at commas.
    const auto keep = [&options](const CLI::results_t &results) {
        options.lists = results;
        return true;
    };
    command
        .add_option("-P,--path", keep, "Directories to search after the others; may be repeated")
        ->type_name("LIST")
        ->type_size(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false);
    command.add_flag("-o,--only", options.only, "Leave out the default directories");
}

std::vector<PathEntry> trace_search_path(const SearchPathOptions &options)
{
    std::vector<PathEntry> entries;
    for (const List &list : lists_of(options)) {
        for (const std::string &written : written_entries(list.text)) {
            for (const std::string &directory : expanded(written)) {
                const auto same =
                    std::find_if(entries.begin(), entries.end(), [&](const PathEntry &other) {
                        return other.same_as < 0 && other.directory == directory;
                    });
                const int same_as =
                    same == entries.end() ? -1 : static_cast<int>(same - entries.begin());
                entries.push_back(
                    {written, directory, list.origin, unset_variables(written), same_as});
            }
        }
    }
    return entries;
}

void make_search_path(const SearchPathOptions &options)
{
    qzfile_path_clear();
    for (const List &list : lists_of(options))
        qzfile_path_add(list.text.c_str());
}

} // namespace qz::cli
