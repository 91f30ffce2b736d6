#include "qzfile/scene.h"

#include <cstring>
#include <vector>

using scene::given_by;
using scene::Messages;
using scene::taken;

namespace {

class Expansion : public scene::Scene {
protected:
    Expansion()
    {
        set("QZ_TEST_A", "one");
        set("QZ_TEST_LOOP", "$QZ_TEST_A~");
        unset("QZ_TEST_UNSET");
        home_ = home();
    }

    std::string home_;
};

} // namespace

TEST_F(Expansion, Syntax)
{
    const struct {
        const char *why;
        std::string text, expansion;
    } cases[] = {
        {"ordinary text stays, separators too", "a/b\\c d",              "a/b\\c d"     },
        {"variables",                           "$QZ_TEST_A/$QZ_TEST_A", "one/one"      },
        {"a name ends where its letters end",   "$QZ_TEST_A-x",          "one-x"        },
        {"an unset one stands for nothing",     "$QZ_TEST_UNSET/x",      "/x"           },
        {"a value is not expanded again",       "$QZ_TEST_LOOP",         "$QZ_TEST_A~"  },
        {"no brace form",                       "${QZ_TEST_A}",          "${QZ_TEST_A}" },
        {"no percent form",                     "%QZ_TEST_A%",           "%QZ_TEST_A%"  },
        {"no name: the sign stays",             "$-$$/$",                "$-$$/$"       },
        {"a letter outside ASCII ends a name",  "$QZ_TEST_A\xC3\xA9",    "one\xC3\xA9"  },
        {"the user's home",                     "~/data",                home_ + "/data"},
        {"the home alone",                      "~",                     home_          },
        {"a backslash ends the name too",       "~\\$QZ_TEST_A",         home_ + "\\one"},
        {"a tilde within is a character",       "a~/b",                  "a~/b"         },
        {"its name must be whole",              "$USERDATA_x",           ""             },
        {"empty",                               "",                      ""             },
    };

    for (const auto &c : cases)
        EXPECT_EQ(given_by(qzfile_dir_expand, c.text.c_str()), c.expansion) << c.why;
}

TEST_F(Expansion, ReportsAnUnknownUserAndGoesOn)
{
    const std::string unknown = "WARNING qzfile_dir_user_home: Unable to get home directory for "
                                "user 'qfile_nobody'\n";

    const struct {
        const char *why, *text;
        int result;
        std::string expansion;
    } cases[] = {
        {"the rest is expanded",         "~qfile_nobody/x",          -1, "/x"              },
        {"a variable changes no status", "~qfile_nobody/$QZ_TEST_A", -1, "/one"            },
        {"a later directory clears it",  "~qfile_nobody\\$APPDATA",  0,  "\\" + text("app")},
    };

    char *out = nullptr;
    set("HALCYRA_APPDATA_OVERRIDE", text("app"));
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        EXPECT_EQ(qzfile_dir_expand(c.text, &out), c.result);
        EXPECT_EQ(taken(out), c.expansion);
        EXPECT_EQ(messages.text(), unknown);
    }
    unset("HALCYRA_APPDATA_OVERRIDE");
    Messages messages;
    const char *const no_name = nullptr;
    EXPECT_EQ(given_by(qzfile_dir_user_home, no_name), "(null)");
    EXPECT_EQ(messages.text(), "WARNING qzfile_dir_user_home: null user name given\n");
}

TEST_F(Expansion, InPlace)
{
    const std::string longest(1024, 'x');

    const struct {
        const char *why;
        std::string text;
        int size, result;
        std::string left;
    } cases[] = {
        {"its end comes behind size", "a$QZ_TEST_A/",   5,    0,  "aone/"      },
        {"what fits is left",         "a$QZ_TEST_A/",   4,    -1, "aone"       },
        {"cut within a value",        "a$QZ_TEST_A",    2,    -1, "ao"         },
        {"an expansion to nothing",   "$QZ_TEST_UNSET", 1,    0,  ""           },
        {"no room",                   "a",              0,    -1, "a"          },
        {"nothing to expand",         "",               9,    -1, ""           },
        {"the longest text",          longest,          1024, 0,  longest      },
        {"longer than the copy",      longest + "x",    2000, -1, longest + "x"},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        std::vector<char> buffer(std::max<std::size_t>(c.text.size(), c.size) + 2, '#');
        std::strcpy(buffer.data(), c.text.c_str());
        EXPECT_EQ(qzfile_dir_expand_buffer(buffer.data(), c.size), c.result);
        EXPECT_EQ(std::string(buffer.data()), c.left);
        EXPECT_EQ(buffer.back(), '#') << "nothing behind the end is touched";
    }
    EXPECT_EQ(qzfile_dir_expand_buffer(nullptr, 9), -1);
}
