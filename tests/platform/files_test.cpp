#include "platform/directory.h"
#include "platform/directory_calls.h"
#include "platform/directory_of_its_own.h"
#include "platform/file.h"
#include "platform/lock_file.h"

#include <cerrno>
#include <set>

using namespace qz::platform;

namespace {

class Files : public qz::test::DirectoryOfItsOwn {};

TEST_F(Files, TheSameReasonOnEverySystem)
{
    write("file", "");
    std::filesystem::create_directories(path("full/below"));
    const std::string file = path("file");
    const std::string full = path("full");
    const std::string none = path("none");
    const int replace_by_none = replace_file(none, file);

    const struct {
        const char *why;
        int result, reason;
    } cases[] = {
        {"a directory that is there",       make_directory(full),           EEXIST },
        {"below what is not there",         make_directory(none + "/a"),    ENOENT },
        {"below a file",                    make_directory(file + "/a"),    ENOTDIR},
        {"without a name",                  make_directory(""),             ENOENT },
        {"into what is not there",          change_directory(none),         ENOENT },
        {"into a file",                     change_directory(file),         ENOTDIR},
        {"a file that is not there",        remove_file(none),              ENOENT },
        {"to replace by what is not there", replace_by_none,                ENOENT },
        {"a lock below what is not there",  make_lock_file(none + "/lock"), ENOENT },
    };

    for (const auto &c : cases)
        EXPECT_EQ(c.result, c.reason) << c.why;
    EXPECT_NE(remove_file(path("full")), 0);
    EXPECT_TRUE(is_there("full"));
    EXPECT_NE(make_lock_file(path("full")), 0);
}

TEST_F(Files, AreListedByEveryName)
{
    std::set<std::string> names = {"a", "b c", ".hidden", "\xE9", std::string(200, 'n')};
    for (int i = 0; i < 4000; ++i) // more than is read at a time
        names.insert(std::string(60, 'm') + std::to_string(i));
    for (const std::string &name : names)
        write(name, "");
    for (const std::string &spelled : {root_.string(), root_.string() + "/"}) {
        const OpenDirectory directory(opendir(spelled));
        ASSERT_NE(directory, nullptr);
        std::set<std::string> found;
        while (const char *name = readdir(directory.get()))
            found.insert(name);
        EXPECT_EQ(found.erase(".") + found.erase(".."), 2u);
        EXPECT_EQ(found, names);
    }
    for (const std::string &none : {path("a"), path("none"), std::string()}) {
        errno = 0;
        EXPECT_EQ(opendir(none), nullptr);
        EXPECT_NE(errno, 0);
    }
}

} // namespace
