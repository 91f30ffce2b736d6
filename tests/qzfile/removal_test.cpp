#include "qzfile/scene.h"

#include <gtest/gtest.h>

#include <string>

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
    std::error_code error;
    fs::create_directory_symlink(root_ / "outside", root_ / "tree/link", error);
    if (error)
        GTEST_SKIP() << "no right to make links here";
    for (const char *name : {"link1", "link2", "link3"})
        fs::create_directory_symlink(root_ / "outside", root_ / name);
    fs::create_symlink(root_ / "outside/precious", root_ / "file_link");
    fs::create_symlink(root_ / "nowhere", root_ / "dangling");
    for (const char *name : {"tree", "link1", "link2\\", "link3//", "file_link"}) {
        EXPECT_EQ(qzfile_rm_recursive(name), 0) << name;
        EXPECT_FALSE(is_there(std::string(name).substr(0, std::string(name).find_first_of("\\/"))));
        EXPECT_TRUE(is_there("outside/precious")) << name;
    }
    EXPECT_EQ(qzfile_rm_recursive("dangling"), -1) << "it counts as what it points to: nothing";
}

TEST_F(Removal, RefusesInSilence)
{
    touch("file");
    Messages messages;
    const std::string too_long = text("file") + std::string(1100, '\\');
    for (const std::string &path :
         {std::string("missing"), std::string("file\\x"), std::string("Q:\\file"), too_long})
        EXPECT_EQ(qzfile_rm_recursive(path.c_str()), -1) << path;
    EXPECT_EQ(messages.text(), "");
    EXPECT_TRUE(is_there("file"));
    EXPECT_EQ(qzfile_rm_recursive(nullptr), -1);
    EXPECT_EQ(messages.text(), "FATAL qzfile_rm_recursive: Null path.\n");
}
