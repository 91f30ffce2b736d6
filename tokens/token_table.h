/** @file
 *  The process-wide table of token lists: which list a handle names.
 */
#ifndef QZFILESHARED_TOKENS_TOKEN_TABLE_H
#define QZFILESHARED_TOKENS_TOKEN_TABLE_H

#include "tokens/token_list.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

namespace qz::tokens {

class TokenTable {
public:
    /// Makes an empty list and returns its handle: the highest free one, or else a new one.
    int create();
    /// Releases the list; @p handle must name one.
    void erase(int handle) noexcept;

    /// The list that @p handle names, or null.
    TokenList *find(int handle)
    {
        const auto index = static_cast<std::size_t>(handle); // a negative one is past the end
        return index < records_.size() ? records_[index].get() : nullptr;
    }

private:
    std::vector<std::unique_ptr<TokenList>> records_; ///< null where a handle is free
    /// A max-heap, so that taking the highest free handle does not depend on the number of lists.
    std::vector<int> free_handles_;
};

/// The table of the process, made on first use. It is never destroyed: lists may be used until the
/// last moment.
TokenTable &token_table();

/// The same table; null before its first use.
extern std::atomic<TokenTable *> existing_table;

/// The list that @p handle names, or null.
inline TokenList *find_list(int handle)
{
    TokenTable *table = existing_table.load(std::memory_order_acquire);
    return table != nullptr ? table->find(handle) : nullptr;
}

} // namespace qz::tokens

#endif
