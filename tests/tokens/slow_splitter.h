/** @file
 *  The rules of splitting, one after the other, with a search in the sets for every character.
 */
#pragma once

#include <string>

inline bool in_set(const std::string &set, char c)
{
    return set.find(c) != std::string::npos;
}

/// @param[out] tokens  Each token in brackets.
/// @return the messages that go with it.
inline std::string slow_split(const std::string &line, const std::string &separators,
                              const std::string &pairs, const std::string &comments,
                              const std::string &escapes, const std::string &singles,
                              std::string &tokens)
{
    tokens.clear();
    if (line.empty())
        return "";
    if (pairs.size() % 2 != 0)
        return "FATAL  qztoken_new(): an even number of pair separators must supplied\n";
    std::string opening;
    for (std::size_t i = 0; i < pairs.size(); i += 2)
        opening += pairs[i];

    std::string token;
    std::size_t at = 0;
    const auto end_token = [&] {
        tokens += "[" + token + "]";
        token.clear();
    };
    const auto skip_run = [&] {
        while (at < line.size() && in_set(separators, line[at]))
            ++at;
    };
    while (at < line.size()) {
        const char c = line[at];
        if (in_set(comments, c))
            return "";
        if (in_set(escapes, c)) {
            if (++at < line.size())
                token += line[at++];
        } else if (in_set(opening, c)) {
            const char closing = pairs[2 * opening.find(c) + 1];
            for (++at; at < line.size() && line[at] != closing; ++at)
                token += line[at];
            if (at == line.size()) {
                if (!token.empty())
                    end_token();
                return std::string("WARNING  qztoken_new(), unmatched separator pair ") + c +
                       " <-> " + closing + " in input: " + line + " \n";
            }
            ++at;
            skip_run();
            end_token();
        } else if (in_set(separators, c)) {
            skip_run();
            if (!token.empty())
                end_token();
        } else if (in_set(singles, c)) {
            if (token.empty())
                token = line[at++];
            end_token();
        } else {
            token += line[at++];
        }
    }
    if (!token.empty())
        end_token();
    return "";
}
