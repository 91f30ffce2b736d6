#include "tokens/character_roles.h"

#include <algorithm>

namespace qz::tokens {
namespace {

constexpr std::size_t kMaxPairs = 9999;

} // namespace

// The sets are entered from the weakest to the strongest, each over what is there.
CharacterRoles::CharacterRoles(std::string_view separators, std::string_view pairs,
                               std::string_view comments, std::string_view escapes,
                               std::string_view singles)
{
    assign(singles, Role::Single);
    assign(separators, Role::Separator);
    for (char c : separators)
        entries_[static_cast<unsigned char>(c)] |= kSeparatorBit;
    for (std::size_t i = std::min(pairs.size() / 2, kMaxPairs); i-- > 0;) {
        assign(pairs.substr(2 * i, 1), Role::Opening);
        closing_[static_cast<unsigned char>(pairs[2 * i])] = pairs[2 * i + 1];
    }
    assign(escapes, Role::Escape);
    assign(comments, Role::Comment);
    entries_[0] = static_cast<unsigned char>(Role::End);
}

void CharacterRoles::assign(std::string_view set, Role role)
{
    for (char c : set) {
        unsigned char &entry = entries_[static_cast<unsigned char>(c)];
        entry = static_cast<unsigned char>((entry & kSeparatorBit) | static_cast<unsigned>(role));
    }
}

} // namespace qz::tokens
