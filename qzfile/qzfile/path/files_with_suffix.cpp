#include "platform/native_path.h"
#include "qzfile.hpp"

#include <boost/filesystem/directory.hpp>
#include <boost/filesystem/exception.hpp>

#include <string>

namespace fs = boost::filesystem;

namespace {

void check(const boost::system::error_code &error, const char *step, const fs::path &path)
{
    if (error)
        throw fs::filesystem_error(step, path, error);
}

bool ends_in(const std::string &text, const std::string &suffix)
{
    return text.size() >= suffix.size() &&
           text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

/// A link counts as what it points to; one that points nowhere is no file and no error.
bool is_file(const fs::directory_entry &entry)
{
    boost::system::error_code error;
    const fs::file_status status = entry.status(error);
    if (status.type() == fs::status_error)
        check(error, "status", entry.path());
    return status.type() == fs::regular_file;
}

} // namespace

std::vector<fs::path> halcyra::path::get_all_files_with_suffix(const std::string &directory,
                                                               const std::string &suffix)
{
    const fs::path root = qz::platform::native_path(directory);
    boost::system::error_code error;
    fs::directory_iterator entry(root, error);
    check(error, "directory_iterator::directory_iterator", root);
    std::vector<fs::path> files;
    while (entry != fs::directory_iterator()) {
        if (ends_in(entry->path().string(), suffix) && is_file(*entry))
            files.push_back(entry->path());
        entry.increment(error);
        check(error, "directory_iterator::operator++", root);
    }
    return files;
}
