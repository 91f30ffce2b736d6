#include "platform/directory_calls.h"
#include "platform/native_path.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <boost/filesystem/operations.hpp>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

using namespace qz::file;

namespace fs = boost::filesystem;

namespace {

constexpr std::size_t kPathLimit = 1024;

/// The absolute spelling of a path. A path that is too long is refused: a shortened one would name
/// something else, and what it names would be gone.
std::optional<std::string> absolute_text(const char *path)
{
    std::string text = path;
    if (!is_absolute(text)) {
        char current[kPathLimit + 1];
        if (qz::platform::current_directory(current, sizeof current) != 0)
            return std::nullopt;
        text = std::string(current) + kSeparator + text;
    }
    if (text.size() > kPathLimit)
        return std::nullopt;
    return localized(std::move(text));
}

/// Without the separators that close it: with one, the system takes a link to a directory for the
/// directory, whose contents lie outside of what was named.
std::string without_closing_separators(std::string text)
{
    while (text.size() > 1 && text.back() == kSeparator)
        text.pop_back();
    return text;
}

int remove_tree(const std::string &path)
{
    // Links in the tree, and the path itself when it is one, are removed and not followed. The
    // standard library's removal keeps the directories open that it is in, so that one which is
    // put out of the way meanwhile, with a link in its place, leads nowhere else.
    const fs::path native = qz::platform::native_path(without_closing_separators(path));
    std::error_code error;
    std::filesystem::remove_all(native.native(), error);
    return error ? -1 : 0;
}

int remove_file(const std::string &path)
{
    const int reason = qz::platform::remove_file(path);
    if (reason == 0)
        return 0;
    errno = reason;
    return fail("qzfile_rm_recursive: unlink failed: %s", path.c_str());
}

int remove_anything(const char *path)
{
    const std::optional<std::string> text = absolute_text(path);
    if (!text)
        return -1;
    boost::system::error_code error;
    switch (fs::status(qz::platform::native_path(*text), error).type()) {
    case fs::directory_file:
        return remove_tree(*text);
    case fs::regular_file:
        return remove_file(*text);
    default:
        return -1;
    }
}

} // namespace

int qzfile_rm_recursive(const char *path)
{
    if (!path) {
        qzerr_throw(-1, QZERR_FATAL, "qzfile_rm_recursive: Null path.\n");
        return -1;
    }
    return guarded(-1, [&] { return remove_anything(path); });
}
