#include "qzfile/qzfile/qzfile/lookup.h"

#include "platform/file_kind.h"
#include "platform/native_path.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <string>
#include <string_view>

namespace qz::file {

namespace {

bool is_of_type(const std::string &native_path, int type)
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

const SearchDirectory *first_with(std::string_view name, int type)
{
    // One memory for all candidates: a miss costs its status query and little else.
    std::string candidate;
    std::string native;
    for (const SearchDirectory &directory : search_path().directories()) {
        if (directory.text.empty())
            continue;
        candidate.assign(directory.text);
        candidate = append_name(std::move(candidate), name);
        platform::native_path(candidate, native);
        if (is_of_type(native, type))
            return &directory;
    }
    return nullptr;
}

} // namespace

Lookup look_up(const char *name, int type)
{
    if (is_absolute(name))
        return {is_of_type(platform::native_path(name), type), nullptr};
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
    return guarded(-1, [&] { return is_of_type(qz::platform::native_path(path), type) ? 0 : -1; });
}

int qzfile_find(const char *name, int type, char **out)
{
    return handing_out(out, [&] {
        const Lookup found = name ? look_up(name, type) : Lookup();
        if (!found.is_found)
            return -1;
        // The separator comes always, after a directory that ends in one too.
        return hand_out(found.directory ? found.directory->text + kSeparator + name : name, out);
    });
}
