#include "qzfile/scene.h"

using scene::taken;

TEST(Components, Join)
{
    const struct {
        const char *why, *dir, *component, *joined;
    } cases[] = {
        {"a separator is added",                 "a",     "b",     "a\\b"  },
        {"the directory has it",                 "a\\",   "b",     "a\\b"  },
        {"the component has it",                 "a",     "\\b",   "a\\b"  },
        {"both have it: the component's goes",   "a\\",   "\\b",   "a\\b"  },
        {"a slash is no separator here",         "a/",    "/b",    "a/\\/b"},
        {"no directory",                         "",      "b",     "b"     },
        {"null directory",                       nullptr, "\\b",   "\\b"   },
        {"no component",                         "a\\",   "",      "a\\"   },
        {"nothing at all",                       "",      nullptr, "(null)"},
        {"only the leading one of several goes", "a\\",   "\\\\b", "a\\\\b"},
    };

    for (const auto &c : cases)
        EXPECT_EQ(taken(qzfile_add_component(c.dir, c.component)), c.joined) << c.why;
}

TEST(Components, Split)
{
    const struct {
        const char *why, *path, *without_last, *last, *dir, *base;
    } cases[] = {
        {"the last separator decides",      "a\\b\\c",    "a\\b",    "c",      "a\\b",   "c"     },
        {"no separator",                    "abc",        "",        "abc",    "(null)", "abc"   },
        {"a slash is no separator here",    "a/b",        "",        "a/b",    "(null)", "a/b"   },
        {"trailing separator",              "a\\",        "a",       "",       "a",      "(null)"},
        {"a run of separators closes dir",  "a\\\\\\b",   "a\\\\",   "b",      "a",      "b"     },
        {"a root keeps one separator",      "\\f",        "",        "f",      "\\",     "f"     },
        {"a long root keeps one separator", "\\\\\\f",    "\\\\",    "f",      "\\",     "f"     },
        {"only parsing stops at a newline", "a\\b\nc\\d", "a\\b\nc", "d",      "a",      "b"     },
        {"nothing before the newline",      "\na\\b",     "\na",     "b",      "(null)", ""      },
        {"empty",                           "",           "(null)",  "(null)", "(null)", "(null)"},
        {"null",                            nullptr,      "(null)",  "(null)", "(null)", "(null)"},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(taken(qzfile_remove_component(c.path)), c.without_last);
        EXPECT_EQ(taken(qzfile_get_last_component(c.path)), c.last);
        char *dir = nullptr;
        char *base = nullptr;
        EXPECT_EQ(qzfile_parse_path(c.path, &dir, &base), 0);
        EXPECT_EQ(taken(dir), c.dir);
        EXPECT_EQ(taken(base), c.base);
    }
}

TEST(PathText, AbsoluteOnEverySystem)
{
    for (const char *path : {"C:", "c:x", "Z:\\x", "\\x", "/x", "\\\\server\\share"})
        EXPECT_EQ(qzfile_path_is_absolute(path), 0) << path;
    for (const char *path : {"", "x", "1:x", "\xC3:x", "x\\y", ":x", "~"})
        EXPECT_EQ(qzfile_path_is_absolute(path), -1) << path;
    EXPECT_EQ(qzfile_path_is_absolute(nullptr), -1);
}

TEST(PathText, TurnsSeparators)
{
    char path[] = "a/b\\c";
    EXPECT_EQ(qzfile_path_localize(path, 1), -1) << "a size below 2 holds no path";
    EXPECT_EQ(qzfile_path_localize(path, 2), 0) << "the text's end counts, not the size";
    EXPECT_STREQ(path, "a\\b\\c");
    EXPECT_EQ(qzfile_path_to_unix(path, sizeof path), 0);
    EXPECT_STREQ(path, "a/b/c");
    EXPECT_EQ(qzfile_path_to_unix(nullptr, 9), -1);
}
