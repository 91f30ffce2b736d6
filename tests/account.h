#pragma once

#include <cstdlib>

namespace qz::test {

/// Whether the system asks the account where its folders lie, and no variable moves them.
inline bool account_tells_folders()
{
    return std::getenv("LOCALAPPDATA") != nullptr;
}

/// Whether a test may make files in the user's own folders: in those of a test, or of an account
/// that is there for tests.
inline bool may_write_to_profile()
{
    return !account_tells_folders() || std::getenv("QZ_TEST_ACCOUNT") != nullptr;
}

constexpr const char *kForeignProfile =
    "the folders are those of a person; QZ_TEST_ACCOUNT=1 tells an account made for tests";

} // namespace qz::test
