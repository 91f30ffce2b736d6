#include "qz/command.h"
#include "qz/output.h"
#include "qzerr.h"
#include "qzfile.hpp"
#include "qzpref.hpp"

#include <cstdlib>
#include <stdexcept>

namespace qz::cli {

namespace {

struct DirsOptions : CommonOptions {
    std::string name;
};

struct PlainOptions : CommonOptions {};

std::string directory(DirectoryName which)
{
    return qzfile_get_directory_path(which);
}

template <DirectoryName which> std::string named_directory()
{
    return directory(which);
}

std::string installation_root()
{
    return halcyra::path::halcyra_dir().string();
}

std::string preferences_directory()
{
    return halcyra::preferences::internal::get_qzpref_directory(halcyra::release_name());
}

struct NamedDirectory {
    const char *name;
    const char *description;
    std::string (*find)();
};

// Not constexpr: the address of a function in a DLL is none.
const NamedDirectory kDirectories[] = {
    {"root", "installation", installation_root},
    {"config", "installation-wide configuration", qzfile_get_config_dir},
    {"home", "the user's home", named_directory<DirectoryName::Home>},
    {"appdata", "application data that follow the user", named_directory<DirectoryName::AppData>},
    {"local", "application data of this machine", named_directory<DirectoryName::LocalAppData>},
    {"userdata", "the user's own data", named_directory<DirectoryName::UserData>},
    {"release", "application data of this release", qzfile_get_appdata_release_dir_path},
    {"preferences", "preferences of this release", preferences_directory},
    {"temp", "temporary files", named_directory<DirectoryName::Temp>},
    {"desktop", "desktop", named_directory<DirectoryName::Desktop>},
    {"documents", "documents", named_directory<DirectoryName::MyDocuments>},
    {"network", "network places", named_directory<DirectoryName::MyNetworkPlaces>},
};

void declare_plain(CLI::App &, PlainOptions &) {}

void declare_dirs(CLI::App &command, DirsOptions &options)
{
    std::vector<std::string> names;
    for (const NamedDirectory &known : kDirectories)
        names.emplace_back(known.name);
    command.add_option("name", options.name, "Print only this one: " + CLI::detail::join(names))
        ->check(CLI::IsMember(names).description(""))
        ->type_name("");
}

int run_dirs(const DirsOptions &options)
{
    int code = 0;
    Table table({"NAME", "DIRECTORY", "FOR"});
    QJsonObject answer;
    for (const NamedDirectory &known : kDirectories) {
        if (!options.name.empty() && options.name != known.name)
            continue;
        std::string path;
        try {
            path = native(known.find());
        } catch (const std::exception &error) {
            complain(std::string(known.name) + ": " + error.what());
        }
        if (path.empty())
            code = 1;
        answer[known.name] = path.empty() ? QJsonValue() : QJsonValue(json_text(path));
        if (!options.name.empty() && !options.json && !path.empty())
            print_line(path);
        table.add({known.name, path.empty() ? "-" : path, {known.description, Look::Faint}});
    }
    if (options.json)
        print_json(answer);
    else if (options.name.empty())
        table.print();
    else if (code)
        complain(options.name + ": not set");
    return code;
}

/// The directory of a product below the installation root; empty when there is none.
std::string installed_directory(const std::string &word)
{
    char *path = nullptr;
    qzerr_suppress_print(-1);
    const int code = qzfile_find_product_dir(word.c_str(), &path);
    qzerr_restore_print(-1);
    std::string directory = code == 0 && path ? native(path) : std::string();
    std::free(path);
    return directory;
}

int run_products(const PlainOptions &options)
{
    Table preferences({"NUMBER", "PREFERENCES OF"});
    QJsonArray with_preferences;
    for (int number = 0;; ++number) {
        const std::string name =
            halcyra::preferences::product_name(static_cast<QZPREF_PRODUCTS>(number));
        if (name.empty())
            break;
        preferences.add({std::to_string(number), name});
        with_preferences.append(QJsonObject{{"number", number}, {"name", json_text(name)}});
    }
    Table directories({"PRODUCT", "VERSION", "DIRECTORY"});
    QJsonArray installable;
    for (const std::string &word : qzfile_get_product_directory_names()) {
        int version = 0;
        qzfile_get_product_version(word.c_str(), &version);
        const std::string path = installed_directory(word);
        directories.add({word, std::to_string(version),
                         path.empty() ? Cell("not installed", Look::Faint) : Cell(path)});
        installable.append(
            QJsonObject{{"product", json_text(word)},
                        {"version", version},
                        {"directory", path.empty() ? QJsonValue() : QJsonValue(json_text(path))}});
    }
    if (options.json) {
        print_json(QJsonObject{{"preferences", with_preferences}, {"installation", installable}});
    } else {
        preferences.print();
        print_line("");
        directories.print();
    }
    return 0;
}

int run_releases(const PlainOptions &options)
{
    QJsonArray answer;
    for (const std::string &release : qzfile_get_past_release_names()) {
        if (options.json)
            answer.append(json_text(release));
        else
            print_line(release);
    }
    if (options.json)
        print_json(
            QJsonObject{{"current", json_text(halcyra::release_name())}, {"releases", answer}});
    return 0;
}

} // namespace

void add_layout_commands(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "dirs", "Print the directories of the suite", declare_dirs, run_dirs)
        ->footer("The directories of the user's that the suite keeps for itself are made.");
    add_command(app, chosen, "products", "Print the products, and where they are installed",
                declare_plain, run_products);
    add_command(app, chosen, "releases",
                "Print the release names, newest first; the first one is this release",
                declare_plain, run_releases);
}

} // namespace qz::cli
