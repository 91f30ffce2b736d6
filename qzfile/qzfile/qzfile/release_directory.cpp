#include "platform/native_path.h"
#include "qzerr.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <boost/filesystem/operations.hpp>

#include <stdexcept>
#include <string>

using namespace qz::file;

namespace {

bool is_directory(const std::string &path)
{
    boost::system::error_code error;
    return boost::filesystem::is_directory(qz::platform::native_path(path), error);
}

int hand_out_release_directory(char **out)
{
    char *appdata = nullptr;
    const int status = qzfile_halcyra_appdata_dir(&appdata);
    const CText owned(appdata);
    if (status != 0)
        return status;
    const std::string directory = std::string(appdata) + kSeparator + halcyra::release_name();
    // A directory that cannot be made is told by the missing name alone: callers that only look
    // at the code go on without one.
    if (!is_directory(directory) && qzfile_mkdir(directory.c_str(), 0755) != 0)
        return 0;
    return hand_out(directory, out);
}

} // namespace

int qzfile_get_appdata_release_dir(char **out)
{
    return handing_out(out, [&] { return hand_out_release_directory(out); });
}

int qzfile_appdata_release_dir(char **out)
{
    qzlog_deprecation_warning(__FILE__, __LINE__, __func__, "%s function is deprecated for %s\n",
                              __func__, "qzfile_get_appdata_release_dir");
    return qzfile_get_appdata_release_dir(out);
}

std::string qzfile_get_appdata_release_dir_path()
{
    char *directory = nullptr;
    const int status = qzfile_get_appdata_release_dir(&directory);
    const CText owned(directory);
    if (status != 0 || !*or_empty(directory))
        throw std::runtime_error("Failure getting the appdata/release directory");
    return directory;
}
