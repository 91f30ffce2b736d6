#include "qzfile/qzfile/qzfile/installation_root.h"

#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <QByteArray>
#include <QtGlobal>

namespace qz::file {

std::string installation_root()
{
    // The bytes, and no way through Unicode: a root that is not valid in the local encoding is
    // still the root.
    return qgetenv("HALCYRA").toStdString();
}

} // namespace qz::file

std::string qzfile_get_config_dir()
{
    return qz::file::append_name(qz::file::installation_root(), "config");
}
