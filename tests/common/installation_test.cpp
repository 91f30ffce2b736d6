#include "account.h"
#include "qzcommon.h"
#include "qzerr.h"
#include "qzfile.h"

#include <QByteArray>
#include <boost/filesystem.hpp>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

namespace fs = boost::filesystem;

/// A fresh directory that is installation root and home at once; error handler -1 is silent.
class Installation : public testing::Test {
protected:
    Installation() : root_(fs::temp_directory_path() / fs::unique_path("qz-common-%%%%%%%%"))
    {
        fs::create_directories(root_);
        qputenv("HALCYRA", root_.string().c_str());
        qputenv("HOME", root_.string().c_str());
        qzerr_suppress_print(-1);
    }

    ~Installation() override
    {
        qzerr_restore_print(-1);
        boost::system::error_code ignored;
        fs::remove_all(root_, ignored);
    }

    fs::path root_;
};

TEST_F(Installation, Products)
{
    fs::create_directory(root_ / "plindra-v2025.3");
    fs::create_directory(root_ / "korvel");

    struct Case {
        const char *why;
        const char *product;
        bool installed;
    };

    const Case cases[] = {
        {"a directory with a version", "plindra", true },
        {"a directory without one",    "korvel",  false},
        {"no directory",               "atelio",  false},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.why);
        int status = 7;
        EXPECT_EQ(qzcommon_check_installation(c.product, &status), c.installed ? 0 : -1);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(_product_exists(c.product), c.installed);
    }
    EXPECT_EQ(qzcommon_check_installation("plindra", nullptr), 0);
}

TEST_F(Installation, NoRoot)
{
    qunsetenv("HALCYRA");
    int status = 7;
    EXPECT_EQ(qzcommon_check_installation("plindra", &status), -1);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(_product_exists("plindra"));
}

/// With the user data directory of the account, which is in the fresh one where a variable says so.
class WebAccess : public Installation {
protected:
    void SetUp() override
    {
        if (!qz::test::may_write_to_profile())
            GTEST_SKIP() << qz::test::kForeignProfile;
        EXPECT_EQ(qzcommon_web_access_allowed(), 0) << "a fresh profile";
        char *directory = nullptr;
        ASSERT_EQ(qzfile_halcyra_userdata_dir(&directory), 0);
        qzfile_path_to_unix(directory, static_cast<int>(std::strlen(directory)));
        marker_ = fs::path(directory) / ".Tarvex_web_access_file";
        std::free(directory);
        ASSERT_TRUE(fs::is_directory(marker_.parent_path()));
    }

    void TearDown() override
    {
        if (!marker_.empty())
            fs::remove_all(marker_.parent_path());
    }

    fs::path marker_;
};

TEST_F(WebAccess, AnyEntryGrantsIt)
{
    fs::ofstream(marker_).close();
    EXPECT_EQ(qzcommon_web_access_allowed(), 1) << "an empty file";
    fs::remove(marker_);
    EXPECT_EQ(qzcommon_web_access_allowed(), 0) << "withdrawn";
    fs::create_directory(marker_);
    EXPECT_EQ(qzcommon_web_access_allowed(), 1) << "a directory";
}

TEST_F(WebAccess, AnEntryThatCannotBeReadIsAnError)
{
    boost::system::error_code failed;
    fs::create_symlink(marker_, marker_, failed);
    if (failed || !fs::is_symlink(fs::symlink_status(marker_, failed)))
        GTEST_SKIP() << "no symbolic links here";
    EXPECT_THROW(qzcommon_web_access_allowed(), fs::filesystem_error);
}

TEST_F(WebAccess, NoUserDataDirectory)
{
    fs::remove_all(marker_.parent_path());
    fs::ofstream(marker_.parent_path()).close();
    EXPECT_EQ(qzcommon_web_access_allowed(), 0);
}

} // namespace
