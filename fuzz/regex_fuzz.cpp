// Any pattern on any text, and any damage to a compiled program: an answer, never a crash, and the
// same answer from every method of matching.
#include "fuzz/require.h"
#include "qzerr.h"
#include "qzregex.h"
#include "tokens/regex_match.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

struct Free {
    void operator()(qz_regexp *program) const { std::free(program); }
};

using Program = std::unique_ptr<qz_regexp, Free>;

using qz::fuzz::require;

void compare_methods(qz_regexp *program, const std::string &text)
{
    using namespace qz::regex;
    const auto *plan =
        reinterpret_cast<const Plan *>(reinterpret_cast<const char *>(program) + program->plan_at);
    const bool matched = qz_regexec(program, text.c_str()) == 1;
    for (const Method method : {Method::kThorough, Method::kSimulation}) {
        Slots slots{};
        require(search(*plan, text.c_str(), slots, method) == matched);
        for (std::size_t i = 0; matched && i < 10; ++i) {
            require(reinterpret_cast<const char *>(slots[2 * i]) == program->startp[i]);
            require(reinterpret_cast<const char *>(slots[2 * i + 1]) == program->endp[i]);
        }
    }
}

} // namespace

// The input: two bytes of damage, the pattern, a NUL, the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const int quiet = qzerr_file(-1, nullptr);
    static_cast<void>(quiet);
    if (size < 2)
        return 0;
    const std::string input(reinterpret_cast<const char *>(data) + 2, size - 2);
    const std::string pattern = input.c_str();
    const std::string rest = input.substr(std::min(input.size(), pattern.size() + 1));
    const std::string text = rest.c_str();

    const Program program(qz_regcomp(pattern.c_str()));
    if (program == nullptr)
        return 0;
    compare_methods(program.get(), text);
    const int place = data[0] % program->program_size;
    program->program[place] = data[1];
    qz_regexec(program.get(), text.c_str());
    return 0;
}
