#include "qz/command.h"
#include "qz/output.h"
#include "qzcommon.hpp"
#include "qzfile.hpp"

#include <algorithm>
#include <cstdlib>

namespace qz::cli {

namespace {

struct WordsOptions : CommonOptions {
    std::vector<std::string> words;
};

struct ExpandOptions : WordsOptions {
    bool native = false;
};

struct ScratchOptions : CommonOptions {
    bool pattern = false;
};

struct WebOptions : CommonOptions {};

void declare_texts(CLI::App &command, WordsOptions &options)
{
    add_words(command, "text", options.words, "Paths or arguments")->required();
}

void declare_expand(CLI::App &command, ExpandOptions &options)
{
    add_words(command, "text", options.words, "Texts with ~, ~USER and $NAME in them")->required();
    command.add_flag("-n,--native", options.native, "Print paths as this system writes them");
    command.footer("USERDATA, APPDATA and LOCAL_APPDATA are directories of the suite, all other "
                   "names are\nvariables; one that is not set expands to nothing.");
}

void declare_scratch(CLI::App &command, ScratchOptions &options)
{
    command.add_flag("--pattern", options.pattern,
                     "Print the regular expression that recognises such names");
}

void declare_products(CLI::App &command, WordsOptions &options)
{
    add_words(command, "product", options.words, "Directory words, as in 'qz products'")
        ->required();
}

void declare_web(CLI::App &, WebOptions &) {}

int run_expand(const ExpandOptions &options)
{
    int status = 0;
    QJsonArray answer;
    for (const std::string &text : options.words) {
        char *out = nullptr;
        if (qzfile_dir_expand(text.c_str(), &out) != 0)
            status = 1;
        std::string expanded = out ? out : "";
        std::free(out);
        if (options.native)
            expanded = native(expanded);
        if (options.json)
            answer.append(
                QJsonObject{{"text", json_text(text)}, {"expanded", json_text(expanded)}});
        else
            print_line(expanded);
    }
    if (options.json)
        print_json(answer);
    return status;
}

/// @return false when the text cannot be quoted.
bool quote(std::string &text)
{
    const auto quotes = std::count(text.begin(), text.end(), '"');
    std::string buffer = text;
    buffer.resize(text.size() + static_cast<std::size_t>(quotes) + 4);
    if (qzcommon_prepare_str_for_shell(buffer.data(), static_cast<int>(buffer.size())) != 0)
        return false;
    text = buffer.c_str();
    return true;
}

int run_shell_quote(const WordsOptions &options)
{
    int status = 0;
    QJsonArray answer;
    for (const std::string &text : options.words) {
        std::string quoted = text;
        if (!quote(quoted)) {
            complain('\'' + text +
                     "' cannot be quoted: it is empty or a single character, or ends "
                     "with a separator");
            status = 1;
            continue;
        }
        if (options.json)
            answer.append(QJsonObject{{"text", json_text(text)}, {"quoted", json_text(quoted)}});
        else
            print_line(quoted);
    }
    if (options.json)
        print_json(answer);
    return status;
}

int run_scratch(const ScratchOptions &options)
{
    const std::string text = options.pattern ? qzcommon_get_scratch_project_regular_expression()
                                             : qzcommon_get_scratch_project_path();
    if (options.json)
        print_json(QJsonObject{{options.pattern ? "pattern" : "path", json_text(text)}});
    else
        print_line(text);
    return 0;
}

int run_check(const WordsOptions &options)
{
    int status = 0;
    QJsonArray answer;
    for (const std::string &word : options.words) {
        int unused = 0;
        const bool installed = qzcommon_check_installation(word.c_str(), &unused) == 0;
        const std::string path = installed ? native(qzfile_get_product_dir_path(word)) : "";
        answer.append(
            QJsonObject{{"product", json_text(word)},
                        {"installed", installed},
                        {"directory", installed ? QJsonValue(json_text(path)) : QJsonValue()}});
        if (!installed)
            complain(word + " is not installed");
        else if (!options.json)
            print_line(path);
        if (!installed)
            status = 1;
    }
    if (options.json)
        print_json(answer);
    return status;
}

int run_web(const WebOptions &options)
{
    const bool allowed = qzcommon_web_access_allowed() == 1;
    if (options.json)
        print_json(QJsonObject{{"allowed", allowed}});
    else
        print_line(allowed ? "allowed" : "not allowed");
    return allowed ? 0 : 1;
}

} // namespace

void add_service_commands(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "expand", "Expand ~ and $NAME in directory names", declare_expand,
                run_expand);
    add_command(app, chosen, "shell-quote", "Quote paths and arguments for a command shell",
                declare_texts, run_shell_quote);
    add_command(app, chosen, "scratch", "Print a path for a new scratch project", declare_scratch,
                run_scratch);
    add_command(app, chosen, "check", "Print where products are installed; 1 when one is not",
                declare_products, run_check);
    add_command(app, chosen, "web", "Tell whether the suite may reach the web; 1 when not",
                declare_web, run_web);
}

} // namespace qz::cli
