#pragma once

#include <string>

namespace qz::test {

/// What quoting for the shell makes of @p text, which is not empty, with memory as needed.
inline std::string plain_quote(const std::string &text)
{
    std::string working;
    for (char c : text)
        working += c == '"' ? "\\\"" : std::string(1, c);
    const std::string doubled = working[0] == '\\' ? "\\" : "";
    return working[0] + doubled + '"' + working.substr(1) + '"';
}

} // namespace qz::test
