#include "qzfile/scene.h"

#include <cerrno>

using scene::Messages;

namespace fs = std::filesystem;

using Removal = scene::Scene;

TEST_F(Removal, RemovesFilesAndTrees)
{
    touch("tree/a/b/c");
    touch("tree/.hidden");
    touch("file");
    touch("kept");
    EXPECT_EQ(qzfile_rm_recursive("tree\\a/b"), 0);
    EXPECT_FALSE(is_there("tree/a/b"));
    EXPECT_EQ(qzfile_rm_recursive((text("tree") + "\\").c_str()), 0);
    EXPECT_FALSE(is_there("tree"));
    EXPECT_EQ(qzfile_rm_recursive("file"), 0);
    EXPECT_FALSE(is_there("file"));
    EXPECT_TRUE(is_there("kept"));
}

TEST_F(Removal, NeverLeavesTheTreeThroughALink)
{
    touch("outside/precious");
    fs::create_directory(root_ / "tree");
    if (!link("outside", "tree/link"))
        GTEST_SKIP() << "no right to make links here";
    for (const char *name : {"link1", "link2", "link3"})
        link("outside", name);
    link("outside/precious", "file_link");
    link("nowhere", "dangling");
    link("loop", "loop");
    for (const char *name : {"tree", "link1", "link2\\", "link3//", "file_link"}) {
        EXPECT_EQ(qzfile_rm_recursive(name), 0) << name;
        EXPECT_FALSE(is_there(std::string(name).substr(0, std::string(name).find_first_of("\\/"))));
        EXPECT_TRUE(is_there("outside/precious")) << name;
    }
    for (const char *name : {"dangling", "loop"})
        EXPECT_EQ(qzfile_rm_recursive(name), -1) << "it counts as what it points to: nothing";
}

TEST_F(Removal, RefusesInSilence)
{
    touch("file");
    Messages messages;
    std::string too_long = root_.string();
    while (too_long.size() <= 1024)
        too_long += "\\.";
    too_long += "\\file";
    for (const std::string &path :
         {std::string("missing"), std::string("file\\x"), std::string("Q:\\file"), too_long})
        EXPECT_EQ(qzfile_rm_recursive(path.c_str()), -1) << path;
    EXPECT_EQ(messages.text(), "");
    EXPECT_TRUE(is_there("file"));
    EXPECT_EQ(qzfile_rm_recursive(nullptr), -1);
    EXPECT_EQ(messages.text(), "FATAL qzfile_rm_recursive: Null path.\n");
}

TEST_F(Removal, SaysWhichFileStays)
{
    // One of the kernel's own, which no administrator removes; elsewhere one that is being read.
    const bool has_kernels_own = fs::path::preferred_separator == '/';
    touch("read/file");
    const std::ifstream reader(root_ / "read/file");
    const std::string file = has_kernels_own ? "/proc/self/status" : text("read/file");
    const std::string directory = has_kernels_own ? "/proc/self/fdinfo" : text("read");
    std::string shown = file;
    qzfile_path_localize(shown.data(), static_cast<int>(shown.size()));
    Messages messages;
    errno = 0;
    EXPECT_EQ(qzfile_rm_recursive(file.c_str()), -1);
    EXPECT_EQ(errno, has_kernels_own ? EPERM : EACCES);
    EXPECT_EQ(messages.text(), "WARNING qzfile_rm_recursive: unlink failed: " + shown);
    EXPECT_EQ(qzfile_rm_recursive(directory.c_str()), -1) << "nor a directory, without a word";
}

TEST_F(Removal, WithoutTheRight)
{
    touch("closed/file");
    fs::permissions(root_ / "closed", fs::perms::owner_read | fs::perms::owner_exec);
    if (std::ofstream(root_ / "closed/probe").is_open())
        GTEST_SKIP() << "the administrator may do everything";
    const std::string closed = text("closed");
    std::string shown = closed;
    qzfile_path_localize(shown.data(), static_cast<int>(shown.size()));
    Messages messages;
    EXPECT_EQ(qzfile_rm_recursive((closed + "/file").c_str()), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(qzfile_rm_recursive(closed.c_str()), -1) << "without a word";
    EXPECT_EQ(qzfile_mkdir((closed + "/a/b").c_str(), 0), -1);
    EXPECT_EQ(errno, EACCES) << "the reason is that of the first that cannot be made";
    EXPECT_EQ(messages.text(), "WARNING qzfile_rm_recursive: unlink failed: " + shown +
                                   "\\fileWARNING qzfile_mkdir: qzfile_mkdir_recursive failed: " +
                                   shown + "\\a\\b : Permission denied\n");
    fs::permissions(root_ / "closed", fs::perms::owner_all);
    EXPECT_TRUE(is_there("closed/file"));
}
