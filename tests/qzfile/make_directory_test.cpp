#include "qzfile/scene.h"

#include <gtest/gtest.h>

#include <cerrno>

using scene::Messages;

using MakeDirectory = scene::Scene;

TEST_F(MakeDirectory, MakesWhatIsMissing)
{
    touch("file");

    const struct {
        const char *why;
        std::string path;
        const char *made;
    } cases[] = {
        {"one",                                 "a",                         "a"                        },
        {"there already",                       "a",                         "a"                        },
        {"parents, either separator",           "b/c\\d",                    "b/c/d"                    },
        {"absolute",                            text("e/f"),                 "e/f"                      },
        {"doubled and closing separators",      "g\\\\h//i\\",               "g/h/i"                    },
        {"through a parent's name",             "a\\..\\j/k",                "j/k"                      },
        {"outside ASCII, with blanks",          "\xC3\xA9 \xE2\x82\xAC/x y", "\xC3\xA9 \xE2\x82\xAC/x y"},
        {"what is there already may be a file", "file",                      "file"                     },
    };

    Messages messages;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(qzfile_mkdir(c.path.c_str(), 0), 0);
        EXPECT_TRUE(is_there(c.made));
    }
    EXPECT_EQ(messages.text(), "");
}

TEST_F(MakeDirectory, SaysWhyNotAndKeepsErrno)
{
    touch("file");
    const std::string here = root_.string() + "\\";
    const std::string long_name(300, 'n');

    const struct {
        const char *why;
        std::string path;
        int reason;
        std::string shown;
        const char *text;
    } cases[] = {
        {"a file stands in the way", "file/x/y",         ENOTDIR,      "file\\x\\y",        "Not a directory"},
        {"a name too long",          "new/" + long_name, ENAMETOOLONG, "new\\" + long_name,
         "File name too long"                                                                                },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        errno = 0;
        EXPECT_EQ(qzfile_mkdir(c.path.c_str(), 0755), -1);
        EXPECT_EQ(errno, c.reason);
        std::string shown = here + c.shown;
        for (char &letter : shown)
            letter = letter == '/' ? '\\' : letter;
        EXPECT_EQ(messages.text(), "WARNING qzfile_mkdir: qzfile_mkdir_recursive failed: " + shown +
                                       " : " + c.text + "\n");
    }
    Messages messages;
    EXPECT_EQ(qzfile_mkdir(nullptr, 0), -1);
    EXPECT_EQ(messages.text(), "WARNING qzfile_mkdir: Null path\n");
}

TEST_F(MakeDirectory, GoesDownToTheLimit)
{
    std::string path = root_.string();
    while (path.size() < 1500)
        path += "\\" + std::string(99, 'd');
    Messages messages;
    EXPECT_EQ(qzfile_mkdir(path.c_str(), 0755), -1) << "a part of it is not all of it";
    EXPECT_EQ(errno, ENAMETOOLONG);
    EXPECT_NE(messages.text(), "");
}

TEST_F(MakeDirectory, ADriveThatIsNotThereIsNotLookedForHere)
{
    Messages messages;
    EXPECT_EQ(qzfile_mkdir("Q:\\a\\b", 0755), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_TRUE(std::filesystem::is_empty(root_));
}
