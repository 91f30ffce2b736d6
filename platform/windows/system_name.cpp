#include "platform/system_name.h"

namespace qz::platform {

std::string_view system_name()
{
    return "windows";
}

} // namespace qz::platform
