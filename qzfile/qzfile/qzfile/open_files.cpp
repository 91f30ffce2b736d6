#include "qzfile/qzfile/qzfile/open_files.h"

#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <algorithm>
#include <utility>

namespace qz::file {

namespace {

template <typename Files> auto position_of(Files &files, const std::FILE *stream)
{
    return std::find_if(files.begin(), files.end(),
                        [&](const OpenFile &file) { return file.stream == stream; });
}

int fail_without_stream()
{
    return fail_at(QZERR_FATAL, "QZFILE: null file pointer\n");
}

} // namespace

void OpenFileTable::enter(OpenFile file)
{
    const auto known = position_of(files_, file.stream);
    if (known != files_.end())
        *known = std::move(file);
    else
        files_.push_back(std::move(file));
}

const OpenFile *OpenFileTable::find(const std::FILE *stream) const
{
    const auto known = position_of(files_, stream);
    return known != files_.end() ? &*known : nullptr;
}

bool OpenFileTable::forget(const std::FILE *stream)
{
    const auto known = position_of(files_, stream);
    if (known == files_.end())
        return false;
    files_.erase(known);
    return true;
}

OpenFileTable &open_files()
{
    static OpenFileTable table;
    return table;
}

} // namespace qz::file

using namespace qz::file;

int qzfile_close(FILE *stream)
{
    if (!stream)
        return fail_without_stream();
    // The stream of somebody else is not ours to close.
    if (!open_files().forget(stream))
        return -1;
    std::fclose(stream);
    return 0;
}

int qzfile_file_get_path(FILE *stream, char *buf, size_t size)
{
    if (buf && size > 0)
        *buf = '\0';
    if (!stream)
        return fail_without_stream();
    const OpenFile *file = open_files().find(stream);
    if (!file)
        return fail_at(QZERR_FATAL, "QZFILE: file pointer does not match any open files\n");
    if (!buf || file->directory.size() + file->name.size() + 2 > size)
        return fail_at(QZERR_FATAL, "QZFILE: buffer too small for intended use\n");
    char *end = std::copy(file->directory.begin(), file->directory.end(), buf);
    *end++ = kSeparator;
    end = std::copy(file->name.begin(), file->name.end(), end);
    *end = '\0';
    return 0;
}
