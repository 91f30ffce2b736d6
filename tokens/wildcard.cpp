#include "tokens/wildcard.h"

#include "qzerr.h"
#include "tokens/report.h"

#include <array>
#include <string_view>

namespace qz::tokens {
namespace {

/// The expression with its terminator.
constexpr std::size_t kExpressionSize = 10000;

class Expression {
public:
    void add(std::string_view text)
    {
        if (text.size() < kExpressionSize - length_)
            text.copy(buffer_.data() + length_, text.size());
        else
            fits_ = false;
        length_ += fits_ ? text.size() : 0;
    }

    bool fits() const { return fits_; }

    const char *c_str()
    {
        buffer_[length_] = '\0';
        return buffer_.data();
    }

private:
    std::array<char, kExpressionSize> buffer_;
    std::size_t length_ = 0;
    bool fits_ = true;
};

bool is_escapable(char c)
{
    return c != '\0' && std::string_view("[]+#()").find(c) != std::string_view::npos;
}

void rewrite(const char *wildcard, Expression &expression)
{
    expression.add("^");
    for (const char *in = wildcard; *in != '\0' && expression.fits(); ++in) {
        switch (*in) {
        case '?':
            expression.add(".");
            break;
        case '*':
            expression.add(".*");
            while (in[1] == ' ')
                ++in;
            break;
        case '#':
            expression.add("[0-9]");
            break;
        case '.':
            expression.add("\\.");
            break;
        case '\\':
            if (is_escapable(in[1]))
                expression.add({in++, 2});
            else
                expression.add("\\\\");
            break;
        default:
            expression.add({in, 1});
        }
    }
}

} // namespace

Program compile_wildcard(const char *wildcard)
{
    Expression expression;
    rewrite(wildcard, expression);
    if (!expression.fits()) {
        // In the words in which the engine refuses an expression that is too long for it.
        qzerr_throw(kLibraryHandler, QZERR_FATAL, "Error in regular expression: %s \n",
                    "regexp too big");
        return nullptr;
    }
    return Program(qz_regcomp(expression.c_str()));
}

} // namespace qz::tokens
