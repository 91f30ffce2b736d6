#ifndef QZ_QZFILE_USER_DIRECTORIES_H
#define QZ_QZFILE_USER_DIRECTORIES_H

#include "platform/shell_folders.h"

#include <optional>
#include <string>

namespace qz::file {

/// Name of the maker's directory for local application data; it is not made, and with
/// MissingFolder::Leave neither is the shell folder around it. Nothing when there is none.
std::optional<std::string> local_appdata_directory(platform::MissingFolder missing);

} // namespace qz::file

#endif
