#include "platform/directory_calls.h"
#include "platform/file.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/lookup.h"
#include "qzfile/qzfile/qzfile/open_files.h"
#include "qzfile/qzfile/qzfile/path_text.h"
#include "qzfile/qzfile/qzfile/stream.h"

#include <cerrno>
#include <cstring>
#include <string>

using namespace qz::file;

namespace {

/// What a caller asked for.
struct Request {
    const char *name;
    const char *mode;

    bool reads() const { return std::strchr(mode, 'r') != nullptr; }
};

/// A file before it is opened: what goes into the table, and the path that opens it.
struct Place {
    std::string directory;
    std::string name;
    std::string path;
};

int fail_to_open(const Request &request)
{
    // The texts do not say which mode they stand for; programs that read logs know them so.
    if (request.reads())
        return fail_at(QZERR_INFO, "QZFILE: unable to open file (%s): \"%s\"\n", request.mode,
                       request.name);
    return fail_at(QZERR_INFO, "QZFILE: unable to open file for reading: \"%s\"\n", request.name);
}

int fail_too_long(const Request &request)
{
    return fail_at(QZERR_INFO, "QZFILE: file name or directory too long: \"%s\"\n", request.name);
}

/// Opens and enters a file. What the table cannot hold is refused before the open, which may
/// already cut a file to nothing.
int open_at(const Place &place, const Request &request, FILE **out)
{
    if (place.name.size() > kLongestFileName || place.directory.size() > kLongestFileDirectory)
        return fail_too_long(request);
    Stream stream(qz::platform::qzwin32_fopen(place.path, request.mode));
    if (!stream)
        return fail_to_open(request);
    const std::string mode(request.mode, ::strnlen(request.mode, kLongestMode));
    open_files().enter({place.directory, place.name, stream.get(), mode});
    *out = stream.release();
    return 0;
}

int open_absolute(const Request &request, FILE **out)
{
    const std::string path = localized(request.name);
    char *directory = nullptr;
    char *base = nullptr;
    const int status = qzfile_parse_path(path.c_str(), &directory, &base);
    const CText owned_directory(directory);
    const CText owned_base(base);
    if (status != 0)
        return status;
    return open_at({or_empty(directory), or_empty(base), path}, request, out);
}

int open_in_current_directory(const Request &request, FILE **out)
{
    char current[kLongestFileDirectory + 1];
    const int reason = qz::platform::current_directory(current, sizeof current);
    if (reason == ERANGE)
        return fail_too_long(request);
    // Without a working directory there is no place for the file either.
    if (reason != 0)
        return fail_to_open(request);
    return open_at({current, request.name, request.name}, request, out);
}

/// Opens the name in its directory without going there: nothing is left to be undone when a step
/// fails, and the directory of other threads does not move under them.
int open_on_search_path(const Request &request, FILE **out)
{
    const Lookup found = look_up(request.name, kRegularFile);
    if (!found.is_found)
        return fail_at(QZERR_INFO, "QZFILE: file not found in search path: \"%s\"\n", request.name);
    // A directory of the search path may be a relative one, so that a record says something only
    // where the working directory is known.
    char *current = nullptr;
    if (const int status = qzfile_dir_current_get(&current); status != 0)
        return status;
    const CText owned(current);
    const std::string &directory = found.directory->text;
    return open_at({directory, request.name, append_name(directory, request.name)}, request, out);
}

int open_anywhere(const Request &request, FILE **out)
{
    if (open_files().is_full())
        return fail_at(QZERR_FATAL, "QZFILE: attempt to have more than %d files open at once\n",
                       static_cast<int>(kOpenFileLimit));
    if (is_absolute(request.name))
        return open_absolute(request, out);
    return request.reads() ? open_on_search_path(request, out)
                           : open_in_current_directory(request, out);
}

} // namespace

int qzfile_open(const char *name, FILE **out, const char *mode)
{
    if (!out)
        return -1;
    *out = nullptr;
    return guarded(-1, [&] { return open_anywhere({or_empty(name), or_empty(mode)}, out); });
}
