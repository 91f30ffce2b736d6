// Wildcards: every text is compiled, and the matcher for simple ones agrees with the engine.

#include "fuzz/require.h"
#include "qzerr.hpp"
#include "qzregex.h"
#include "tokens/wildcard.h"
#include "tokens/wildcard_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

using namespace qz::tokens;
using qz::fuzz::require;

/// The input is the wildcard up to the end of its line, and the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char *>(data), size);
    const std::size_t end = input.find('\n');
    const std::string wildcard = input.substr(0, end).c_str();
    const std::string text = end == std::string::npos ? "" : input.substr(end + 1).c_str();

    halcyra::qzlibs::CaptureQZErr capture(-1);
    const Wildcard compiled(wildcard.c_str());
    const bool matches = compiled.matches(Subject(text.c_str()));
    const WildcardExpression expression(wildcard.c_str());
    bool expected = false;
    if (expression.fits()) {
        const std::unique_ptr<qz_regexp, void (*)(void *)> program(qz_regcomp(expression.c_str()),
                                                                   std::free);
        expected = program != nullptr && qz_regexec(program.get(), text.c_str()) == 1;
    }
    require(matches == expected);
    return 0;
}
