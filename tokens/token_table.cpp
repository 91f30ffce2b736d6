#include "tokens/token_table.h"

#include <algorithm>

namespace qz::tokens {

int TokenTable::create()
{
    auto list = std::make_unique<TokenList>();
    if (free_handles_.empty()) {
        // Room for every handle, so that erase() needs no memory.
        if (free_handles_.capacity() <= records_.size())
            free_handles_.reserve(2 * records_.size() + 16);
        records_.push_back(std::move(list));
        return static_cast<int>(records_.size() - 1);
    }
    const int handle = free_handles_.front();
    records_[static_cast<std::size_t>(handle)] = std::move(list);
    std::pop_heap(free_handles_.begin(), free_handles_.end());
    free_handles_.pop_back();
    return handle;
}

void TokenTable::erase(int handle) noexcept
{
    records_[static_cast<std::size_t>(handle)].reset();
    free_handles_.push_back(handle); // create() made room for it
    std::push_heap(free_handles_.begin(), free_handles_.end());
}

std::atomic<TokenTable *> existing_table{nullptr};

TokenTable &token_table()
{
    static TokenTable &table = *new TokenTable;
    existing_table.store(&table, std::memory_order_release);
    return table;
}

} // namespace qz::tokens
