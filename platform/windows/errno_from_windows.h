#ifndef QZ_PLATFORM_WINDOWS_ERRNO_FROM_WINDOWS_H
#define QZ_PLATFORM_WINDOWS_ERRNO_FROM_WINDOWS_H

#include <cerrno>

namespace qz::platform {

/// The errno value for the same cause as a Windows error code.
int errno_from_windows(unsigned long error);

} // namespace qz::platform

#endif
