/** @file
 *  What a wildcard says: as a regular expression, and as parts between stars.
 */
#ifndef QZFILESHARED_TOKENS_WILDCARD_TEXT_H
#define QZFILESHARED_TOKENS_WILDCARD_TEXT_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qz::tokens {

/// The regular expression of a wildcard, as far as it fits its buffer.
class WildcardExpression {
public:
    explicit WildcardExpression(const char *wildcard);

    bool fits() const { return fits_; }

    const char *c_str() const { return buffer_.data(); }

private:
    void add(std::string_view text);

    /// The expression and its terminator; no caller counts on a longer one.
    std::array<char, 10000> buffer_;
    std::size_t length_ = 0;
    bool fits_ = true;
};

/// In the parts of a wildcard: any character, and a digit.
constexpr char kAnyCharacter = '\1';
constexpr char kAnyDigit = '\2';

/// The parts between the stars, each with its terminator. Only the first part, which stands at the
/// start of the text, has '?' and '#': the search for the others is one for a plain text.
/// @return empty for a wildcard that says more than that.
std::string wildcard_parts(const char *wildcard);

} // namespace qz::tokens

#endif
