#ifndef QZ_PLATFORM_SHELL_FOLDERS_H
#define QZ_PLATFORM_SHELL_FOLDERS_H

#include <optional>
#include <string>

namespace qz::platform {

/// The folders that a desktop keeps for a user. The values are what Windows is asked for: the
/// number of the folder and the flag 0x8000, make it when it is missing.
enum class ShellFolder : int {
    Desktop = 0x8000,
    Documents = 0x8005,
    NetworkPlaces = 0x8013,
    RoamingAppData = 0x801A,
    LocalAppData = 0x801C,
    Profile = 0x8028,
};

/// What becomes of a folder that is not there.
enum class MissingFolder { Make, Leave };

/// The folder as the system spells it, without a trailing separator; nothing when the system has
/// no answer or cannot make the folder.
///
/// POSIX: by the desktop's own rules; a missing application-data or profile folder is made, the
/// other three are left to the desktop.
std::optional<std::string> shell_folder(ShellFolder folder,
                                        MissingFolder missing = MissingFolder::Make);

} // namespace qz::platform

#endif
