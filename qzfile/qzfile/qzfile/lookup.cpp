#include "qzfile/qzfile/qzfile/lookup.h"

#include "platform/file_kind.h"
#include "platform/native_path.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <cstring>
#include <string>
#include <string_view>

namespace qz::file {

namespace {

bool is_of_type(const char *native_path, int type)
{
    switch (platform::file_kind(native_path)) {
    case platform::FileKind::RegularFile:
        return type == kRegularFile;
    case platform::FileKind::Directory:
        return type == kDirectory;
    default:
        return false;
    }
}

/// Joins the two parts of a path without a call for memory where the usual room will do.
class Candidate {
public:
    const char *join(const std::string &directory, const std::string &name)
    {
        const std::size_t size_bytes = directory.size() + name.size() + 1;
        if (size_bytes > sizeof usual_)
            return long_.assign(directory).append(name).c_str();
        std::memcpy(usual_, directory.data(), directory.size());
        std::memcpy(usual_ + directory.size(), name.c_str(), name.size() + 1);
        return usual_;
    }

private:
    char usual_[512];
    std::string long_;
};

/// The first directory that has the name. A miss costs its status query and little else.
const SearchDirectory *first_with(std::string_view name, int type)
{
    const std::string native_name = platform::native_path(name);
    Candidate candidate;
    for (const SearchDirectory &directory : search_path().directories()) {
        if (directory.native_prefix.empty())
            continue;
        if (is_of_type(candidate.join(directory.native_prefix, native_name), type))
            return &directory;
    }
    return nullptr;
}

} // namespace

Lookup look_up(std::string_view name, int type)
{
    if (is_absolute(name))
        return {is_of_type(platform::native_path(name).c_str(), type), nullptr};
    if (search_path().directories().empty()) {
        fail_at(QZERR_FATAL, "QZFILE: there are no directories in the search path\n");
        return {};
    }
    const SearchDirectory *directory = first_with(name, type);
    return {directory != nullptr, directory};
}

} // namespace qz::file

using namespace qz::file;

int qzfile_exists(const char *name, int type)
{
    if (!name)
        return -1;
    return guarded(-1, [&] { return look_up(name, type).is_found ? 0 : -1; });
}

int qzfile_file_exists(const char *path, int type)
{
    if (!path)
        return -1;
    return guarded(
        -1, [&] { return is_of_type(qz::platform::native_path(path).c_str(), type) ? 0 : -1; });
}

int qzfile_find(const char *name, int type, char **out)
{
    return handing_out(out, [&] {
        const Lookup found = name ? look_up(name, type) : Lookup();
        if (!found.is_found)
            return -1;
        if (!found.directory)
            return hand_out(name, out);
        // The separator comes always, after a directory that ends in one too.
        *out = new_c_text_of({found.directory->text, "\\", name});
        return *out ? 0 : -1;
    });
}
