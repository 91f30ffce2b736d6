#include "qz/output.h"
#include "qz/search_path.h"
#include "qzfile.h"

#include <cstdlib>

namespace qz::cli {

namespace {

struct FindOptions : SearchPathOptions {
    std::vector<std::string> names;
};

struct WhereOptions : SearchPathOptions {
    std::string name;
};

struct AddOptions : SearchPathOptions {};

void declare_lookup(CLI::App &command, SearchPathOptions &options)
{
    command.add_flag("-d,--directory", options.directory, "Look for a directory, not a file");
    declare_search_path(command, options);
}

void declare_find(CLI::App &command, FindOptions &options)
{
    add_words(command, "name", options.names, "Names to look up")->required();
    declare_lookup(command, options);
}

void declare_where(CLI::App &command, WhereOptions &options)
{
    command.add_option("name", options.name, "Name to look up")->required();
    declare_lookup(command, options);
}

void declare_add(CLI::App &command, AddOptions &options)
{
    add_words(command, "list", options.lists, "Directories, separated by : or ;")->required();
    command.add_flag("-o,--only", options.only, "Leave out the default directories");
}

int type_of(const SearchPathOptions &options)
{
    return options.directory ? 1 : 0;
}

/// The path under which the library finds @p name; empty when it does not.
std::string find(const std::string &name, int type)
{
    char *path = nullptr;
    const std::string found = qzfile_find(name.c_str(), type, &path) == 0 && path ? path : "";
    std::free(path);
    return found;
}

QJsonValue json_path(const std::string &path)
{
    return path.empty() ? QJsonValue() : QJsonValue(json_text(native(path)));
}

int run_find(const FindOptions &options)
{
    make_search_path(options);
    int status = 0;
    QJsonArray answer;
    for (const std::string &name : options.names) {
        const std::string path = find(name, type_of(options));
        answer.append(QJsonObject{{"name", json_text(name)}, {"path", json_path(path)}});
        if (path.empty()) {
            complain(name + ": not found");
            status = 1;
        } else if (!options.json) {
            print_line(native(path));
        }
    }
    if (options.json)
        print_json(answer);
    return status;
}

/// Whether the library's lookup stops at this entry.
bool is_in(const std::string &directory, const std::string &name, int type)
{
    const std::string candidate = directory + qzfile_get_filesep_char() + name;
    return !directory.empty() && qzfile_file_exists(candidate.c_str(), type) == 0;
}

/// What became of an entry in a lookup, and what there is to say about it.
struct Outcome {
    const char *word;
    std::string remark;
};

/// Looks @p name up in every entry, the ones behind the first hit too.
std::vector<Outcome> look_up(const std::vector<PathEntry> &entries, const std::string &name,
                             int type)
{
    std::vector<Outcome> outcomes;
    bool found = false;
    for (const PathEntry &entry : entries) {
        Outcome outcome{"miss", {}};
        if (entry.same_as >= 0) {
            outcome.word = "dropped";
        } else if (is_in(entry.directory, name, type)) {
            outcome.word = found ? "shadowed" : "hit";
            found = true;
        } else if (is_in(entry.directory, name, 1 - type)) {
            outcome.remark = type == 0 ? "a directory there" : "a file there";
        }
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

/// "PLINDRA_EXEC is not set", "as entry 1", and what else is strange about an entry.
std::string remarks(const PathEntry &entry, std::string text)
{
    const auto add = [&text](const std::string &remark) {
        text += (text.empty() ? "" : ", ") + remark;
    };
    for (const std::string &name : entry.unset)
        add(name + " is not set");
    if (entry.directory.empty())
        add("empty, passed over");
    if (entry.same_as >= 0)
        add("the same as " + std::to_string(entry.same_as + 1));
    return text;
}

QJsonObject json_of(const PathEntry &entry)
{
    QJsonArray unset;
    for (const std::string &name : entry.unset)
        unset.append(json_text(name));
    QJsonObject object{{"written", json_text(entry.written)},
                       {"directory", json_text(native(entry.directory))},
                       {"origin", json_text(entry.origin)},
                       {"unset", unset}};
    if (entry.same_as >= 0)
        object["same_as"] = entry.same_as;
    return object;
}

void print_trace(const std::vector<PathEntry> &entries, const std::vector<Outcome> &outcomes)
{
    Table table({"", "#", "RESULT", "DIRECTORY", "FROM", "WRITTEN", ""});
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const bool hit = outcomes[i].word == std::string("hit");
        const auto look = hit                                           ? Look::Good
                          : outcomes[i].word == std::string("shadowed") ? Look::Odd
                                                                        : Look::Faint;
        table.add({{hit ? "=>" : "  ", look},
                   std::to_string(i + 1),
                   {outcomes[i].word, look},
                   native(entries[i].directory),
                   entries[i].origin,
                   entries[i].written,
                   {remarks(entries[i], outcomes[i].remark), Look::Faint}});
    }
    table.print();
}

int run_where(const WhereOptions &options)
{
    const int type = type_of(options);
    const bool absolute = qzfile_path_is_absolute(options.name.c_str()) == 0;
    std::vector<PathEntry> entries;
    std::vector<Outcome> outcomes;
    if (!absolute) {
        entries = trace_search_path(options);
        outcomes = look_up(entries, options.name, type);
    }
    make_search_path(options);
    const std::string path = find(options.name, type);
    if (options.json) {
        QJsonArray trace;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            QJsonObject entry = json_of(entries[i]);
            entry["result"] = outcomes[i].word;
            trace.append(entry);
        }
        print_json(QJsonObject{{"name", json_text(options.name)},
                               {"path", json_path(path)},
                               {"absolute", absolute},
                               {"entries", trace}});
    } else {
        const Style style = Style::of_stdout();
        print_line(style.strong(printable(options.name)) +
                   (path.empty() ? style.bad(" is not found") : " is " + style.good(native(path))) +
                   (absolute ? ": an absolute name is not searched for" : ""));
        if (!entries.empty()) {
            print_line("");
            print_trace(entries, outcomes);
        }
    }
    return path.empty() ? 1 : 0;
}

template <typename Options> int run_path(const Options &options)
{
    constexpr int kDirectory = 1;
    QJsonArray answer;
    Table table({"#", "DIRECTORY", "FROM", "WRITTEN", ""});
    int number = 0;
    for (const PathEntry &entry : trace_search_path(options)) {
        const bool there = qzfile_file_exists(entry.directory.c_str(), kDirectory) == 0;
        QJsonObject object = json_of(entry);
        object["exists"] = there;
        answer.append(object);
        table.add({std::to_string(++number),
                   native(entry.directory),
                   entry.origin,
                   entry.written,
                   {remarks(entry, there ? "" : "not there"), Look::Faint}});
    }
    if (options.json)
        print_json(answer);
    else
        table.print();
    return 0;
}

} // namespace

void add_find_commands(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "find", "Find files on the search path", declare_find, run_find);
    add_command(app, chosen, "where", "Show how a name is looked up, entry by entry", declare_where,
                run_where);
    CLI::App *path = app.add_subcommand("path", "Show what the search path is made of");
    path->require_subcommand(1);
    add_command(*path, chosen, "show", "Print the search path", declare_search_path,
                run_path<SearchPathOptions>);
    add_command(*path, chosen, "add", "Print what the search path becomes when lists are added",
                declare_add, run_path<AddOptions>);
    path->footer("The path is that of a fresh process: the default directories, then those of the "
                 "variable\nQZ_PATH, then those of the command line. It ends with the process.");
}

} // namespace qz::cli
