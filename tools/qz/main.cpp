#include "platform/standard_streams.h"
#include "qz/command.h"
#include "qz/output.h"
#include "qzfile.hpp"

#include <cstdio>
#include <exception>

using namespace qz::cli;

namespace {

constexpr const char *kFooter =
    "'qz COMMAND --help' tells about one command. Words after -- are never taken for options.\n"
    "The exit status is the code of the library, 0 for success; 64 for a command line that is not\n"
    "understood.";

/// The innermost command that was named on the command line.
const CLI::App *innermost(const CLI::App *command)
{
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    return command;
}

std::string full_name(const CLI::App *command)
{
    const CLI::App *parent = command->get_parent();
    return parent ? full_name(parent) + ' ' + command->get_name() : command->get_name();
}

std::string parent_name(const CLI::App *command)
{
    return command->get_parent() ? full_name(command->get_parent()) : std::string();
}

/// A line of the help: "Usage: qz pref get [OPTIONS] product key".
std::string usage_of(const CLI::App *command)
{
    const std::string help = command->help(parent_name(command));
    const std::size_t usage = help.find("Usage:");
    return usage == std::string::npos ? std::string()
                                      : help.substr(usage, help.find('\n', usage) - usage) + '\n';
}

/// What is wrong, in words that name the word at fault.
std::string complaint(const CLI::App *command, const CLI::ParseError &error, bool has_commands)
{
    const std::vector<std::string> left = command->remaining();
    if (left.empty())
        return error.what();
    const std::string word = '\'' + left.front() + '\'';
    if (has_commands)
        return word + " is not a command of '" + full_name(command) + '\'';
    if (left.front().size() > 1 && left.front().front() == '-')
        return word + " is not an option here; write -- before words that begin with a '-'";
    return word + " is one argument too many";
}

int refuse(const CLI::App &app, const CLI::ParseError &error)
{
    const CLI::App *command = innermost(&app);
    const bool has_commands =
        !command->get_subcommands([](const CLI::App *) { return true; }).empty();
    if (has_commands && command->remaining().empty()) {
        std::fputs(command->help(parent_name(command)).c_str(), stderr);
        return kExitUsage;
    }
    complain(complaint(command, error, has_commands));
    std::fprintf(stderr, "%sTry '%s --help'.\n", usage_of(command).c_str(),
                 full_name(command).c_str());
    return kExitUsage;
}

int run(int argc, char **argv)
{
    CLI::App app("Preferences, installation and files of the Halcyra suite.", "qz");
    Chosen chosen;
    app.allow_windows_style_options(false); // "/etc" is a path on every system
    app.require_subcommand(1);
    app.set_version_flag("--version", "qz " + halcyra::release_name());
    app.footer(kFooter);
    add_pref_commands(app, chosen);
    add_layout_commands(app, chosen);
    add_find_commands(app, chosen);
    add_line_ending_command(app, chosen);
    add_digest_command(app, chosen);
    add_token_commands(app, chosen);
    add_match_commands(app, chosen);
    add_service_commands(app, chosen);
    add_base64_command(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp &) {
        print(app.help());
        return finish_output(0);
    } catch (const CLI::CallForVersion &version) {
        print_line(version.what());
        return finish_output(0);
    } catch (const CLI::ParseError &error) {
        return refuse(app, error);
    }
    return finish_output(chosen());
}

} // namespace

int main(int argc, char **argv)
{
    const qz::platform::ReadableText readable;
    try {
        return run(argc, argv);
    } catch (const std::exception &error) {
        complain(error.what());
        return 1;
    }
}
