#include "platform/native_path.h"

namespace qz::platform {

std::string native_path(std::string_view text)
{
    return std::string(text);
}

void native_path(std::string_view text, std::string &native)
{
    native = text;
}

} // namespace qz::platform
