#include "platform/file_stamp.h"

#include <windows.h>

namespace qz::platform {

FileStamp file_stamp(const std::string &native_path)
{
    const HANDLE file = CreateFileA(native_path.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    BY_HANDLE_FILE_INFORMATION info{};
    FileStamp stamp;
    if (GetFileInformationByHandle(file, &info)) {
        const auto joined = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; };
        constexpr std::int64_t kNanosecondsPerTick = 100;
        stamp.exists = true;
        stamp.size_bytes = static_cast<std::int64_t>(joined(info.nFileSizeHigh, info.nFileSizeLow));
        stamp.changed_ns = static_cast<std::int64_t>(joined(info.ftLastWriteTime.dwHighDateTime,
                                                            info.ftLastWriteTime.dwLowDateTime)) *
                           kNanosecondsPerTick;
        stamp.identity = joined(info.nFileIndexHigh, info.nFileIndexLow);
    }
    CloseHandle(file);
    return stamp;
}

std::string link_target(const std::string &native_path)
{
    return native_path;
}

} // namespace qz::platform
