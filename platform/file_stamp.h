#ifndef QZ_PLATFORM_FILE_STAMP_H
#define QZ_PLATFORM_FILE_STAMP_H

#include <cstdint>
#include <string>

namespace qz::platform {

/// What tells one state of a file from another without reading it.
struct FileStamp {
    bool exists = false;
    std::int64_t size_bytes = 0;
    std::int64_t changed_ns = 0; ///< time of the last change, in nanoseconds since 1970
    std::uint64_t identity = 0;  ///< the file system's number of the file

    friend bool operator==(const FileStamp &a, const FileStamp &b)
    {
        return a.exists == b.exists && a.size_bytes == b.size_bytes &&
               a.changed_ns == b.changed_ns && a.identity == b.identity;
    }
};

/// The stamp of @p native_path, links followed; exists is false when nothing can be found there.
FileStamp file_stamp(const std::string &native_path);

/// The file that @p native_path finally names when it is a link, else the path itself.
std::string link_target(const std::string &native_path);

} // namespace qz::platform

#endif
