#ifndef QZ_PLATFORM_FILE_KIND_H
#define QZ_PLATFORM_FILE_KIND_H

namespace qz::platform {

enum class FileKind { None, RegularFile, Directory, Other };

/// What @p native_path names, links followed; None when the system does not know or does not tell.
FileKind file_kind(const char *native_path);

} // namespace qz::platform

#endif
