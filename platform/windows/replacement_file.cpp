#include "platform/replacement_file.h"

#include "platform/windows/errno_from_windows.h"

#include <windows.h>

namespace qz::platform {

namespace {

// A file that somebody reads at this moment can be neither opened nor replaced; readers are done
// within milliseconds, virus scanners within a second or two.
constexpr DWORD kPause_ms = 10;
constexpr int kTries = 300;

bool is_held_by_another(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED ||
           error == ERROR_LOCK_VIOLATION || error == ERROR_DELETE_PENDING;
}

HANDLE handle_of(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

ReplacementFile::~ReplacementFile()
{
    if (handle_ == -1)
        return;
    CloseHandle(handle_of(handle_));
    DeleteFileA(side_.c_str());
}

int ReplacementFile::open(const std::string &native_target)
{
    target_ = native_target;
    side_ = target_ + ".new";
    for (int attempt = 1;; ++attempt) {
        const HANDLE file = CreateFileA(side_.c_str(), GENERIC_WRITE | FILE_WRITE_ATTRIBUTES, 0,
                                        nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            handle_ = reinterpret_cast<std::intptr_t>(file);
            return 0;
        }
        const DWORD error = GetLastError();
        if (!is_held_by_another(error) || attempt == kTries)
            return errno_from_windows(error);
        Sleep(kPause_ms);
    }
}

int ReplacementFile::write(std::string_view bytes)
{
    constexpr std::size_t kPiece_bytes = std::size_t{1} << 30;
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD wanted =
            static_cast<DWORD>(bytes.size() < kPiece_bytes ? bytes.size() : kPiece_bytes);
        if (!WriteFile(handle_of(handle_), bytes.data(), wanted, &written, nullptr))
            return errno_from_windows(GetLastError());
        bytes.remove_prefix(written);
    }
    return 0;
}

int ReplacementFile::commit()
{
    const FileStamp replaced = file_stamp(target_);
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    constexpr std::int64_t kTicksPerMillisecond = 10'000;
    constexpr std::int64_t kNanosecondsPerTick = 100;
    ULARGE_INTEGER stamp{};
    stamp.LowPart = now.dwLowDateTime;
    stamp.HighPart = now.dwHighDateTime;
    const std::int64_t earliest = replaced.changed_ns / kNanosecondsPerTick + kTicksPerMillisecond;
    if (replaced.exists && static_cast<std::int64_t>(stamp.QuadPart) < earliest) {
        stamp.QuadPart = static_cast<ULONGLONG>(earliest);
        const FILETIME moved = {stamp.LowPart, stamp.HighPart};
        SetFileTime(handle_of(handle_), nullptr, nullptr, &moved);
    }
    if (!FlushFileBuffers(handle_of(handle_)))
        return errno_from_windows(GetLastError());
    CloseHandle(handle_of(handle_));
    handle_ = -1;
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExA(side_.c_str(), target_.c_str(),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return 0;
        const DWORD error = GetLastError();
        if (!is_held_by_another(error) || attempt == kTries) {
            DeleteFileA(side_.c_str());
            return errno_from_windows(error);
        }
        Sleep(kPause_ms);
    }
}

} // namespace qz::platform
