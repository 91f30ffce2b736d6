#ifndef QZ_PLATFORM_DIRECTORY_CALLS_H
#define QZ_PLATFORM_DIRECTORY_CALLS_H

#include <cstddef>
#include <string_view>

namespace qz::platform {

// The runtime's own calls on directories and names. Each takes a path of ours and returns 0 or an
// errno value; both halves report the same value for the same cause.

/// Makes one directory; its parent must be there. The user's mask decides who may enter it.
int make_directory(std::string_view path);

/// Makes @p path the working directory of the process.
int change_directory(std::string_view path);

/// Writes the working directory into @p buffer; ERANGE when it does not fit.
int current_directory(char *buffer, std::size_t size_bytes);

/// Removes a file, or a link and never what it points to.
int remove_file(std::string_view path);

} // namespace qz::platform

#endif
