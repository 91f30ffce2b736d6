#include "errors/captured_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace qz::errors {

namespace {

constexpr std::size_t kFirstCapacity = 255;

CapturedText *resize(CapturedText *captured, std::size_t capacity)
{
    void *block = std::realloc(captured, sizeof(CapturedText) + capacity + 1);
    if (block == nullptr)
        return nullptr;
    auto *resized = static_cast<CapturedText *>(block);
    if (captured == nullptr)
        resized->length = 0;
    resized->capacity = capacity;
    return resized;
}

char *characters(CapturedText *captured)
{
    return reinterpret_cast<char *>(captured + 1);
}

} // namespace

bool append(CapturedText *&captured, std::string_view message)
{
    const std::size_t old_length = captured != nullptr ? captured->length : 0;
    const std::size_t length = old_length + message.size();
    if (captured == nullptr || captured->capacity < length) {
        CapturedText *grown = resize(captured, std::max(2 * length, kFirstCapacity));
        if (grown == nullptr) {
            release(captured);
            return false;
        }
        captured = grown;
    }
    char *end = characters(captured) + old_length;
    std::memcpy(end, message.data(), message.size());
    end[message.size()] = '\0';
    captured->length = length;
    return true;
}

void release(CapturedText *&captured)
{
    std::free(captured);
    captured = nullptr;
}

std::string_view view(const CapturedText *captured)
{
    if (captured == nullptr)
        return {};
    return {reinterpret_cast<const char *>(captured + 1), captured->length};
}

} // namespace qz::errors
