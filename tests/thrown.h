#ifndef QZ_TESTS_THROWN_H
#define QZ_TESTS_THROWN_H

#include <string>

namespace qz::test {

/// The text that a call throws; "" when it throws nothing.
template <typename Error, typename Call> std::string thrown(Call call)
{
    try {
        call();
    } catch (const Error &error) {
        return error.what();
    }
    return "";
}

} // namespace qz::test

#endif
