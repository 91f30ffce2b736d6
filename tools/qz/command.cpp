#include "qz/command.h"

namespace qz::cli {

CLI::Option *add_words(CLI::App &command, const std::string &name, std::vector<std::string> &words,
                       const std::string &description)
{
    // An argument that expects this many takes all there are without being asked for "extra" ones,
    // and only extra ones are split.
    constexpr int kAnyNumber = 1 << 28;
    const auto keep = [&words](const CLI::results_t &results) {
        words = results;
        return true;
    };
    return command.add_option(name, keep, description)
        ->type_size(1)
        ->expected(kAnyNumber)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

} // namespace qz::cli
