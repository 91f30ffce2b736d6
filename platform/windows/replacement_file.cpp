#include "platform/replacement_file.h"

#include "platform/later_stamp.h"
#include "platform/windows/access_list.h"
#include "platform/windows/errno_from_windows.h"
#include "platform/windows/file_time.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <vector>

#include <windows.h>

namespace qz::platform {

namespace {

constexpr DWORD kPause_ms = 10;
// A file that somebody reads cannot be replaced. Readers are done within milliseconds, virus
// scanners within a second or two.
constexpr int kTriesForReaders = 300;
// Writers wait for each other, one save after the other; only one that hangs takes so long.
constexpr int kTriesForWriters = 6000;

/// Calls again while the file is in use, up to @p tries times.
/// @param call  gives a Windows error code
/// @return that of the last call.
template <typename Call, typename IsInUse> DWORD patiently(int tries, Call call, IsInUse is_in_use)
{
    for (;;) {
        const DWORD error = call();
        if (!is_in_use(error) || --tries == 0)
            return error;
        Sleep(kPause_ms);
    }
}

bool is_shared_badly(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

DWORD opened(const std::string &path, DWORD access, DWORD sharing, DWORD disposition, HANDLE &file)
{
    file = CreateFileA(path.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
    return file == INVALID_HANDLE_VALUE ? GetLastError() : DWORD{ERROR_SUCCESS};
}

/// Whether a target that cannot be replaced may be so a moment later. Windows refuses one that is
/// in use with the words for a missing right, as it does a directory and a file marked read-only.
bool may_be_free_soon(const std::string &path, DWORD error)
{
    if (error != ERROR_ACCESS_DENIED)
        return is_shared_badly(error);
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES &&
           !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY));
}

/// What the rename of an open file takes: a header with the new name behind it.
std::vector<unsigned char> rename_request(const std::string &to)
{
    const UINT code_page = AreFileApisANSI() ? CP_ACP : CP_OEMCP;
    const int length = MultiByteToWideChar(code_page, 0, to.c_str(), -1, nullptr, 0);
    std::vector<wchar_t> name(static_cast<std::size_t>(std::max(length, 1)));
    MultiByteToWideChar(code_page, 0, to.c_str(), -1, name.data(), length);

    const std::size_t name_bytes = name.size() * sizeof(wchar_t);
    std::vector<unsigned char> request(sizeof(FILE_RENAME_INFO) + name_bytes);
    FILE_RENAME_INFO header = {};
    header.ReplaceIfExists = TRUE;
    header.FileNameLength = static_cast<DWORD>(name_bytes - sizeof(wchar_t));
    std::memcpy(request.data(), &header, sizeof header);
    std::memcpy(request.data() + offsetof(FILE_RENAME_INFO, FileName), name.data(), name_bytes);
    return request;
}

int read_changed(HANDLE file, std::int64_t &stamp_ns)
{
    FILETIME changed{};
    if (!GetFileTime(file, nullptr, nullptr, &changed))
        return errno_from_windows(GetLastError());
    stamp_ns = ns_since_1970(changed);
    return 0;
}

int write_changed(HANDLE file, std::int64_t stamp_ns)
{
    const FILETIME changed = file_time(stamp_ns);
    return SetFileTime(file, nullptr, nullptr, &changed) ? 0 : errno_from_windows(GetLastError());
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
    HANDLE file = INVALID_HANDLE_VALUE;
    // DELETE is the right to rename, and the stamp is read back.
    const auto open_side = [&] {
        return opened(side_, GENERIC_WRITE | FILE_READ_ATTRIBUTES | DELETE, 0, CREATE_ALWAYS, file);
    };
    if (const DWORD error = patiently(kTriesForWriters, open_side, is_shared_badly))
        return errno_from_windows(error);
    handle_ = reinterpret_cast<std::intptr_t>(file);

    // The writer before may have renamed its file and not closed it yet, and so far nobody can read
    // it. Whatever else keeps the target from being read, the caller will meet it.
    const auto probe = [&] {
        HANDLE target = INVALID_HANDLE_VALUE;
        const DWORD error = opened(target_, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   OPEN_EXISTING, target);
        if (target != INVALID_HANDLE_VALUE)
            CloseHandle(target);
        return error;
    };
    patiently(kTriesForReaders, probe, is_shared_badly);
    return 0;
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
    if (replaced.exists) {
        AccessList list = access_list(target_);
        set_access_list(side_, list);
        if (const int cause = move_stamp_past(replaced.changed_ns, handle_of(handle_), read_changed,
                                              write_changed))
            return cause;
    }
    if (!FlushFileBuffers(handle_of(handle_)))
        return errno_from_windows(GetLastError());
    // Renamed while it is open: a closed side file would be another writer's to begin anew.
    std::vector<unsigned char> request = rename_request(target_);
    const auto rename = [&] {
        const bool is_renamed = SetFileInformationByHandle(
            handle_of(handle_), FileRenameInfo, request.data(), static_cast<DWORD>(request.size()));
        return is_renamed ? DWORD{ERROR_SUCCESS} : GetLastError();
    };
    const DWORD error = patiently(kTriesForReaders, rename,
                                  [&](DWORD cause) { return may_be_free_soon(target_, cause); });
    if (error != ERROR_SUCCESS)
        return errno_from_windows(error);
    CloseHandle(handle_of(handle_));
    handle_ = -1;
    return 0;
}

} // namespace qz::platform
