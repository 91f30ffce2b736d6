#pragma once

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
