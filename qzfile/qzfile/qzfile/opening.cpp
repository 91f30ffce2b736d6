#include "platform/file.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/lookup.h"
#include "qzfile/qzfile/qzfile/open_files.h"
#include "qzfile/qzfile/qzfile/path_text.h"
#include "qzfile/qzfile/qzfile/stream.h"

#include <cstring>
#include <string>
#include <utility>

using namespace qz::file;

namespace {

/// What a caller asked for.
struct Request {
    const char *name;
    const char *mode;

    bool reads() const { return std::strchr(mode, 'r') != nullptr; }
};

int fail_to_open(const Request &request)
{
    // The texts do not say which mode they stand for; programs that read logs know them so.
    if (request.reads())
        return fail_at(QZERR_INFO, "QZFILE: unable to open file (%s): \"%s\"\n", request.mode,
                       request.name);
    return fail_at(QZERR_INFO, "QZFILE: unable to open file for reading: \"%s\"\n", request.name);
}

/// Opens a path; a failure is reported for the name that was asked for.
Stream open_path(const std::string &path, const Request &request)
{
    Stream stream(qz::platform::qzwin32_fopen(path, request.mode));
    if (!stream)
        fail_to_open(request);
    return stream;
}

/// Puts an open file into the table and hands its stream out.
int enter(Stream stream, const char *directory, const char *name, const Request &request,
          FILE **out)
{
    const std::string mode(request.mode, ::strnlen(request.mode, kLongestMode));
    open_files().enter({directory, name, stream.get(), mode});
    *out = stream.release();
    return 0;
}

int open_absolute(const Request &request, FILE **out)
{
    Stream stream = open_path(request.name, request);
    if (!stream)
        return -1;
    char *directory = nullptr;
    char *base = nullptr;
    const int status = qzfile_parse_path(request.name, &directory, &base);
    const CText owned_directory(directory);
    const CText owned_base(base);
    if (status != 0)
        return status;
    return enter(std::move(stream), or_empty(directory), or_empty(base), request, out);
}

int open_in_current_directory(const Request &request, FILE **out)
{
    Stream stream = open_path(request.name, request);
    if (!stream)
        return -1;
    char *current = nullptr;
    if (const int status = qzfile_dir_current_get(&current); status != 0)
        return status;
    const CText owned(current);
    return enter(std::move(stream), current, request.name, request, out);
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
    Stream stream = open_path(append_name(directory, request.name), request);
    if (!stream)
        return -1;
    return enter(std::move(stream), directory.c_str(), request.name, request, out);
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
