#include "platform/native_path.h"

namespace qz::platform {

namespace {

bool is_ascii_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

std::string native_path(std::string_view text)
{
    if (text.size() >= 2 && is_ascii_letter(text[0]) && text[1] == ':')
        return {};
    std::string native(text);
    // Every character is stored, for which compilers take many in one step.
    for (char &c : native)
        c = c == '\\' ? '/' : c;
    return native;
}

} // namespace qz::platform
