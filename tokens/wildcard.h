/** @file
 *  Wildcards: '?' any character, '*' any text, '#' a digit. A wildcard matches every text that
 *  begins with a match.
 */
#ifndef QZFILESHARED_TOKENS_WILDCARD_H
#define QZFILESHARED_TOKENS_WILDCARD_H

#include "qzregex.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace qz::tokens {

/// A text to match. It knows which characters it has, of 64 kinds: most wildcards ask for one that
/// it has not.
struct Subject {
    const char *text;
    std::uint64_t characters = 0;

    explicit Subject(const char *subject_text);
};

class Wildcard {
public:
    /// Compiles @p text as a regular expression. When it is too long or malformed that is reported,
    /// and the wildcard matches nothing.
    explicit Wildcard(const char *text);

    bool matches(const Subject &subject) const;

private:
    struct FreeProgram {
        void operator()(qz_regexp *program) const { std::free(program); }
    };

    bool matches_parts(const char *text) const;

    std::unique_ptr<qz_regexp, FreeProgram> program_;
    /// What stands between the stars, each part with its terminator, of a wildcard that means the
    /// same without the engine; empty for another one.
    std::string parts_;
    std::uint64_t characters_ = 0; ///< the characters in the parts
};

} // namespace qz::tokens

#endif
