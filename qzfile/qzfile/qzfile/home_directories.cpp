#include "platform/users.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"

#include <optional>

using qz::file::fail;
using qz::file::hand_out;
using qz::file::handing_out;

int qzfile_dir_home(char **out)
{
    return handing_out(out, [&] { return hand_out(halcyra::path::home().string(), out); });
}

int qzfile_dir_user_home(const char *user, char **out)
{
    return handing_out(out, [&] {
        if (!user)
            return fail("qzfile_dir_user_home: null user name given\n");
        const std::optional<std::string> home = qz::platform::qzwin32_getpwnam(user);
        if (!home)
            return fail("qzfile_dir_user_home: Unable to get home directory for user '%s'\n", user);
        return hand_out(*home, out);
    });
}
