// The text that is searched.
#pragma once

#include <cstring>

namespace qz::regex {

/// Texts are searched as unsigned bytes; every text ends in a NUL, which no pattern can name.
using Byte = unsigned char;

/// A text that ends in a NUL. Its end is looked for when it is first asked for: many matches are
/// decided near the front.
class Text {
public:
    explicit Text(const char *text) : begin_(reinterpret_cast<const Byte *>(text)) {}

    const Byte *begin() const { return begin_; }

    const Byte *end() const { return end_from(begin_); }

    /// The same when it is known that the end is not before @p at.
    const Byte *end_from(const Byte *at) const
    {
        if (end_ == nullptr)
            end_ = at + std::strlen(reinterpret_cast<const char *>(at));
        return end_;
    }

private:
    const Byte *begin_;
    mutable const Byte *end_ = nullptr;
};

/// Whether the @p length bytes of @p literal, none of them NUL, stand at @p at.
inline bool stands_at(const Byte *at, const Byte *literal, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        if (at[i] != literal[i]) // at the end of the text at the latest
            return false;
    }
    return true;
}

} // namespace qz::regex
