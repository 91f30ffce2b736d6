#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <utility>
#include <vector>

using namespace qz::file;

namespace {

constexpr std::size_t kRegistrationLimit = 50;

/// The files that wait for their conversion, in the order in which they were registered.
std::vector<std::string> &registered_files()
{
    static std::vector<std::string> files;
    return files;
}

void add_registration(std::string path)
{
    std::vector<std::string> &files = registered_files();
    const bool is_there = std::find(files.begin(), files.end(), path) != files.end();
    if (!is_there && files.size() < kRegistrationLimit)
        files.push_back(std::move(path));
}

int convert_registered(char *path)
{
    qzfile_path_localize(path, static_cast<int>(std::strlen(path)));
    if (qzfile_dos_to_unix(path) == 0)
        return 0;
    return fail("qzfile_dos_to_unix_convert():'%s' is not a dos file.\n"
                "Will continue with the remaining files in the list, if any.\n",
                path);
}

} // namespace

int qzfile_dos_to_unix_register(const char *path)
{
    if (!path)
        return -1;
    try {
        add_registration(path);
        return 0;
    } catch (const std::exception &) {
        return fail_at(QZERR_FATAL,
                       "qzfile_dos_to_unix_register():Failed to allocate memory for path '%s'.\n",
                       path);
    }
}

int qzfile_dos_to_unix_convert(void)
{
    // Each file leaves the list before it is tried, whatever comes of it.
    int status = 0;
    for (std::string &path : std::exchange(registered_files(), {})) {
        if (convert_registered(path.data()) != 0)
            status = -1;
    }
    return status;
}
