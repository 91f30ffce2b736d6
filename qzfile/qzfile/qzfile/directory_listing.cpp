#include "qzfile/qzfile/qzfile/directory_listing.h"

#include "qzerr.h"

#include <cerrno>
#include <cstdio>

namespace qz::file {

bool DirectoryListing::open(const char *path)
{
    filter_.reset();
    directory_.reset(platform::opendir(path));
    if (!directory_)
        std::printf("opendir: Unable to open \"%s\"\n", path);
    return directory_ != nullptr;
}

bool DirectoryListing::set_filter(const char *pattern)
{
    if (!*pattern)
        return true;
    qz_regexp *filter = qz_regcomp(pattern);
    if (!filter) {
        qzerr_throw(-1, QZERR_INFO, "QZFILE: can not compile filter -> %s\n", pattern);
        return false;
    }
    filter_.reset(filter);
    return true;
}

std::string_view DirectoryListing::next()
{
    while (const char *entry = directory_ ? platform::readdir(directory_.get()) : nullptr) {
        const std::string_view name = entry;
        if (name.size() >= kNameLimit) {
            directory_.reset();
            errno = E2BIG;
            break;
        }
        if (name == "." || name == "..")
            continue;
        if (!filter_ || qz_regexec(filter_.get(), entry) == 1)
            return name;
    }
    return {};
}

} // namespace qz::file
