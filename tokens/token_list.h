/** @file
 *  One token list: its texts, the patterns compiled from them and the characters that call for
 *  quotes.
 */
#ifndef QZFILESHARED_TOKENS_TOKEN_LIST_H
#define QZFILESHARED_TOKENS_TOKEN_LIST_H

#include "tokens/number.h"
#include "tokens/wildcard.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qz::tokens {

/// What the splitter hands over: tokens that lie behind each other in one block of memory, each
/// with its terminator, and the block padded for parse_number().
struct SplitResult {
    std::unique_ptr<char[]> block;
    std::size_t block_size = 0;
    std::vector<char *> tokens;
};

/// The tokens of a split line share one block, so that a long line costs two allocations and not
/// one for every token. A token that is added or replaced later has storage of its own.
/// Every text stays where it is until its own token is replaced or removed.
class TokenList {
public:
    TokenList() = default;
    TokenList(const TokenList &) = delete;
    TokenList &operator=(const TokenList &) = delete;

    ~TokenList() { clear(); }

    int count() const { return static_cast<int>(tokens_.size()); }

    bool holds(int index) const { return index >= 0 && index < count(); }

    const char *token(int index) const { return tokens_[static_cast<std::size_t>(index)]; }

    /// The token as a number. The last one is kept: callers ask for its type, then for its value.
    Number number(int index) { return index == number_index_ ? number_ : read_number(index); }

    /// Calls @p change with the text of the token, to change it in place.
    template <typename Change> auto edit(int index, Change change)
    {
        number_index_ = kNoIndex;
        return change(tokens_[static_cast<std::size_t>(index)]);
    }

    /// The calls that take or make texts throw std::bad_alloc and then leave the list as it was.
    /// @p text may be a token of this list.
    void append(std::string_view text);
    /// Appends @p text in a field of blanks, see field_of().
    void append_field(std::string_view text, int width, bool left, int offset);
    void replace(int index, std::string_view text);
    void remove(int index);
    /// Releases the tokens; the patterns and the quoted characters stay.
    void clear() noexcept;
    /// Puts the tokens of a split line in the place of those that are there.
    void adopt(SplitResult &&split) noexcept;

    std::string quoted_characters = " ";
    std::vector<Wildcard> patterns;

private:
    static constexpr int kNoIndex = -1;

    Number read_number(int index);
    void append_owned(std::unique_ptr<char[]> text);
    void release(char *token) noexcept;
    bool in_block(const char *token) const;

    std::vector<char *> tokens_;
    std::unique_ptr<char[]> block_;
    std::size_t block_size_ = 0;
    std::size_t separate_count_ = 0; ///< tokens with storage of their own
    int number_index_ = kNoIndex;    ///< the token that number_ was read from
    Number number_;
};

} // namespace qz::tokens

#endif
