#include "platform/users.h"

#include <cerrno>
#include <vector>

#include <pwd.h>

namespace qz::platform {

std::optional<std::string> qzwin32_getpwnam(const std::string &user)
{
    passwd record = {};
    passwd *found = nullptr;
    std::vector<char> texts(1024);
    while (::getpwnam_r(user.c_str(), &record, texts.data(), texts.size(), &found) == ERANGE)
        texts.resize(texts.size() * 2);
    if (!found || !found->pw_dir)
        return std::nullopt;
    return found->pw_dir;
}

} // namespace qz::platform
