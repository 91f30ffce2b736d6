#ifndef QZ_PLATFORM_NATIVE_PATH_H
#define QZ_PLATFORM_NATIVE_PATH_H

#include <string>
#include <string_view>

namespace qz::platform {

/// The spelling this system opens for a path of ours. Every path passes through here on its way to
/// the system, and nowhere else is a separator translated.
///
/// POSIX: "data\\x.dat" is opened as "data/x.dat". A drive ("C:...") names nothing there, so such a
/// path comes back empty, which no call opens and none resolves against the current directory.
/// Windows: the text as it is; the system takes both separators.
std::string native_path(std::string_view text);

} // namespace qz::platform

#endif
