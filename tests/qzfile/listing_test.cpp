#include "qzfile/scene.h"

#include <climits>
#include <set>

using scene::Messages;

namespace {

using Names = std::set<std::string>;

class Listing : public scene::Scene {
protected:
    static int open(const std::string &path)
    {
        int handle = -5;
        EXPECT_EQ(qzfile_open_directory(&handle, path.c_str()), 0);
        return handle;
    }

    static Names names(int handle)
    {
        Names all;
        char name[257] = {};
        while (qzfile_get_next_file(handle, name, 256) == 0)
            all.insert(name);
        return all;
    }
};

} // namespace

TEST_F(Listing, FiltersNames)
{
    for (const char *name : {"d/abc1", "d/xabc", "d/abc2", "d/.hidden"})
        touch(name);

    const struct {
        const char *why, *pattern;
        Names names;
    } cases[] = {
        {"anchored",                     "^abc", {"abc1", "abc2"}                   },
        {"anywhere",                     "abc",  {"abc1", "abc2", "xabc"}           },
        {"an empty one changes nothing", "",     {"abc1", "abc2", "xabc", ".hidden"}},
        {"a dot matches no . and no ..", "^\\.", {".hidden"}                        },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        const int handle = open(text("d"));
        EXPECT_EQ(qzfile_set_dir_filter(handle, c.pattern), 0);
        EXPECT_EQ(names(handle), c.names);
        char name[8];
        EXPECT_EQ(qzfile_get_next_file(handle, name, 8), -2) << "the end stays the end";
        EXPECT_EQ(qzfile_close_directory(handle), 0);
    }
    const int handle = open("d");
    Messages messages;
    EXPECT_EQ(qzfile_set_dir_filter(handle, "^abc"), 0);
    EXPECT_EQ(qzfile_set_dir_filter(handle, "(a"), -1);
    EXPECT_EQ(messages.text(), "FATAL Error in regular expression: unmatched () \n"
                               "INFO QZFILE: can not compile filter -> (a\n");
    EXPECT_EQ(names(handle), (Names{"abc1", "abc2"})) << "the filter before it stays";
    qzfile_close_directory(handle);
}

TEST_F(Listing, CutsNothingAndEndsWhatHasRoom)
{
    touch("d/12345");
    char name[8] = "#######";

    const struct {
        int size, result;
        const char *left;
    } cases[] = {
        {4,  -1, "#######"},
        {5,  0,  "12345##"},
        {6,  0,  "12345"  },
        {-1, -1, "12345"  }
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.size);
        const int handle = open("d");
        EXPECT_EQ(qzfile_get_next_file(handle, name, c.size), c.result);
        EXPECT_STREQ(name, c.left);
        EXPECT_EQ(qzfile_get_next_file(handle, name, 8), -2) << "a name that did not fit is passed";
        qzfile_close_directory(handle);
    }
}

TEST_F(Listing, Handles)
{
    const int first = open(".");
    const int second = open(".");
    const int third = open(".");
    qzfile_close_directory(first);
    qzfile_close_directory(second);
    EXPECT_EQ(open("."), second) << "the highest free number comes first";
    EXPECT_EQ(open("."), first);
    EXPECT_EQ(open("."), third + 1);
    for (int handle = first; handle <= third + 1; ++handle)
        EXPECT_EQ(qzfile_close_directory(handle), 0);
    char name[8];
    for (int handle : {first, -1, third + 2, INT_MAX}) {
        EXPECT_EQ(qzfile_close_directory(handle), -1);
        EXPECT_EQ(qzfile_set_dir_filter(handle, "x"), -1);
        EXPECT_EQ(qzfile_get_next_file(handle, name, 8), -2);
    }
}

TEST_F(Listing, SaysOnStandardOutputWhatDoesNotOpen)
{
    touch("file");
    for (const std::string path : {"missing", "file", "", "Q:\\x"}) {
        int handle = 7;
        Messages messages;
        testing::internal::CaptureStdout();
        EXPECT_EQ(qzfile_open_directory(&handle, path.c_str()), -1);
        EXPECT_EQ(testing::internal::GetCapturedStdout(),
                  "opendir: Unable to open \"" + path + "\"\n");
        EXPECT_EQ(handle, -1);
        EXPECT_EQ(messages.text(), "");
    }
}
