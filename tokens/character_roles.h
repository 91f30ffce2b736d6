/** @file
 *  What each character of a line means to the splitter.
 */
#ifndef QZFILESHARED_TOKENS_CHARACTER_ROLES_H
#define QZFILESHARED_TOKENS_CHARACTER_ROLES_H

#include <array>
#include <cstddef>
#include <string_view>

namespace qz::tokens {

enum class Role : unsigned char { Ordinary, Single, Separator, Opening, Escape, Comment, End };

/// A character may stand in several sets. Its role is decided by the first set in the order
/// comment, escape, opening, separator, single; but a run of separators that has begun takes every
/// character of the separator set, whatever else it is.
class CharacterRoles {
public:
    /// @p pairs has an even length; of two pairs with the same opening character the first counts.
    CharacterRoles(std::string_view separators, std::string_view pairs, std::string_view comments,
                   std::string_view escapes, std::string_view singles);

    Role of(char c) const { return static_cast<Role>(entry(c) & kRoleMask); }

    bool is_ordinary(char c) const { return entry(c) == 0; }

    bool is_separator(char c) const { return (entry(c) & kSeparatorBit) != 0; }

    /// The closing character of a character whose role is Opening.
    char closing(char c) const { return closing_[static_cast<unsigned char>(c)]; }

private:
    static constexpr unsigned char kRoleMask = 0x7f;
    static constexpr unsigned char kSeparatorBit = 0x80;

    unsigned char entry(char c) const { return entries_[static_cast<unsigned char>(c)]; }

    void assign(std::string_view set, Role role);

    std::array<unsigned char, 256> entries_{};
    std::array<char, 256> closing_; // only opening characters have an entry
};

} // namespace qz::tokens

#endif
