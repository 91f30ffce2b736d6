#include "platform/native_path.h"

#include <algorithm>

namespace qz::platform {

namespace {

bool is_ascii_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

} // namespace

std::string native_path(std::string_view text)
{
    std::string native;
    native_path(text, native);
    return native;
}

void native_path(std::string_view text, std::string &native)
{
    if (text.size() >= 2 && is_ascii_letter(text[0]) && text[1] == ':')
        text = {};
    native = text;
    std::replace(native.begin(), native.end(), '\\', '/');
}

} // namespace qz::platform
