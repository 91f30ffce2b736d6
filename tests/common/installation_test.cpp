#include "account.h"
#include "qzcommon.h"
#include "qzfile/scene.h"

#include <boost/filesystem/exception.hpp>

namespace {

namespace fs = std::filesystem;

/// A scene that is the installation too, and where nothing is said.
class Installation : public scene::Scene {
protected:
    Installation() { set("HALCYRA", root_.string()); }

    scene::Messages silence_;
};

TEST_F(Installation, Products)
{
    fs::create_directory(root_ / "plindra-v2025.3");
    fs::create_directory(root_ / "korvel");

    const struct {
        const char *why, *product;
        bool installed;
    } cases[] = {
        {"a directory with a version", "plindra", true },
        {"a directory without one",    "korvel",  false},
        {"no directory",               "atelio",  false},
    };

    const auto expect = [](const char *product, bool installed) {
        int status = 7;
        EXPECT_EQ(qzcommon_check_installation(product, &status), installed ? 0 : -1);
        EXPECT_EQ(status, 0);
        EXPECT_EQ(_product_exists(product), installed);
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        expect(c.product, c.installed);
    }
    EXPECT_EQ(qzcommon_check_installation("plindra", nullptr), 0);
    unset("HALCYRA");
    expect("plindra", false);
}

TEST_F(Installation, AnyEntryGrantsWebAccess)
{
    if (!qz::test::may_write_to_profile())
        GTEST_SKIP() << qz::test::kForeignProfile;
    const std::string directory = home() + "/Halcyra";
    const std::string marker = directory + "/.Tarvex_web_access_file";
    EXPECT_EQ(qzcommon_web_access_allowed(), 0) << "a fresh profile";
    ASSERT_TRUE(fs::is_directory(directory));
    touch(marker);
    EXPECT_EQ(qzcommon_web_access_allowed(), 1) << "an empty file";
    fs::remove(marker);
    EXPECT_EQ(qzcommon_web_access_allowed(), 0) << "withdrawn";
    fs::create_directory(marker);
    EXPECT_EQ(qzcommon_web_access_allowed(), 1) << "a directory";
    fs::remove(marker);
    if (link(marker, marker) && fs::is_symlink(marker)) {
        EXPECT_THROW(qzcommon_web_access_allowed(), boost::filesystem::filesystem_error)
            << "an entry that cannot be read";
    }
    fs::remove_all(directory);
    touch(directory);
    EXPECT_EQ(qzcommon_web_access_allowed(), 0) << "no user data directory";
    fs::remove(directory);
}

} // namespace
