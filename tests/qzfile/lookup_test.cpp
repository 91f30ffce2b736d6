#include "qzfile/scene.h"

using scene::Messages;

namespace {

constexpr int kFile = 0;
constexpr int kDirectory = 1;

class Lookup : public scene::Scene {
protected:
    Lookup()
    {
        touch("x.dat");
        touch("one/only.dat");
        touch("one/both.dat");
        touch("one/sub/deep.dat");
        touch("two/both.dat");
        touch("two/sub.dat/x");
        unset("QZ_TEST_NONE");
        qzfile_path_set("$QZ_TEST_NONE;.;missing;one\\;two");
    }

    static std::string found(const std::string &name, int type)
    {
        const std::string path = scene::given_by(qzfile_find, name.c_str(), type);
        EXPECT_EQ(qzfile_exists(name.c_str(), type), path == "(null)" ? -1 : 0);
        return path;
    }
};

} // namespace

TEST_F(Lookup, ByRelativeName)
{
    const struct {
        const char *why, *name;
        int type;
        const char *path;
    } cases[] = {
        {"what stands for nothing is skipped", "x.dat",         kFile,      ".\\x.dat"            },
        {"the separator comes always",         "only.dat",      kFile,      "one\\\\only.dat"     },
        {"the first directory wins",           "both.dat",      kFile,      "one\\\\both.dat"     },
        {"with directories, either separator", "sub/deep.dat",  kFile,      "one\\\\sub/deep.dat" },
        {"with directories",                   "sub\\deep.dat", kFile,      "one\\\\sub\\deep.dat"},
        {"a directory is no file",             "sub.dat",       kFile,      "(null)"              },
        {"a file is no directory",             "x.dat",         kDirectory, "(null)"              },
        {"a directory",                        "sub.dat",       kDirectory, "two\\sub.dat"        },
        {"the directory itself",               "",              kDirectory, ".\\"                 },
        {"neither",                            "none.dat",      kFile,      "(null)"              },
        {"there is no such type",              "x.dat",         2,          "(null)"              },
        {"nor such a one",                     "x.dat",         -1,         "(null)"              },
        {"a drive names nothing here",         "Q:x.dat",       kFile,      "(null)"              },
    };

    Messages messages;
    for (const auto &c : cases)
        EXPECT_EQ(found(c.name, c.type), c.path) << c.why;
    EXPECT_EQ(messages.text(), "");
}

TEST_F(Lookup, ByAbsoluteNameWithoutTheList)
{
    qzfile_path_clear();
    Messages messages;
    EXPECT_EQ(found(text("x.dat"), kFile), text("x.dat"));
    EXPECT_EQ(found(text("one"), kDirectory), text("one"));
    EXPECT_EQ(found(text("one"), kFile), "(null)");
    EXPECT_EQ(found("\\\\server\\share\\file", kFile), "(null)");
    EXPECT_EQ(found("Q:\\file", kFile), "(null)");
    EXPECT_EQ(messages.text(), "");
    EXPECT_EQ(qzfile_exists("x.dat", kFile), -1);
    EXPECT_EQ(qzfile_exists(nullptr, kFile), -1);
    EXPECT_EQ(messages.text(), "FATAL QZFILE: there are no directories in the search path\n");
}

TEST_F(Lookup, OfAPathItself)
{
    EXPECT_EQ(qzfile_file_exists("one\\only.dat", kFile), 0);
    EXPECT_EQ(qzfile_file_exists("one/sub", kDirectory), 0);
    EXPECT_EQ(qzfile_file_exists("one/sub", kFile), -1);
    EXPECT_EQ(qzfile_file_exists("only.dat", kFile), -1) << "nothing is searched";
    EXPECT_EQ(qzfile_file_exists("", kDirectory), -1);
    EXPECT_EQ(qzfile_file_exists(nullptr, kFile), -1);
}

TEST_F(Lookup, TakesALinkForWhatItNames)
{
    if (!link("one/sub", "to_directory"))
        GTEST_SKIP() << "no right to make links here";
    link("x.dat", "to_file");
    link("nowhere", "to_nothing");
    link("loop", "loop");
    EXPECT_EQ(found("to_directory", kDirectory), ".\\to_directory");
    EXPECT_EQ(found("to_file", kFile), ".\\to_file");
    EXPECT_EQ(found("to_nothing", kFile), "(null)");
    EXPECT_EQ(found("loop", kFile), "(null)");
}
