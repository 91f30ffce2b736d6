#ifndef QZ_QZFILE_USER_DIRECTORIES_H
#define QZ_QZFILE_USER_DIRECTORIES_H

#include <string>

namespace qz::file {

/// What the directories of a user are made with.
constexpr int kDirectoryMode = 0755;

/// Makes a directory that may be missing and hands its name out.
/// @return 0, or the code of the step that failed; @p out is then as it was.
int hand_out_made(const std::string &directory, char **out);

} // namespace qz::file

#endif
