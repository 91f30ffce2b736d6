#include "qzfile/scene.h"

#include <cerrno>

using scene::Messages;

using MakeDirectory = scene::Scene;

TEST_F(MakeDirectory, MakesWhatIsMissing)
{
    touch("file");
    const std::string foreign = "\xC3\xA9 \xE2\x82\xAC/x y";

    const struct {
        const char *why;
        std::string path;
        const char *made;
    } cases[] = {
        {"one",                                 "a",           "a"            },
        {"there already",                       "a",           "a"            },
        {"parents, either separator",           "b/c\\d",      "b/c/d"        },
        {"absolute",                            text("e/f"),   "e/f"          },
        {"doubled and closing separators",      "g\\\\h//i\\", "g/h/i"        },
        {"through a parent's name",             "a\\..\\j/k",  "j/k"          },
        {"outside ASCII, with blanks",          foreign,       foreign.c_str()},
        {"what is there already may be a file", "file",        "file"         },
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
    std::string here = root_.string() + "\\";
    qzfile_path_localize(here.data(), static_cast<int>(here.size()));
    const std::string long_name(300, 'n');
    std::string deep = here + "d";
    while (deep.size() < 1500)
        deep += "\\" + std::string(99, 'd');
    const std::string drive = "Q:\\a\\b";
    const std::string too_long = here + "new\\" + long_name;
    const char *const long_text = "File name too long";
    const char *const none_text = "No such file or directory";

    const struct {
        const char *why;
        std::string path;
        int reason;
        std::string shown;
        const char *text;
    } cases[] = {
        {"in the way", "file/x/y",         ENOTDIR,      here + "file\\x\\y", "Not a directory"},
        {"long name",  "new/" + long_name, ENAMETOOLONG, too_long,            long_text        },
        {"long path",  deep,               ENAMETOOLONG, deep,                long_text        },
        {"a drive",    drive,              ENOENT,       drive,               none_text        },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        errno = 0;
        EXPECT_EQ(qzfile_mkdir(c.path.c_str(), 0755), -1);
        EXPECT_EQ(errno, c.reason);
        const std::string said = "WARNING qzfile_mkdir: qzfile_mkdir_recursive failed: " + c.shown +
                                 " : " + c.text + "\n";
        EXPECT_EQ(messages.text(), said.substr(0, 8 + 1023)) << "a long message is cut";
    }
    Messages messages;
    EXPECT_EQ(qzfile_mkdir(nullptr, 0), -1);
    EXPECT_EQ(messages.text(), "WARNING qzfile_mkdir: Null path\n");
}
