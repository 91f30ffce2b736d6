#ifndef QZ_QZFILE_DIRECTORY_LISTING_H
#define QZ_QZFILE_DIRECTORY_LISTING_H

#include "platform/directory.h"
#include "qzregex.h"

#include <cstdlib>
#include <memory>
#include <string_view>

namespace qz::file {

/// The names in one directory that pass an optional filter, in the system's order.
class DirectoryListing {
public:
    /// Begins a listing without a filter. A failure is said on standard output, where scripts
    /// that drive the programs look for it.
    bool open(const char *path);

    /// Keeps only the names that match a regular expression; "" changes nothing. A pattern that
    /// does not compile is reported and leaves the filter as it was.
    bool set_filter(const char *pattern);

    /// The next name, borrowed until the next call and never empty, or "" at the end. A name of
    /// kNameLimit bytes or more ends the listing with errno E2BIG.
    std::string_view next();

private:
    struct FreeFilter {
        void operator()(qz_regexp *filter) const { std::free(filter); }
    };

    platform::OpenDirectory directory_;
    std::unique_ptr<qz_regexp, FreeFilter> filter_;
};

/// The shortest name that is too long to deliver, in bytes.
constexpr std::size_t kNameLimit = 256;

} // namespace qz::file

#endif
