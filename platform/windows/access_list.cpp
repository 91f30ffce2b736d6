#include "platform/windows/access_list.h"

#include <windows.h>

namespace qz::platform {

namespace {

constexpr SECURITY_INFORMATION kPart = DACL_SECURITY_INFORMATION;

} // namespace

AccessList access_list(const std::string &native_path)
{
    DWORD size_bytes = 0;
    GetFileSecurityA(native_path.c_str(), kPart, nullptr, 0, &size_bytes);
    AccessList list(size_bytes);
    if (!GetFileSecurityA(native_path.c_str(), kPart, list.data(), size_bytes, &size_bytes))
        list.clear();
    return list;
}

void set_access_list(const std::string &native_path, AccessList &list)
{
    if (!list.empty())
        SetFileSecurityA(native_path.c_str(), kPart, list.data());
}

} // namespace qz::platform
