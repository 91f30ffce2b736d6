#include "tokens/token_list.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <new>

namespace qz::tokens {
namespace {

/// Storage of its own for a token of @p size characters, padded for parse_number().
std::unique_ptr<char[]> make_token(std::size_t size)
{
    std::unique_ptr<char[]> token(new char[size + kPaddingSize]);
    std::memset(token.get() + size, '\0', kPaddingSize);
    return token;
}

std::unique_ptr<char[]> copy_of(std::string_view text)
{
    std::unique_ptr<char[]> copy = make_token(text.size());
    text.copy(copy.get(), text.size());
    return copy;
}

/// A field of max(length, width) blanks with @p text in it. The field is a window: what an offset
/// moves out of it on either side is cut.
std::unique_ptr<char[]> field_of(std::string_view text, int width, bool left, int offset)
{
    const std::size_t size = std::max(text.size(), static_cast<std::size_t>(std::max(width, 0)));
    std::unique_ptr<char[]> field = make_token(size);
    std::memset(field.get(), ' ', size);

    std::size_t start = 0;
    if (!left && offset == 0) {
        start = size - text.size();
    } else if (!left && offset > 0) {
        start = std::min(static_cast<std::size_t>(offset), size);
    } else if (!left) {
        const auto hidden = static_cast<std::size_t>(-static_cast<long long>(offset));
        text.remove_prefix(std::min(hidden, text.size()));
    }
    text.copy(field.get() + start, size - start);
    return field;
}

} // namespace

void TokenList::append(std::string_view text)
{
    append_owned(copy_of(text));
}

void TokenList::append_field(std::string_view text, int width, bool left, int offset)
{
    append_owned(field_of(text, width, left, offset));
}

void TokenList::append_owned(std::unique_ptr<char[]> text)
{
    if (count() == std::numeric_limits<int>::max())
        throw std::bad_alloc(); // callers count in int
    tokens_.push_back(text.get());
    text.release();
    ++separate_count_;
}

Number TokenList::read_number(int index)
{
    const Number number = parse_number(token(index));
    number_ = number;
    number_index_ = index;
    return number;
}

void TokenList::replace(int index, std::string_view text)
{
    char *&slot = tokens_[static_cast<std::size_t>(index)];
    std::unique_ptr<char[]> copy = copy_of(text); // before the release: it may be the same text
    release(slot);
    slot = copy.release();
    ++separate_count_;
    number_index_ = kNoIndex;
}

void TokenList::remove(int index)
{
    release(tokens_[static_cast<std::size_t>(index)]);
    tokens_.erase(tokens_.begin() + index);
    number_index_ = kNoIndex;
}

void TokenList::clear() noexcept
{
    if (separate_count_ != 0)
        std::for_each(tokens_.begin(), tokens_.end(), [this](char *token) { release(token); });
    tokens_.clear();
    block_.reset();
    block_size_ = 0;
    number_index_ = kNoIndex;
}

void TokenList::adopt(SplitResult &&split) noexcept
{
    clear();
    tokens_ = std::move(split.tokens);
    block_ = std::move(split.block);
    block_size_ = split.block_size;
}

void TokenList::release(char *token) noexcept
{
    if (in_block(token))
        return;
    delete[] token;
    --separate_count_;
}

bool TokenList::in_block(const char *token) const
{
    // std::less orders pointers into different objects too; an empty block holds nothing.
    const std::less<const char *> before;
    return !before(token, block_.get()) && before(token, block_.get() + block_size_);
}

} // namespace qz::tokens
