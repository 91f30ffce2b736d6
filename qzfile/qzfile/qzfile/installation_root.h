#ifndef QZ_QZFILE_INSTALLATION_ROOT_H
#define QZ_QZFILE_INSTALLATION_ROOT_H

#include <string>

namespace qz::file {

/// The text of HALCYRA, unchecked and as it came; "" when it is not set.
std::string installation_root();

} // namespace qz::file

#endif
