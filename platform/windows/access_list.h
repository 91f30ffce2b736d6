#ifndef QZ_PLATFORM_WINDOWS_ACCESS_LIST_H
#define QZ_PLATFORM_WINDOWS_ACCESS_LIST_H

#include <string>
#include <vector>

namespace qz::platform {

/// Who may do what with a file, as the system keeps it.
using AccessList = std::vector<unsigned char>;

/// The access list of a file; empty when the user may not read it.
AccessList access_list(const std::string &native_path);

/// Gives a file that list. A user who may not set it leaves the one that the directory hands down,
/// and so does an empty list.
void set_access_list(const std::string &native_path, AccessList &list);

} // namespace qz::platform

#endif
