#include "qzfile/scene.h"

#include <gtest/gtest.h>

#include <cerrno>

using scene::Messages;
using scene::taken;

namespace {

class CurrentDirectory : public scene::Scene {
protected:
    static std::string current()
    {
        char *out = nullptr;
        qzfile_dir_current_get(&out);
        return taken(out);
    }
};

} // namespace

TEST_F(CurrentDirectory, SetsWithExpansionAndEitherSeparator)
{
    std::filesystem::create_directories(root_ / "a b/\xC3\xA9");
    set("QZ_TEST_A", "a b");
    EXPECT_EQ(qzfile_dir_current_set("$QZ_TEST_A\\\xC3\xA9"), 0);
    EXPECT_EQ(current(), text("a b/\xC3\xA9"));
    EXPECT_EQ(qzfile_dir_current_set("../.."), 0);
    EXPECT_EQ(current(), root_.string());
}

TEST_F(CurrentDirectory, RefusesWithoutAMessage)
{
    touch("file");
    Messages messages;
    for (const std::string &directory :
         {std::string("missing"), std::string("file"), std::string(""),
          std::string("$QZ_TEST_NONE"), std::string(1024, '.'), std::string("Q:\\nowhere")}) {
        EXPECT_EQ(qzfile_dir_current_set(directory.c_str()), -1) << directory;
        EXPECT_EQ(current(), root_.string());
    }
    EXPECT_EQ(qzfile_dir_current_set(nullptr), -1);
    EXPECT_EQ(messages.text(), "");
}

TEST_F(CurrentDirectory, Stack)
{
    touch("a/b/file");
    Messages messages;
    EXPECT_EQ(qzfile_dir_current_push(), 0);
    EXPECT_EQ(qzfile_dir_current_set("a"), 0);
    EXPECT_EQ(qzfile_dir_current_push(), 0);
    EXPECT_EQ(qzfile_dir_current_set("b"), 0);
    EXPECT_EQ(qzfile_dir_current_pop(), 0);
    EXPECT_EQ(current(), text("a"));
    EXPECT_EQ(qzfile_dir_current_push(), 0);
    EXPECT_EQ(qzfile_dir_current_set(".."), 0);
    std::filesystem::remove_all(root_ / "a");
    EXPECT_EQ(qzfile_dir_current_pop(), -1)
        << "the directory has gone; its entry goes all the same";
    EXPECT_EQ(qzfile_dir_current_pop(), 0);
    EXPECT_EQ(messages.text(), "");
    EXPECT_EQ(qzfile_dir_current_pop(), -1);
    EXPECT_EQ(messages.text(), "INFO QZFILE: attempt to pop current directory from empty stack\n");
}

TEST_F(CurrentDirectory, RemovedMeanwhile)
{
    std::filesystem::create_directory(root_ / "gone");
    std::filesystem::current_path(root_ / "gone");
    std::error_code refused;
    std::filesystem::remove(root_ / "gone", refused);
    if (refused)
        GTEST_SKIP() << "this system keeps a directory that someone works in";
    Messages messages;
    char *out = nullptr;
    EXPECT_EQ(qzfile_dir_current_get(&out), -1);
    EXPECT_EQ(qzfile_dir_current_push(), -1);
    EXPECT_EQ(qzfile_mkdir("x", 0755), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(qzfile_rm_recursive("x"), -1);
    const std::string got = "FATAL qzfile_dir_current_get: current_path No such file or directory";
    EXPECT_EQ(messages.text(),
              got + got + "WARNING qzfile_mkdir: getcwd failed: x: No such file or directory\n" +
                  got);
}
