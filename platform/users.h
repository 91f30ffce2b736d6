#ifndef QZ_PLATFORM_USERS_H
#define QZ_PLATFORM_USERS_H

#include <optional>
#include <string>

namespace qz::platform {

/// The home directory that the system's user database holds for a user, as the system spells it;
/// nothing for an unknown user.
std::optional<std::string> qzwin32_getpwnam(const std::string &user);

} // namespace qz::platform

#endif
