#include "qzfile/qzfile/qzfile/open_files.h"
#include "qzfile/scene.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

using scene::Messages;

namespace {

class OpenFiles : public scene::Scene {
protected:
    OpenFiles()
    {
        touch("x.dat");
        touch("data/y.dat");
        qzfile_path_set(".;data");
    }

    ~OpenFiles() override
    {
        for (FILE *stream : opened_)
            qzfile_close(stream);
    }

    /// Opens a file that the test closes, or else the fixture.
    FILE *open(const std::string &name, const char *mode)
    {
        FILE *stream = nullptr;
        const int status = qzfile_open(name.c_str(), &stream, mode);
        EXPECT_EQ(status, stream ? 0 : -1);
        if (stream)
            opened_.push_back(stream);
        return stream;
    }

    static std::string path_of(FILE *stream)
    {
        char path[2048];
        return qzfile_file_get_path(stream, path, sizeof path) == 0 ? path : "(none)";
    }

private:
    std::vector<FILE *> opened_;
};

std::string with_backslashes(std::string path)
{
    qzfile_path_localize(path.data(), static_cast<int>(path.size()));
    return path;
}

} // namespace

TEST_F(OpenFiles, KnowsWhereAFileLies)
{
    EXPECT_EQ(path_of(open("x.dat", "r")), ".\\x.dat");
    EXPECT_EQ(path_of(open("y.dat", "r+b")), "data\\y.dat");
    EXPECT_EQ(path_of(open("new.dat", "w")), root_.string() + "\\new.dat");
    EXPECT_EQ(path_of(open("data\\new.dat", "a")), root_.string() + "\\data\\new.dat");
    EXPECT_EQ(path_of(open(text("data/y.dat"), "rb")), with_backslashes(text("data/y.dat")));
    EXPECT_EQ(path_of(open(with_backslashes(text("data//n.dat")), "w")),
              with_backslashes(text("data/n.dat")));
    EXPECT_TRUE(is_there("data/new.dat"));
    EXPECT_TRUE(is_there("data/n.dat"));
}

TEST_F(OpenFiles, WritesInTheWorkingDirectoryAndNotOnTheSearchPath)
{
    qzfile_path_set("data");
    FILE *stream = open("y.dat", "w");
    std::fputs("mine", stream);
    EXPECT_EQ(qzfile_close(stream), 0);
    EXPECT_EQ(std::filesystem::file_size(root_ / "y.dat"), 4u);
    EXPECT_EQ(std::filesystem::file_size(root_ / "data/y.dat"), 0u);
}

struct RefusedCase {
    const char *why;
    const char *name;
    const char *mode;
    const char *message;
};

const RefusedCase kRefusedCases[] = {
    {"not on the path",            "none.dat",    "r",  "file not found in search path: \"none.dat\""},
    {"a directory on the path",    "data",        "r",  "file not found in search path: \"data\""    },
    {"no name",                    "",            "rb", "file not found in search path: \"\""        },
    {"nothing there",              "/none/a.dat", "rb", "unable to open file (rb): \"/none/a.dat\""  },
    {"a drive names nothing here", "Q:\\a",       "r+", "unable to open file (r+): \"Q:\\a\""        },
    {"a directory is no file",     "/",           "r",  "unable to open file (r): \"/\""             },
    {"no directory to write in",   "none/a.dat",  "w",
     "unable to open file for reading: \"none/a.dat\""                                               },
    {"a directory in the way",     "data",        "ab", "unable to open file for reading: \"data\""  },
    {"no mode",                    "x.dat",       "",   "unable to open file for reading: \"x.dat\"" },
};

TEST_F(OpenFiles, SaysWhatCannotBeOpened)
{
    for (const RefusedCase &c : kRefusedCases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        FILE *stream = stdin;
        EXPECT_EQ(qzfile_open(c.name, &stream, c.mode), -1);
        EXPECT_EQ(stream, nullptr);
        EXPECT_EQ(messages.text(), "INFO QZFILE: " + std::string(c.message) + "\n");
    }
    EXPECT_EQ(std::filesystem::current_path(), root_);
}

TEST_F(OpenFiles, RefusesWhatTheTableCannotHoldBeforeItIsOpened)
{
    const std::string longest = "data/" + std::string(250, 'n');
    EXPECT_EQ(path_of(open(longest, "w")), root_.string() + "\\" + longest);
    const std::string longer = "data//" + std::string(250, 'n');
    std::ofstream(root_ / longer) << "kept";
    std::string deep = text("d");
    while (deep.size() <= 1023)
        deep += "/../d";
    std::filesystem::create_directory(root_ / "d");
    touch("d/z.dat");
    Messages messages;
    for (const char *mode : {"r", "w"}) {
        EXPECT_EQ(open(longer, mode), nullptr);
        EXPECT_EQ(open(deep + "/z.dat", mode), nullptr);
    }
    EXPECT_EQ(std::filesystem::file_size(root_ / longer), 4u);
    const std::string said = "INFO QZFILE: file name or directory too long: \"";
    EXPECT_EQ(messages.text().substr(0, said.size() + longer.size()), said + longer);
}

TEST_F(OpenFiles, CutsAModeThatIsTooLong)
{
    FILE *stream = open("x.dat", "rbbbbbbbbbbbbbbbbbbb");
    const qz::file::OpenFile *file = qz::file::open_files().find(stream);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->mode, "rbbbbbbbbbbbbbb");
}

TEST_F(OpenFiles, HoldsAHundred)
{
    std::vector<FILE *> streams;
    for (int i = 0; i < 100; ++i)
        streams.push_back(open(i % 2 ? "x.dat" : "y.dat", "r"));
    Messages messages;
    EXPECT_EQ(open("x.dat", "r"), nullptr);
    EXPECT_EQ(open("new.dat", "w"), nullptr);
    EXPECT_FALSE(is_there("new.dat"));
    const std::string said = "FATAL QZFILE: attempt to have more than 100 files open at once\n";
    EXPECT_EQ(messages.text(), said + said);
    EXPECT_EQ(qzfile_close(streams[50]), 0);
    EXPECT_EQ(path_of(streams[49]), ".\\x.dat");
    EXPECT_EQ(path_of(streams[51]), ".\\x.dat");
    EXPECT_EQ(path_of(streams[99]), ".\\x.dat");
    EXPECT_NE(open("y.dat", "r"), nullptr);
}

TEST_F(OpenFiles, LeavesTheStreamsOfOthersAlone)
{
    Messages messages;
    FILE *other = std::fopen("x.dat", "r");
    EXPECT_EQ(qzfile_close(other), -1);
    EXPECT_EQ(messages.text(), "");
    EXPECT_EQ(std::fgetc(other), EOF);
    EXPECT_EQ(std::ferror(other), 0) << "it is still open";
    EXPECT_EQ(path_of(other), "(none)");
    EXPECT_EQ(messages.text(), "FATAL QZFILE: file pointer does not match any open files\n");
    std::fclose(other);
}

TEST_F(OpenFiles, TellsAPathOnlyWhereItFits)
{
    FILE *stream = open("y.dat", "r");
    Messages messages;
    char path[] = "before----------";
    EXPECT_EQ(qzfile_file_get_path(stream, path, 10), -1);
    EXPECT_STREQ(path, "");
    EXPECT_EQ(qzfile_file_get_path(stream, path, 11), 0);
    EXPECT_STREQ(path, "data\\y.dat");
    EXPECT_EQ(qzfile_file_get_path(stream, path, 0), -1);
    EXPECT_STREQ(path, "data\\y.dat") << "there is no room for an empty text either";
    EXPECT_EQ(qzfile_file_get_path(nullptr, path, sizeof path), -1);
    EXPECT_EQ(qzfile_close(nullptr), -1);
    const std::string small = "FATAL QZFILE: buffer too small for intended use\n";
    const std::string null = "FATAL QZFILE: null file pointer\n";
    EXPECT_EQ(messages.text(), small + small + null + null);
}

TEST_F(OpenFiles, WithoutAWorkingDirectory)
{
    qzfile_path_set(root_.string().c_str());
    std::filesystem::create_directory(root_ / "gone");
    std::filesystem::current_path(root_ / "gone");
    std::error_code refused;
    std::filesystem::remove(root_ / "gone", refused);
    if (refused)
        GTEST_SKIP() << "this system keeps a directory that someone works in";
    Messages messages;
    EXPECT_EQ(open("x.dat", "r"), nullptr);
    EXPECT_EQ(open("x.dat", "w"), nullptr);
    EXPECT_EQ(messages.text(),
              "FATAL qzfile_dir_current_get: current_path No such file or directory"
              "INFO QZFILE: unable to open file for reading: \"x.dat\"\n");
}

// A hundred at once, a hundred times, from deep in a tree: under the sanitizers and under valgrind
// this shows every stream and every byte that is left behind.
TEST_F(OpenFiles, LeavesNothingBehind)
{
    std::filesystem::path deep = root_;
    for (int level = 0; level < 50; ++level)
        deep /= "level";
    std::filesystem::create_directories(deep);
    std::filesystem::current_path(deep);
    qzfile_path_set(("missing:" + root_.string() + ":.").c_str());
    for (int round = 0; round < 100; ++round) {
        std::vector<FILE *> streams(100);
        for (std::size_t i = 0; i < streams.size(); ++i)
            ASSERT_EQ(qzfile_open(i % 2 ? "x.dat" : "own.dat", &streams[i], i % 2 ? "r" : "w"), 0);
        for (FILE *stream : streams)
            ASSERT_EQ(qzfile_close(stream), 0);
    }
    FILE *first = std::fopen("own.dat", "r");
    ASSERT_NE(first, nullptr);
    std::fclose(first);
}
