#include "platform/directory_calls.h"
#include "qzerr.h"
#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <boost/filesystem/operations.hpp>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

using namespace qz::file;

namespace {

/// Texts of this length and more are no directory to change to.
constexpr int kDirectoryLimit = 1024;

std::vector<std::string> &saved_directories()
{
    static std::vector<std::string> stack;
    return stack;
}

int change_to(const char *directory)
{
    const int reason = qz::platform::change_directory(localized(directory));
    if (reason == 0)
        return 0;
    errno = reason;
    return -1;
}

} // namespace

int qzfile_dir_current_get(char **out)
{
    return handing_out(out, [&] {
        boost::system::error_code error;
        const boost::filesystem::path current = boost::filesystem::current_path(error);
        if (!error)
            return hand_out(current.string(), out);
        qzerr_throw(-1, QZERR_FATAL, "qzfile_dir_current_get: current_path %s",
                    error.message().c_str());
        return -1;
    });
}

int qzfile_dir_current_set(const char *dir)
{
    char expanded[kDirectoryLimit + 1];
    const std::size_t length = dir ? ::strnlen(dir, kDirectoryLimit) : kDirectoryLimit;
    if (length == kDirectoryLimit)
        return -1;
    std::memcpy(expanded, dir, length + 1);
    if (const int status = qzfile_dir_expand_buffer(expanded, kDirectoryLimit); status != 0)
        return status;
    if (!*expanded)
        return -1;
    return guarded(-1, [&] { return change_to(expanded); });
}

int qzfile_dir_current_push(void)
{
    char *current = nullptr;
    if (qzfile_dir_current_get(&current) != 0)
        return -1;
    const CText owned(current);
    return guarded(-1, [&] {
        saved_directories().emplace_back(current);
        return 0;
    });
}

int qzfile_dir_current_pop(void)
{
    std::vector<std::string> &stack = saved_directories();
    if (stack.empty()) {
        qzerr_throw(-1, QZERR_INFO, "QZFILE: attempt to pop current directory from empty stack\n");
        return -1;
    }
    const int status = qzfile_dir_current_set(stack.back().c_str());
    stack.pop_back();
    return status;
}
