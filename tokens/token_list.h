/** @file
 *  One token list: its texts, the patterns compiled from them and the characters that call for
 *  quotes.
 */
#ifndef QZFILESHARED_TOKENS_TOKEN_LIST_H
#define QZFILESHARED_TOKENS_TOKEN_LIST_H

#include "qzregex.h"

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qz::tokens {

/// A program of the regular-expression engine; null when the pattern did not compile.
struct FreeProgram {
    void operator()(qz_regexp *program) const { std::free(program); }
};

using Program = std::unique_ptr<qz_regexp, FreeProgram>;

/// What the splitter hands over: tokens that lie behind each other in one block of memory, each
/// with its terminator.
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
    TokenList(TokenList &&other) noexcept = default;
    TokenList &operator=(TokenList &&other) = delete;

    ~TokenList() { clear(); }

    int count() const { return static_cast<int>(tokens_.size()); }

    bool holds(int index) const { return index >= 0 && index < count(); }

    char *token(int index) { return tokens_[static_cast<std::size_t>(index)]; }

    const char *token(int index) const { return tokens_[static_cast<std::size_t>(index)]; }

    /// The calls that take or make texts throw std::bad_alloc and then leave the list as it was.
    /// @p text may be a token of this list.
    void append(std::string_view text);
    /// Appends @p text in a field of blanks, see field_of().
    void append_field(std::string_view text, int width, bool left, int offset);
    void replace(int index, std::string_view text);
    void remove(int index);
    /// Releases the tokens; the patterns and the quoted characters stay.
    void clear() noexcept;
    /// Puts the tokens of a split line into this list, which has none.
    void adopt(SplitResult &&split) noexcept;

    std::string quoted_characters = " ";
    std::vector<Program> patterns;

private:
    void append_owned(std::unique_ptr<char[]> text);
    void release(char *token) noexcept;
    bool in_block(const char *token) const;

    std::vector<char *> tokens_;
    std::unique_ptr<char[]> block_;
    std::size_t block_size_ = 0;
    std::size_t separate_count_ = 0; ///< tokens with storage of their own
};

} // namespace qz::tokens

#endif
