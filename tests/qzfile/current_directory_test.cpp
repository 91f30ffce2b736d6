#include "qzfile/scene.h"

#include <cerrno>
#include <functional>

using scene::Messages;

using CurrentDirectory = scene::Scene;

namespace {

std::string current()
{
    return scene::given_by(qzfile_dir_current_get);
}

} // namespace

TEST_F(CurrentDirectory, SetsWithExpansionAndEitherSeparator)
{
    QDir().mkpath(QFile::decodeName("a b/\xC3\xA9"));
    set("QZ_TEST_A", "a b");
    EXPECT_EQ(qzfile_dir_current_set("$QZ_TEST_A\\\xC3\xA9"), 0);
    EXPECT_EQ(scene::with_slashes(current()), scene::with_slashes(text("a b/\xC3\xA9")));
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
    touch("x.dat");
    qzfile_path_set(root_.string().c_str());
    char *out = nullptr;
    FILE *stream = nullptr;
    if (!lose_working_directory()) {
        // This system keeps a directory that someone works in.
        EXPECT_EQ(qzfile_open("x.dat", &stream, "r"), 0);
        EXPECT_EQ(qzfile_close(stream), 0);
        return;
    }
    const std::string got = "FATAL qzfile_dir_current_get: current_path No such file or directory";

    const struct {
        const char *why;
        std::function<int()> call;
        std::string message;
    } cases[] = {
        {"get",           [&] { return qzfile_dir_current_get(&out); },       got},
        {"push",          [] { return qzfile_dir_current_push(); },           got},
        {"search",        [] { return qzfile_path_add_cwd(); },               got},
        {"open to read",  [&] { return qzfile_open("x.dat", &stream, "r"); }, got},
        {"open to write", [&] { return qzfile_open("x.dat", &stream, "w"); },
         "INFO QZFILE: unable to open file for reading: \"x.dat\"\n"             },
        {"remove",        [] { return qzfile_rm_recursive("x"); },            "" },
        {"make",          [] { return qzfile_mkdir("x", 0755); },
         "WARNING qzfile_mkdir: getcwd failed: x: No such file or directory\n"   },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        EXPECT_EQ(c.call(), -1);
        EXPECT_EQ(messages.text(), c.message);
    }
    EXPECT_EQ(errno, ENOENT) << "of the last";
}
