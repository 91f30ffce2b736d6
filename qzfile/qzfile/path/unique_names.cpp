#include "platform/native_path.h"
#include "qzfile.hpp"

#include <boost/filesystem/operations.hpp>

#include <string>

std::string halcyra::path::get_unique_file_name(const std::string &suffix)
{
    return boost::filesystem::unique_path("%%%%-%%%%-%%%%-%%%%").string() + suffix;
}

boost::filesystem::path halcyra::path::get_unique_temporary_file_path(const std::string &suffix)
{
    const std::string directory = qzfile_get_directory_path(DirectoryName::Temp);
    return boost::filesystem::path(qz::platform::native_path(directory)) /
           qz::platform::native_path(get_unique_file_name(suffix));
}
