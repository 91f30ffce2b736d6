#include "qzfile/plain_line_endings.h"
#include "qzfile/scene.h"

using scene::Messages;

namespace fs = std::filesystem;

namespace {

class DosFiles : public scene::Scene {
protected:
    DosFiles() { qzfile_path_set("."); }
};

} // namespace

TEST_F(DosFiles, AreToldByTheirFirstLine)
{
    const std::string full(1023, 'x');
    write("dos", "a\r\nb\n");
    write("return", "a\rb");
    write("unix", "a\nb\r\n");
    write("empty", "");
    write("long", full + "\r\n");
    write("fits", full.substr(1) + "\r\n");
    write("binary", std::string("a\0\r\n", 4));
    fs::create_directory(root_ / "directory");
    for (const char *name : {"dos", "return", "fits", ".\\dos"})
        EXPECT_EQ(qzfile_is_dosfile(name), 0) << name;
    for (const char *name : {"unix", "empty", "long", "binary", "directory", "missing", ""})
        EXPECT_EQ(qzfile_is_dosfile(name), -1) << name;
    EXPECT_EQ(qzfile_is_dosfile(nullptr), -1);
}

TEST_F(DosFiles, AreConvertedAndKeepTheirPermissions)
{
    // More than is read at a time.
    std::string lines;
    while (lines.size() < 700'000)
        lines += "line " + std::to_string(lines.size()) + (lines.size() % 7 ? "\r\n" : "\n");
    write("file", "\r\n" + lines);
    write("file.tmp", "what a killed conversion left");
    const auto secret = fs::perms::owner_read | fs::perms::group_read;
    fs::permissions(root_ / "file", secret);
    const auto kept = fs::status(root_ / "file").permissions();
    Messages messages;
    EXPECT_EQ(qzfile_dos_to_unix("file"), 0);
    // Not EXPECT_EQ: the difference of so many lines takes more memory than there is.
    EXPECT_TRUE(read("file") == qz::test::plain_line_endings("\r\n" + lines));
    EXPECT_EQ(fs::status(root_ / "file").permissions(), kept);
    EXPECT_FALSE(is_there("file.tmp"));
    EXPECT_EQ(messages.text(), "");
}

TEST_F(DosFiles, NothingToDo)
{
    write("unix", "a\nb\r\n");
    write("other/away", "a\r\n");
    fs::create_directory(root_ / "directory");
    qzfile_path_set(".;other");
    const auto changed = fs::last_write_time(root_ / "unix");
    for (const char *name : {"unix", "missing", "directory", "away", ""})
        EXPECT_EQ(qzfile_dos_to_unix(name), 0) << name;
    EXPECT_EQ(qzfile_dos_to_unix(nullptr), 0);
    EXPECT_EQ(fs::last_write_time(root_ / "unix"), changed);
    EXPECT_EQ(read("other/away"), "a\r\n") << "it lies on the path, but not where the name leads";
}

TEST_F(DosFiles, ALinkGoesOnToNameTheFile)
{
    write("data/file", "a\r\n");
    write("theirs", "theirs");
    if (!link("data/file", "link"))
        GTEST_SKIP() << "no right to make links here";
    link("theirs", "data/file.tmp");
    EXPECT_EQ(qzfile_dos_to_unix("link"), 0);
    EXPECT_TRUE(fs::is_symlink(root_ / "link"));
    EXPECT_EQ(read("data/file"), "a\n");
    EXPECT_EQ(read("theirs"), "theirs") << "nothing is written through a link";
}

TEST_F(DosFiles, AreConvertedTogether)
{
    for (const char *name : {"a", "b", "c", "d/e"})
        write(name, "x\r\n");
    fs::create_directory(root_ / "b.tmp");
    for (const char *name : {"a", "b", "c", "a", "d/e", "missing", ""})
        EXPECT_EQ(qzfile_dos_to_unix_register(name), 0);
    EXPECT_EQ(qzfile_dos_to_unix_register(nullptr), -1);
    Messages messages;
    EXPECT_EQ(qzfile_dos_to_unix_convert(), -1);
    EXPECT_EQ(read("a") + read("b") + read("c") + read("d/e"), "x\nx\r\nx\nx\n");
    EXPECT_EQ(messages.text(), "FATAL qzfile_dos_to_unix():Failed to open 'b.tmp' for writing.\n"
                               "WARNING qzfile_dos_to_unix_convert():'b' is not a dos file.\n"
                               "Will continue with the remaining files in the list, if any.\n");
    write("a", "again\r\n");
    EXPECT_EQ(qzfile_dos_to_unix_convert(), 0) << "the list is empty";
    EXPECT_EQ(read("a"), "again\r\n");
}

TEST_F(DosFiles, TheFiftyFirstIsNotRegistered)
{
    for (int i = 1; i <= 51; ++i) {
        const std::string name = "f" + std::to_string(i);
        write(name, "\r\n");
        EXPECT_EQ(qzfile_dos_to_unix_register(name.c_str()), 0);
    }
    EXPECT_EQ(qzfile_dos_to_unix_convert(), 0);
    EXPECT_EQ(read("f50"), "\n");
    EXPECT_EQ(read("f51"), "\r\n");
}
