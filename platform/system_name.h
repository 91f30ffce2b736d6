#ifndef QZ_PLATFORM_SYSTEM_NAME_H
#define QZ_PLATFORM_SYSTEM_NAME_H

#include <string_view>

namespace qz::platform {

/// The system that the library is built for: "windows", "linux" or "darwin".
std::string_view system_name();

} // namespace qz::platform

#endif
