#include "qzfile/qzfile/qzfile/open_files.h"
#include "qzfile/scene.h"

#include <cstdio>
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

    /// Opens a file, which the fixture closes unless the test does.
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

} // namespace

TEST_F(OpenFiles, KnowsWhereAFileLies)
{
    const std::string here = root_.string();
    const std::string slashes = here + "/data/y.dat";
    const std::string unsplit = slashes.find('\\') == std::string::npos ? "\\" + slashes : slashes;
    const std::string longest = "data\\" + std::string(251, 'n');

    const struct {
        const char *why;
        std::string name;
        const char *mode;
        std::string path;
    } cases[] = {
        {"in the working directory",      "x.dat",                 "r",   ".\\x.dat"              },
        {"in a directory of the path",    "y.dat",                 "r+b", "data\\y.dat"           },
        {"made in the working directory", "new.dat",               "w",   here + "\\new.dat"      },
        {"made below it",                 "data\\new.dat",         "a",   here + "\\data\\new.dat"},
        {"absolute",                      here + "/data\\\\n.dat", "w",   here + "/data\\n.dat"   },
        {"a slash does not split a name", slashes,                 "rb",  unsplit                 },
        {"as long as names can be",       longest,                 "w",   here + "\\" + longest   },
    };

    for (const auto &c : cases)
        EXPECT_EQ(path_of(open(c.name, c.mode)), c.path) << c.why;
    EXPECT_TRUE(is_there("data/new.dat"));
    EXPECT_TRUE(is_there("data/n.dat"));
    FILE *stream = open("x.dat", "rbbbbbbbbbbbbbbbbbbb");
    EXPECT_EQ(qz::file::open_files().find(stream)->mode, "rbbbbbbbbbbbbbb") << "cut";
}

TEST_F(OpenFiles, WritesInTheWorkingDirectoryAndNotOnTheSearchPath)
{
    qzfile_path_set("data");
    FILE *stream = open("y.dat", "w");
    std::fputs("mine", stream);
    EXPECT_EQ(qzfile_close(stream), 0);
    EXPECT_EQ(read("y.dat"), "mine") << "it is closed";
    EXPECT_EQ(read("data/y.dat"), "");
}

TEST_F(OpenFiles, SaysWhatCannotBeOpened)
{
    const struct {
        const char *why, *name, *mode, *message;
    } cases[] = {
        {"not there",   "none.dat",    "r",  "file not found in search path: \"none.dat\""    },
        {"directory",   "data",        "r",  "file not found in search path: \"data\""        },
        {"no name",     "",            "rb", "file not found in search path: \"\""            },
        {"nothing",     "/none/a.dat", "rb", "unable to open file (rb): \"/none/a.dat\""      },
        {"a drive",     "Q:\\a",       "r+", "unable to open file (r+): \"Q:\\a\""            },
        {"a directory", "/",           "r",  "unable to open file (r): \"/\""                 },
        {"no place",    "none/a.dat",  "w",  "unable to open file for reading: \"none/a.dat\""},
        {"in the way",  "data",        "ab", "unable to open file for reading: \"data\""      },
        {"no mode",     "x.dat",       "",   "unable to open file for reading: \"x.dat\""     },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        FILE *stream = stdin;
        EXPECT_EQ(qzfile_open(c.name, &stream, c.mode), -1);
        EXPECT_EQ(stream, nullptr);
        EXPECT_EQ(messages.text(), "INFO QZFILE: " + std::string(c.message) + "\n");
    }
    EXPECT_EQ(std::filesystem::current_path(), root_);
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
