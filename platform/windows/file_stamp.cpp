#include "platform/file_stamp.h"

#include "platform/windows/file_time.h"

#include <string_view>

#include <windows.h>

namespace qz::platform {

namespace {

/// A handle of what the path finally names, which disturbs nobody.
HANDLE opened_to_ask(const std::string &native_path)
{
    return CreateFileA(native_path.c_str(), FILE_READ_ATTRIBUTES,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

} // namespace

FileStamp file_stamp(const std::string &native_path)
{
    const HANDLE file = opened_to_ask(native_path);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    BY_HANDLE_FILE_INFORMATION info{};
    FileStamp stamp;
    if (GetFileInformationByHandle(file, &info)) {
        const auto joined = [](DWORD high, DWORD low) { return (std::uint64_t{high} << 32) | low; };
        stamp.exists = true;
        stamp.size_bytes = static_cast<std::int64_t>(joined(info.nFileSizeHigh, info.nFileSizeLow));
        stamp.changed_ns = ns_since_1970(info.ftLastWriteTime);
        stamp.identity = joined(info.nFileIndexHigh, info.nFileIndexLow);
    }
    CloseHandle(file);
    return stamp;
}

std::string link_target(const std::string &native_path)
{
    const DWORD attributes = GetFileAttributesA(native_path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return native_path;
    const HANDLE file = opened_to_ask(native_path);
    if (file == INVALID_HANDLE_VALUE)
        return native_path;
    char target[MAX_PATH] = {};
    const DWORD length = GetFinalPathNameByHandleA(file, target, MAX_PATH, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    if (length == 0 || length >= MAX_PATH)
        return native_path;

    // The answer comes in the spelling without limits, which the other calls need not know.
    const std::string_view text(target, length);
    constexpr std::string_view kServer = "\\\\?\\UNC\\";
    constexpr std::string_view kDrive = "\\\\?\\";
    if (text.substr(0, kServer.size()) == kServer)
        return "\\\\" + std::string(text.substr(kServer.size()));
    return std::string(text.substr(0, kDrive.size()) == kDrive ? text.substr(kDrive.size()) : text);
}

} // namespace qz::platform
