#include "platform/users.h"

#include <vector>

// clang-format off
#include <windows.h>
#include <sddl.h> // needs the types of the one above

// clang-format on

namespace qz::platform {

namespace {

const std::string kProfileList = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList\\";

/// The text form of an account's security identifier; empty for an unknown account.
std::string security_identifier(const std::string &account)
{
    std::vector<char> identifier(SECURITY_MAX_SID_SIZE);
    std::vector<char> domain(1024);
    DWORD identifier_size = static_cast<DWORD>(identifier.size());
    DWORD domain_size = static_cast<DWORD>(domain.size());
    SID_NAME_USE use = SidTypeUnknown;
    if (!LookupAccountNameA(nullptr, account.c_str(), identifier.data(), &identifier_size,
                            domain.data(), &domain_size, &use))
        return {};
    char *text = nullptr;
    if (!ConvertSidToStringSidA(identifier.data(), &text))
        return {};
    std::string result = text;
    LocalFree(text);
    return result;
}

} // namespace

std::optional<std::string> qzwin32_getpwnam(const std::string &user)
{
    const std::string identifier = user.empty() ? std::string() : security_identifier(user);
    if (identifier.empty())
        return std::nullopt;
    char profile[MAX_PATH + 1] = {};
    DWORD size_bytes = sizeof profile;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, (kProfileList + identifier).c_str(), "ProfileImagePath",
                     RRF_RT_REG_SZ, nullptr, profile, &size_bytes) != ERROR_SUCCESS)
        return std::nullopt;
    return profile;
}

} // namespace qz::platform
