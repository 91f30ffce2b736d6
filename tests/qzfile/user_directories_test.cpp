#include "account.h"
#include "qzfile.hpp"
#include "qzfile/scene.h"

#include <boost/filesystem/exception.hpp>
#include <boost/filesystem/operations.hpp>

#include <regex>
#include <set>
#include <stdexcept>

using scene::given_by;
using scene::Messages;
using scene::thrown;

using Name = DirectoryName;
using UserDirectories = scene::Scene;

constexpr char kNoDirectory[] = "Failure from method getting path";

TEST_F(UserDirectories, FollowTheDesktop)
{
    // Windows tells the folders of the account in variables, which steer nothing; a desktop on
    // POSIX is told where they are.
    const bool are_told = qz::test::account_tells_folders();
    if (!qz::test::may_write_to_profile())
        GTEST_SKIP() << qz::test::kForeignProfile;
    std::string roaming = text("roaming");
    std::string local = text("local");
    std::string places = text("home/Public");
    if (are_told) {
        roaming = qgetenv("APPDATA").toStdString();
        local = qgetenv("LOCALAPPDATA").toStdString();
        places = roaming + "\\Microsoft\\Windows\\Network Shortcuts";
    } else {
        set("XDG_CONFIG_HOME", roaming);
        set("XDG_DATA_HOME", local);
    }
    const std::string separator(1, std::filesystem::path::preferred_separator);
    const std::string desktop = profile() + separator + "Desktop";
    const std::string documents = profile() + separator + "Documents";

    const struct {
        int (*function)(char **);
        std::string directory;
        bool is_made;
        Name name;
    } cases[] = {
        {qzfile_halcyra_appdata_dir,       roaming + "\\Halcyra",    true,  Name::AppData        },
        {qzfile_halcyra_local_appdata_dir, local + "\\Halcyra",      true,  Name::LocalAppData   },
        {qzfile_halcyra_userdata_dir,      profile() + "\\Halcyra",  true,  Name::UserData       },
        {qzfile_get_halcyra_temp,          local + "\\Halcyra\\tmp", true,  Name::Temp           },
        {qzfile_get_desktop_dir,           desktop,                  false, Name::Desktop        },
        {qzfile_get_mydocuments_dir,       documents,                false, Name::MyDocuments    },
        {qzfile_get_mynetworkplaces_dir,   places,                   false, Name::MyNetworkPlaces},
        {qzfile_dir_home,                  home(),                   true,  Name::Home           },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.directory);
        EXPECT_EQ(given_by(c.function), c.directory);
        EXPECT_EQ(qzfile_get_directory_path(c.name), c.directory);
        std::string native = c.directory;
        qzfile_path_to_unix(native.data(), static_cast<int>(native.size()));
        EXPECT_EQ(std::filesystem::is_directory(native), c.is_made || are_told);
    }
    for (int value : {0, 9, -1})
        EXPECT_EQ(
            thrown<std::runtime_error>([&] { qzfile_get_directory_path(DirectoryName(value)); }),
            kNoDirectory);
}

TEST_F(UserDirectories, VariablesReplaceThem)
{
    set("HALCYRA_APPDATA_OVERRIDE", text("over/ride"));
    EXPECT_EQ(given_by(qzfile_halcyra_appdata_dir), text("over/ride"));
    EXPECT_EQ(given_by(qzfile_halcyra_local_appdata_dir), text("over/ride"));
    EXPECT_TRUE(is_there("over/ride"));
    if (qz::test::may_write_to_profile()) {
        EXPECT_EQ(given_by(qzfile_halcyra_userdata_dir), profile() + "\\Halcyra");
    }
    EXPECT_EQ(given_by(qzfile_get_halcyra_temp), text("over/ride") + "\\tmp");
    set("HALCYRA_TMPDIR", text("t/m/p"));
    EXPECT_EQ(given_by(qzfile_get_halcyra_temp), text("t/m/p"));
    EXPECT_TRUE(is_there("t/m/p"));
}

TEST_F(UserDirectories, OfThisRelease)
{
    set("HALCYRA_APPDATA_OVERRIDE", text("app"));
    set("HALCYRA_DEPRECATION_WARNING", "1");
    const std::string directory = text("app") + "\\2025-3";
    EXPECT_EQ(given_by(qzfile_get_appdata_release_dir), directory) << "made";
    halcyra::qzlibs::CaptureQZErr warning(0);
    EXPECT_EQ(given_by(qzfile_appdata_release_dir), directory) << "found";
    EXPECT_PRED_FORMAT2(testing::IsSubstring,
                        "): qzfile_appdata_release_dir function is deprecated for "
                        "qzfile_get_appdata_release_dir\n",
                        warning.getMessages());
    EXPECT_EQ(qzfile_get_appdata_release_dir_path(), directory);
    EXPECT_EQ(qzfile_get_atelio_scripts_path(AtelioScriptsPathType::UserMenuFile),
              directory + "\\atelio\\scriptsx.mnu");
    EXPECT_EQ(qzfile_get_atelio_scripts_path(AtelioScriptsPathType::UserScriptsDir),
              directory + "\\scriptsx");
}

TEST_F(UserDirectories, ThatCannotBeMade)
{
    touch("file");
    set("HALCYRA_APPDATA_OVERRIDE", text("file/x"));
    set("HALCYRA_TMPDIR", text("file/y"));
    Messages messages;
    for (const auto function :
         {qzfile_halcyra_appdata_dir, qzfile_get_halcyra_temp, qzfile_get_appdata_release_dir}) {
        EXPECT_EQ(given_by(function), "(null)");
        EXPECT_NE(messages.text().find("qzfile_mkdir_recursive failed: "), std::string::npos);
    }
    EXPECT_EQ(thrown<std::runtime_error>([] { qzfile_get_directory_path(DirectoryName::Temp); }),
              kNoDirectory);
}

TEST_F(UserDirectories, AReleaseDirectoryThatCannotBeMadeIsOnlyMissing)
{
    // There, but no directory.
    touch("app");
    set("HALCYRA_APPDATA_OVERRIDE", text("app"));
    Messages messages;
    char *out = nullptr;
    EXPECT_EQ(qzfile_get_appdata_release_dir(&out), 0);
    EXPECT_EQ(out, nullptr);
    EXPECT_NE(messages.text().find("qzfile_mkdir_recursive failed: "), std::string::npos);
    EXPECT_EQ(thrown<std::runtime_error>(qzfile_get_appdata_release_dir_path),
              "Failure getting the appdata/release directory");
}

TEST_F(UserDirectories, WithoutAHome)
{
    // Then the account says where the home is, and no variable.
    const bool is_told = qz::test::account_tells_folders();
    touch("file");
    set("HOME", text("file"));
    for (const auto function : {qzfile_halcyra_appdata_dir, qzfile_halcyra_local_appdata_dir,
                                qzfile_halcyra_userdata_dir}) {
        Messages messages;
        EXPECT_EQ(given_by(function) != "(null)", is_told);
        EXPECT_EQ(messages.text().find(": Unable to get ") == std::string::npos, is_told);
    }
}

TEST(Support, TellsWhereToReport)
{
    EXPECT_STREQ(qzfile_get_halcyra_support_error_mesg(),
                 "Please report this problem at https://www.halcyra.example/support, and upload "
                 "the following files, to help us diagnose this problem:");
}

TEST_F(UserDirectories, UniqueNames)
{
    const std::string first = halcyra::path::get_unique_file_name(".txt");
    const std::regex shape("([0-9a-f]{4}-){3}[0-9a-f]{4}\\.txt");
    EXPECT_TRUE(std::regex_match(first, shape)) << first;
    EXPECT_NE(first, halcyra::path::get_unique_file_name(".txt"));
    set("HALCYRA_TMPDIR", text("tmp"));
    const auto path = halcyra::path::get_unique_temporary_file_path(".d/x");
    EXPECT_EQ(path.parent_path().parent_path(), boost::filesystem::path(text("tmp")));
    EXPECT_FALSE(boost::filesystem::exists(path));
}

TEST_F(UserDirectories, FilesWithSuffix)
{
    using halcyra::path::get_all_files_with_suffix;
    const auto fault = [](const char *directory) {
        return thrown<boost::filesystem::filesystem_error>(
            [&] { get_all_files_with_suffix(directory, ".txt"); });
    };
    for (const char *name : {"d/a.txt", "d/b.TXT", "d/.txt", "d/c.txt.bak", "d/sub.txt/x.txt"})
        touch(name);
    const bool has_links = link("d/a.txt", "d/link.txt");
    link("nowhere", "d/dangling.txt");
    std::set<std::string> names;
    for (const auto &path : get_all_files_with_suffix("d", ".txt")) {
        EXPECT_EQ(path.parent_path(), boost::filesystem::path("d"));
        names.insert(path.filename().string());
    }
    std::set<std::string> expected = {"a.txt", ".txt"};
    if (has_links)
        expected.insert("link.txt");
    EXPECT_EQ(names, expected);
    EXPECT_EQ(get_all_files_with_suffix("d", "").size(), expected.size() + 2);
    EXPECT_NE(fault("missing").find("directory_iterator::directory_iterator"), std::string::npos);
    if (link("d/loop.txt", "d/loop.txt")) {
        EXPECT_NE(fault("d").find("status"), std::string::npos) << fault("d");
    }
}
