#ifndef QZ_PLATFORM_WINDOWS_ERRNO_OF_PATH_H
#define QZ_PLATFORM_WINDOWS_ERRNO_OF_PATH_H

#include <string>

namespace qz::platform {

/// The errno value that tells why a call on @p native_path failed. Where Windows only says that
/// there is no such path, this tells a file in the way (ENOTDIR) and a name too long (ENAMETOOLONG)
/// apart.
/// @param reason  what the runtime said.
int errno_of_path(const std::string &native_path, int reason);

} // namespace qz::platform

#endif
