#include "qz/command.h"

namespace qz::cli {

CLI::Option *add_words(CLI::App &command, const std::string &name, std::vector<std::string> &words,
                       const std::string &description)
{
    // An argument that expects this many takes all there are without being asked for "extra" ones,
    // and only extra ones are split.
    constexpr int kAnyNumber = CLI::detail::expected_max_vector_size;
    const auto keep = [&words](const CLI::results_t &results) {
        words = results;
        return true;
    };
    return command.add_option(name, keep, description)
        ->type_size(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->expected(kAnyNumber / 2, kAnyNumber)
        ->allow_extra_args(false);
}

} // namespace qz::cli
