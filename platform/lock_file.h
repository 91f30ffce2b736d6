#ifndef QZ_PLATFORM_LOCK_FILE_H
#define QZ_PLATFORM_LOCK_FILE_H

#include <string>

namespace qz::platform {

/// Makes sure that the regular file @p native_path exists, for locks to be taken on. What it holds
/// is left alone, and no symbolic link is followed: the directory is shared with other users.
/// @return 0 or an errno value.
int make_lock_file(const std::string &native_path);

} // namespace qz::platform

#endif
