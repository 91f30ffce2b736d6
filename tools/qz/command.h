#ifndef QZ_TOOLS_COMMAND_H
#define QZ_TOOLS_COMMAND_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace qz::cli {

/// Exit statuses of this program's own; the others are the codes of the library.
constexpr int kExitUsage = 64;      ///< the command line is not understood
constexpr int kExitOutputLost = 74; ///< standard output took not all of the answer

/// The command that the command line chose, ready to run; it returns the exit status.
using Chosen = std::function<int()>;

/// What every command takes.
struct CommonOptions {
    bool json = false;
};

/// Adds command @p name below @p parent. Its options are those that @p declare binds to a value of
/// type Options, and it runs as @p run(options).
template <typename Options>
CLI::App *add_command(CLI::App &parent, Chosen &chosen, const std::string &name,
                      const std::string &description, void (*declare)(CLI::App &, Options &),
                      int (*run)(const Options &))
{
    CLI::App *command = parent.add_subcommand(name, description);
    auto options = std::make_shared<Options>();
    declare(*command, *options);
    command->add_flag("--json", options->json, "Print the answer as JSON");
    command->callback(
        [&chosen, options, run] { chosen = [options, run] { return run(*options); }; });
    return command;
}

/// Adds an argument that takes every word left on the command line, each exactly as it stands: the
/// parser on its own would take "[a,b]" for a list and "{}" for an empty one.
CLI::Option *add_words(CLI::App &command, const std::string &name, std::vector<std::string> &words,
                       const std::string &description);

// In the order of the help.
void add_pref_commands(CLI::App &app, Chosen &chosen);
void add_layout_commands(CLI::App &app, Chosen &chosen);
void add_find_commands(CLI::App &app, Chosen &chosen);
void add_line_ending_command(CLI::App &app, Chosen &chosen);
void add_digest_command(CLI::App &app, Chosen &chosen);
void add_token_commands(CLI::App &app, Chosen &chosen);
void add_match_commands(CLI::App &app, Chosen &chosen);
void add_service_commands(CLI::App &app, Chosen &chosen);
void add_base64_command(CLI::App &app, Chosen &chosen);

} // namespace qz::cli

#endif
