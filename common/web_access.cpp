#include "platform/native_path.h"
#include "qzcommon.h"
#include "qzfile.h"

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include <cstdlib>
#include <string>

namespace {

constexpr const char *kMarker = ".Tarvex_web_access_file";

/// The user data directory as the system opens it; empty when there is none.
std::string native_userdata_dir()
{
    char *dir = nullptr;
    std::string native;
    if (qzfile_halcyra_userdata_dir(&dir) == 0 && dir != nullptr)
        native = qz::platform::native_path(dir);
    std::free(dir);
    return native;
}

} // namespace

int qzcommon_web_access_allowed(void)
{
    const std::string dir = native_userdata_dir();
    // Without a directory there is no marker; one in the current directory grants nothing.
    if (dir.empty())
        return 0;
    const boost::filesystem::path marker = boost::filesystem::path(dir) / kMarker;
    return boost::filesystem::exists(boost::filesystem::status(marker)) ? 1 : 0;
}
