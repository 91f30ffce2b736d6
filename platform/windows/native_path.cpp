#include "platform/native_path.h"

namespace qz::platform {

std::string native_path(std::string_view text)
{
    return std::string(text);
}

} // namespace qz::platform
