#include "platform/system_name.h"

namespace qz::platform {

std::string_view system_name()
{
#ifdef __APPLE__
    return "darwin";
#else
    return "linux";
#endif
}

} // namespace qz::platform
