#ifndef QZ_QZFILE_C_TEXT_H
#define QZ_QZFILE_C_TEXT_H

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

namespace qz::file {

struct FreeText {
    void operator()(char *text) const { std::free(text); }
};

/// Text that a plain function handed out.
using CText = std::unique_ptr<char, FreeText>;

/// A copy for a caller, who frees it; null when memory is out.
inline char *new_c_text(std::string_view text)
{
    char *copy = static_cast<char *>(std::malloc(text.size() + 1));
    if (copy) {
        std::memcpy(copy, text.data(), text.size());
        copy[text.size()] = '\0';
    }
    return copy;
}

/// The same for a text in pieces.
inline char *new_c_text_of(std::initializer_list<std::string_view> pieces)
{
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    char *copy = static_cast<char *>(std::malloc(size + 1));
    if (!copy)
        return nullptr;
    char *end = copy;
    for (const std::string_view piece : pieces)
        end += piece.copy(end, piece.size());
    *end = '\0';
    return copy;
}

/// The text, or "" for none.
inline const char *or_empty(const char *text)
{
    return text ? text : "";
}

/// Hands a copy of @p text out through @p out: the last step of a plain function.
/// @return 0, or -1 when memory is out.
inline int hand_out(std::string_view text, char **out)
{
    *out = new_c_text(text);
    return *out ? 0 : -1;
}

/// The result of @p body, or @p failure when anything is thrown: no exception leaves a plain
/// function.
template <typename Result, typename Body> Result guarded(Result failure, Body &&body) noexcept
{
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

/// The frame of the plain functions that hand a text out: @p out is null until @p body sets it.
template <typename Body> int handing_out(char **out, Body &&body) noexcept
{
    if (!out)
        return -1;
    *out = nullptr;
    return guarded(-1, std::forward<Body>(body));
}

} // namespace qz::file

#endif
