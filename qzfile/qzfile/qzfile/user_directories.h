#ifndef QZ_QZFILE_USER_DIRECTORIES_H
#define QZ_QZFILE_USER_DIRECTORIES_H

#include "platform/shell_folders.h"

#include <optional>
#include <string>

namespace qz::file {

/// What the directories of a user are made with.
constexpr int kDirectoryMode = 0755;

/// Name of the maker's directory for local application data; it is not made, and with
/// MissingFolder::Leave neither is the shell folder around it. Nothing when there is none.
std::optional<std::string> local_appdata_directory(platform::MissingFolder missing);

/// Makes a directory that may be missing and hands its name out.
/// @return 0, or the code of the step that failed; @p out is then as it was.
int hand_out_made(const std::string &directory, char **out);

} // namespace qz::file

#endif
