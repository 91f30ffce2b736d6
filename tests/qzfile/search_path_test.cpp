#include "errors/message_sink.h"
#include "qzfile/qzfile/qzfile/search_list.h"
#include "qzfile/qzfile/qzfile/search_path.h"
#include "qzfile/scene.h"

using scene::Messages;

namespace {

std::string path_text()
{
    return scene::given_by(qzfile_path_get);
}

template <typename Print> std::string printed(Print print)
{
    const MessageSink sink;
    print(sink.stream());
    return sink.text();
}

class SearchPath : public scene::Scene {
protected:
    SearchPath() { qzfile_path_clear(); }
};

} // namespace

TEST(SearchList, Splits)
{
    const struct {
        const char *why, *list;
        const char *entries; ///< each with a '|' behind it
    } cases[] = {
        {"both separators, with drives",      "C:\\a;D:\\b",    "C:\\a|D:\\b|"   },
        {"a slash makes no drive",            "C:/a",           "C|/a|"          },
        {"a drive by its other separator",    "C;\\a",          "C:\\a|"         },
        {"the separator itself must be next", "C::\\a",         "C|\\a|"         },
        {"a drive is one character",          "xC:\\a",         "xC|\\a|"        },
        {"a drive is an ASCII letter",        "1:\\a:\xE9:\\b", "1|\\a|\xE9|\\b|"},
        {"a drive after a drive",             "C:\\:D:\\",      "C:\\|D:\\|"     },
        {"a letter before a drive",           "b:C:\\a",        "b|C:\\a|"       },
        {"a letter at the end",               "a;C:",           "a|C|"           },
        {"doubled and outer separators",      ":;a::b;;c;",     "a|b|c|"         },
        {"nothing but separators",            ":;:",            ""               },
        {"a server's name",                   "\\\\s\\d:e",     "\\\\s\\d|e|"    },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        std::string entries;
        for (const std::string &entry : qz::file::split_search_list(c.list))
            entries += entry + "|";
        EXPECT_EQ(entries, c.entries);
    }
}

TEST_F(SearchPath, OfAFreshProcess)
{
    set("PLINDRA_EXEC", "/opt/plindra/bin/linux");
    std::string texts;
    const qz::file::SearchPath fresh;
    for (const qz::file::SearchDirectory &directory : fresh.directories())
        texts += directory.text + "|";
    std::string user = home();
    qzfile_path_localize(user.data(), static_cast<int>(user.size()));
    const std::string data = "\\opt\\plindra\\bin\\linux\\..\\..\\data";
    EXPECT_EQ(texts, ".|" + user + "\\Halcyra\\plindra|" + data + "|" + data + "\\res|" + data +
                         "\\xres|");
}

TEST_F(SearchPath, ExpandsThenDropsWhatIsThere)
{
    set("QZ_TEST_A", "x/y");
    EXPECT_EQ(qzfile_path_add("$QZ_TEST_A;x\\y:z:X\\y"), 0);
    EXPECT_EQ(path_text(), "x\\y:z:X\\y");
    EXPECT_EQ(qzfile_path_add("z;x/y"), 0) << "all of it is there: no failure";
    EXPECT_EQ(path_text(), "x\\y:z:X\\y");
    EXPECT_EQ(qzfile_path_set("$QZ_TEST_NONE;b;$QZ_TEST_NONE"), 0);
    EXPECT_EQ(path_text(), ":b") << "what stands for nothing keeps its place";
    EXPECT_EQ(qzfile_path_set("C:\\a;D:\\b"), 0);
    const std::string with_drives = path_text();
    EXPECT_EQ(qzfile_path_set(with_drives.c_str()), 0);
    EXPECT_EQ(path_text(), "C:\\a:D:\\b") << "the text of a path makes the path";
}

TEST_F(SearchPath, RefusesAnEmptyList)
{
    qzfile_path_add("a");
    Messages messages;
    EXPECT_EQ(qzfile_path_add(""), -1);
    EXPECT_EQ(qzfile_path_add(nullptr), -1);
    EXPECT_EQ(path_text(), "a");
    EXPECT_EQ(qzfile_path_set(""), -1);
    EXPECT_EQ(path_text(), "");
    const std::string said = "WARNING QZFILE: empty string was given as a search path\n";
    EXPECT_EQ(messages.text(), said + said + said);
}

TEST_F(SearchPath, TakesDirectoriesOf1024Bytes)
{
    const std::string longest(1024, 'd');
    set("QZ_TEST_LONG", longest);
    Messages messages;
    EXPECT_EQ(qzfile_path_add(("a:" + longest + ":$QZ_TEST_LONG").c_str()), 0);
    EXPECT_EQ(path_text(), "a:" + longest);
    EXPECT_EQ(messages.text(), "");
    // Longer as it is written, and longer as it is expanded.
    EXPECT_EQ(qzfile_path_set((longest + "e:b:$QZ_TEST_LONG/:c").c_str()), 0);
    EXPECT_EQ(path_text(), "b:c");
    const std::string said =
        "WARNING QZFILE: a directory of the search path is longer than 1024 bytes: \"";
    EXPECT_EQ(messages.text(), said + std::string(200, 'd') + "\"\n" + said + "$QZ_TEST_LONG/\"\n");
}

TEST_F(SearchPath, SaysWhereADirectoryComesFrom)
{
    qzfile_path_add("C:\\a");
    EXPECT_EQ(qzfile_path_add_cwd(), 0);
    EXPECT_EQ(qzfile_path_add_home(), 0);
    EXPECT_EQ(qzfile_path_add_cwd(), 0) << "it is there";
    const std::string cwd = "item:2  cwd:1 home:0  dir:" + root_.string() + "\n";
    const std::string user = "item:3  cwd:0 home:1  dir:" + home() + "\n";
    EXPECT_EQ(printed(qzfile_path_print),
              "QZFILE search path:  id = 0\nitem:1  cwd:0 home:0  dir:C:\\a\n" + cwd + user);
    EXPECT_EQ(qzfile_path_print(nullptr), -1);
    EXPECT_EQ(printed([](FILE *stream) { qz::file::print(nullptr, stream); }),
              "** null object passed to print_search_path **\n");
}

TEST(Constants, ByNumber)
{
    EXPECT_STREQ(qzfile_get_constant(0), "\\");
    EXPECT_STREQ(qzfile_get_constant(1), ":");
    // Each template is a list in which every variable belongs to a product or names a directory.
    for (int index = 2; index <= 9; ++index) {
        for (const std::string &entry : qz::file::split_search_list(qzfile_get_constant(index)))
            EXPECT_TRUE(entry.find("$USERDATA/") == 0 || entry.find("_EXEC") != std::string::npos)
                << entry;
    }
    EXPECT_EQ(qzfile_get_constant(10), nullptr);
    EXPECT_EQ(qzfile_get_constant(-1), nullptr);
}
