#include "account.h"
#include "preference_scene.h"

#include <map>
#include <stdexcept>

using scene::kProduct;

namespace {

class Store : public scene::PreferenceScene {
protected:
    void write_layers()
    {
        write(user_file(), document("<k><all dt='int'>1</all><both dt='int'>1</both>"
                                    "<both dt='int' os='linux'>11</both>"
                                    "<both dt='int' os='windows'>11</both>"
                                    "<odd dt='int'>one</odd><bare>1</bare>"
                                    "<other dt='int' os='darwin'>9</other></k>"));
        write(text("machine.xml"), document("<k><all dt='int'>2</all><machine dt='int'>2</machine>"
                                            "<text dt='QString'>two</text>"
                                            "<both dt='int' os='linux'>22</both></k>"));
        write(text("site.xml"), document("<k><all dt='int'>3</all><machine dt='int'>3</machine>"
                                         "<site dt='int'>3</site><odd dt='double'>3.5</odd>"
                                         "<bad dt='int'>x</bad></k>"));
    }
};

struct LayerCase {
    const char *why;
    const char *key;
    QZPrefSource source;
    int get_code, get_value;         // get(): the layered value
    int default_code, default_value; // getInt() with the default 77
    QZPREF_TYPE type;
    int has_key;
};

const LayerCase kLayerCases[] = {
    {"the user's file wins",                                "k/all",     QZPrefSource_User,         0, 1,  0, 1,  QZPREF_TYPE_INT,    0},
    {"a value for this platform wins within a file",        "k/both",    QZPrefSource_User,         0, 11, 0, 11,
     QZPREF_TYPE_INT,                                                                                                                 0},
    {"the machine's value is announced, not handed back",   "k/machine", QZPrefSource_Machine,      0, 2,
     2,                                                                                                       77, QZPREF_TYPE_INT,    4},
    {"the installation's value too",                        "k/site",    QZPrefSource_Installation, 0, 3,  2, 77,
     QZPREF_TYPE_INT,                                                                                                                 4},
    {"a text is no int",                                    "k/text",    QZPrefSource_Machine,      3, 0,  4, 77, QZPREF_TYPE_STRING, 4},
    {"an int that is none, in the user's file",             "k/odd",     QZPrefSource_User,         3, 0,  3, 77,
     QZPREF_TYPE_INT,                                                                                                                 0},
    {"an int that is none, below",                          "k/bad",     QZPrefSource_Installation, 3, 0,  4, 77, QZPREF_TYPE_INT,
     4                                                                                                                                 },
    {"no type, no value",                                   "k/bare",    QZPrefSource_User,         3, 0,  3, 77, QZPREF_TYPE_NONE,   0},
    {"another platform's value is hidden, its type is not", "k/other",   QZPrefSource_NotFound,     4, 0,
     4,                                                                                                       77, QZPREF_TYPE_INT,    4},
    {"nowhere",                                             "k/none",    QZPrefSource_NotFound,     4, 0,  4, 77, QZPREF_TYPE_NONE,   4},
    {"needless separators are forgiven",                    "/k//all/",  QZPrefSource_User,         0, 1,  0, 1,  QZPREF_TYPE_INT,
     0                                                                                                                                 },
    {"a group is no value",                                 "k",         QZPrefSource_NotFound,     4, 0,  4, 77, QZPREF_TYPE_NONE,   4},
    {"empty",                                               "",          QZPrefSource_NotFound,     4, 0,  4, 77, QZPREF_TYPE_NONE,   4},
};

TEST_F(Store, LayersAnswerInOrder)
{
    write_layers();
    QZPREF store(kProduct, true);
    for (const bool in_group : {false, true}) {
        if (in_group)
            store.beginGroup("k");
        for (const LayerCase &c : kLayerCases) {
            const std::string key = c.key;
            if (in_group && key.compare(0, 2, "k/") != 0)
                continue;
            const std::string asked = in_group ? key.substr(2) : key;
            SCOPED_TRACE(std::string(c.why) + ": " + asked);
            EXPECT_EQ(store.getKeySource(asked.c_str()), c.source);
            int value = 5;
            EXPECT_EQ(store.get(asked, value), c.get_code);
            EXPECT_EQ(value, c.get_value);
            EXPECT_EQ(store.getInt(asked, &value, 77), c.default_code);
            EXPECT_EQ(value, c.default_value);
            EXPECT_EQ(store.getType(asked), c.type);
            EXPECT_EQ(store.hasKey(asked), c.has_key);
        }
    }
}

struct ConversionCase {
    const char *dt;
    const char *text;
    int int_code, int_value;
    int double_code;
    double double_value;
    int bool_code;
    bool bool_value;
};

const ConversionCase kConversionCases[] = {
    {"int",    "3",           0, 3,       3, 0,      3, false},
    {"int",    " 3 ",         0, 3,       3, 0,      3, false},
    {"int",    "+3",          0, 3,       3, 0,      3, false},
    {"int",    "-2147483648", 0, INT_MIN, 3, 0,      3, false},
    {"int",    "3.5",         3, 0,       3, 0,      3, false},
    {"int",    "0x10",        3, 0,       3, 0,      3, false},
    {"double", "0.1",         3, 0,       0, 0.1,    3, false},
    {"double", "1e-300",      3, 0,       0, 1e-300, 3, false},
    {"double", "7",           3, 0,       0, 7,      3, false},
    {"double", "1,5",         3, 0,       3, 0,      3, false},
    {"bool",   "true",        3, 0,       3, 0,      0, true },
    {"bool",   "FALSE",       3, 0,       3, 0,      0, false},
    {"bool",   "0",           3, 0,       3, 0,      0, false},
    {"bool",   "yes",         3, 0,       3, 0,      0, true },
    {"Int",    "3",           3, 0,       3, 0,      3, false},
};

TEST_F(Store, ValuesConvertOnlyAsTheirOwnType)
{
    for (const ConversionCase &c : kConversionCases) {
        SCOPED_TRACE(std::string(c.dt) + " " + c.text);
        write(user_file(), document(std::string("<k dt='") + c.dt + "'>" + c.text + "</k>"));
        QZPREF store(kProduct, true);
        int i = 1;
        double d = 1;
        bool b = true;
        std::string s = "x";
        EXPECT_EQ(store.get("k", i), c.int_code);
        EXPECT_EQ(i, c.int_value);
        EXPECT_EQ(store.getDouble("k", &d, 0), c.double_code);
        EXPECT_EQ(d, c.double_value);
        EXPECT_EQ(store.get("k", b), c.bool_code);
        EXPECT_EQ(b, c.bool_value);
        EXPECT_EQ(store.getString("k", s), QZPREF_CONVERSION_ERROR);
    }
}

TEST_F(Store, KeepsWhatIsSetAcrossProcesses)
{
    const std::string strange = " ü\r\n\t<&>\"']]> \U0001F600 ";
    {
        QZPREF store(kProduct, true);
        EXPECT_EQ(store.set("a/text", QString::fromStdString(strange), "say -- it"), 0);
        EXPECT_EQ(store.set("a/tiny", 1e-308, ""), 0);
        EXPECT_EQ(store.set("a/third", 1.0 / 3, ""), 0);
        EXPECT_EQ(store.set("a/least", INT_MIN, ""), 0);
        EXPECT_EQ(store.set("a/yes", true, ""), 0);
        EXPECT_EQ(store.set("a/empty", QString(), ""), 0);
        store.beginOsAttribute(QZPREF_PLATFORM_DARWIN);
        EXPECT_EQ(store.set("a/least", 4, ""), 0);
        store.endOsAttribute();
        std::string value = "x";
        EXPECT_EQ(store.get("a/empty", value), 0);
        EXPECT_EQ(value, "");
    }
    QZPREF store(kProduct, true);
    std::string value;
    double number = 0;
    int integer = 0;
    bool yes = false;
    EXPECT_EQ(store.get("a/text", value), 0);
    EXPECT_EQ(value, strange);
    EXPECT_EQ(store.get("a/tiny", number), 0);
    EXPECT_EQ(number, 1e-308);
    EXPECT_EQ(store.get("a/third", number), 0);
    EXPECT_EQ(number, 1.0 / 3);
    EXPECT_EQ(store.get("a/least", integer), 0);
    EXPECT_EQ(integer, INT_MIN);
    EXPECT_EQ(store.get("a/yes", yes), 0);
    EXPECT_TRUE(yes);
    // An empty value does not survive the file; that is part of its format.
    EXPECT_EQ(store.get("a/empty", value), QZPREF_KEY_NOT_FOUND);
}

struct RefusedCase {
    const char *why;
    const char *key;
    QVariant value;
    const char *comment;
    int code;
    const char *message;
};

TEST_F(Store, RefusesWhatAFileCannotGiveBack)
{
    const RefusedCase cases[] = {
        {"another type",                     "n",    "text",                          "",     1,
         "WARNING QZPREF::set: Incorrect value of type 'QString' is being set for existing 'int' "
         "type key('n')\n"                                                                                                                 },
        {"invalid key",                      "a//b", 1,                               "",     10, "WARNING validate_key: Invalid character"},
        {"control character in the value",   "t",    QString("a\x01"),                "",     1,
         "WARNING QZPREF::set: The value or the comment of key('t')"                                                                       },
        {"half a character",                 "t",    QString(QChar(0xD800)),          "",     1,  "WARNING QZPREF::set"                    },
        {"control character in the comment", "t",    "a",                             "\x1b", 1,  "WARNING QZPREF::set"                    },
        {"comment that is not UTF-8",        "t",    "a",                             "\xff", 1,  "WARNING QZPREF::set"                    },
        {"no value at all",                  "t",    QVariant(),                      "",     1,  "WARNING QZPREF::set"                    },
        {"a value without a text",           "t",    QVariant(QVariantMap{{"a", 1}}), "",     1,
         "WARNING QZPREF::set"                                                                                                             },
    };
    QZPREF store(kProduct, true);
    ASSERT_EQ(store.set("n", 1, ""), 0);
    for (const RefusedCase &c : cases) {
        SCOPED_TRACE(c.why);
        scene::Messages messages;
        EXPECT_EQ(store.set(c.key, c.value, c.comment), c.code);
        EXPECT_EQ(messages.text().find(c.message), 0u);
        EXPECT_EQ(store.hasKey("t"), QZPREF_KEY_NOT_FOUND);
    }
    EXPECT_EQ(store.syncSettings(), 0);
}

TEST_F(Store, ListsEachPreferenceOnceWithItsLayeredValue)
{
    write_layers();
    QZPREF store(kProduct, true);
    std::map<std::string, int> values;
    EXPECT_EQ(store.getIntList("k", values), QZPREF_CONVERSION_ERROR) << "odd and bad spell no int";
    const std::map<std::string, int> expected = {
        {"all",     1 },
        {"both",    11},
        {"machine", 2 },
        {"site",    3 }
    };
    EXPECT_EQ(values, expected);
    EXPECT_EQ(store.getGroup(), "");
    std::map<std::string, std::string> texts;
    EXPECT_EQ(store.getStringList("", texts), 0);
    EXPECT_EQ(texts, (std::map<std::string, std::string>{
                         {"k/text", "two"}
    }));
    std::map<std::string, bool> bools;
    EXPECT_EQ(store.getBoolList("k", bools), QZPREF_KEY_NOT_FOUND) << "keys, but no bool";
    EXPECT_EQ(store.getGroup(), "");
    std::map<std::string, double> doubles;
    EXPECT_EQ(store.getDoubleList("none", doubles), QZPREF_KEY_NOT_FOUND);
    EXPECT_EQ(store.getGroup(), "none") << "an empty listing leaves its group entered";
    store.endGroup();
    ASSERT_EQ(store.beginGroup("k"), 0);
    scene::Messages messages;
    EXPECT_EQ(store.getIntList("not a name", values), QZPREF_CONVERSION_ERROR);
    EXPECT_EQ(store.getGroup(), "")
        << "a listing of an invalid group leaves one level all the same";
}

TEST_F(Store, SubgroupsComeLevelByLevel)
{
    write(user_file(), document("<a><b><c><k>1</k></c></b><b-x><k>1</k></b-x></a><z>1</z>"));
    QZPREF store(kProduct, true);

    struct {
        const char *group;
        int depth, levels;
        std::vector<std::string> groups;
    } const cases[] = {
        {"",      0, 3, {"a", "a/b", "a/b-x", "a/b/c"}},
        {"",      1, 1, {"a"}                         },
        {"",      2, 2, {"a", "a/b", "a/b-x"}         },
        {"a",     0, 2, {"b", "b-x", "b/c"}           },
        {"a/b/c", 0, 0, {}                            },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.group) + " to depth " + std::to_string(c.depth));
        store.beginGroup(c.group);
        std::vector<std::string> groups;
        EXPECT_EQ(store.getSubgroups(groups, c.depth), c.levels);
        EXPECT_EQ(groups, c.groups);
        store.endGroup();
    }
}

TEST_F(Store, RemovesTheKeyAndNothingElse)
{
    QZPREF store(kProduct, true);
    const auto fill = [&] {
        store.clearSettings();
        for (const char *key : {"g", "g/a", "g/a/x", "g/b", "gg"})
            EXPECT_EQ(store.set(key, 1, ""), 0);
        store.beginOsAttribute(QZPREF_PLATFORM_NONE);
        EXPECT_EQ(store.set("g/b", 2, ""), 0);
        store.endOsAttribute();
    };

    struct {
        const char *why, *key;
        QZPREF_TYPE type;
        int result;
        std::vector<std::string> left;
    } const cases[] = {
        {"typed: the keys below stay",                   "g",    QZPREF_TYPE_INT,  1, {"g/a", "g/a/x", "g/b", "gg"}     },
        {"typed: of another type",                       "g",    QZPREF_TYPE_BOOL, 0, {"g", "g/a", "g/a/x", "g/b", "gg"}},
        {"typed: this platform's form first",
         "g/b",                                                  QZPREF_TYPE_INT,
         1,                                                                           {"g", "g/a", "g/a/x", "g/b", "gg"}},
        {"untyped: the group and the value of its name", "g",    QZPREF_TYPE_NONE, 4, {"gg"}                            },
        {"untyped: a single value",                      "gg",   QZPREF_TYPE_NONE, 0, {"g", "g/a", "g/a/x", "g/b"}      },
        {"untyped: the group we are in",                 "",     QZPREF_TYPE_NONE, 6, {}                                },
        {"untyped: missing",                             "none", QZPREF_TYPE_NONE, 0, {"g", "g/a", "g/a/x", "g/b", "gg"}},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        fill();
        EXPECT_EQ(store.removeKey(c.key, c.type), c.result);
        std::map<std::string, int> values;
        std::vector<std::string> left;
        const int code = store.getIntList("", values);
        if (code)
            store.endGroup();
        for (const auto &[name, value] : values)
            left.push_back(name);
        EXPECT_EQ(left, c.left);
    }
    EXPECT_EQ(store.hasKey("g", QZPREF_TYPE_NONE), QZPREF_FAILURE);
}

TEST_F(Store, GroupsPrefixEveryKey)
{
    QZPREF store(kProduct, true);
    EXPECT_EQ(store.beginGroup("a/b"), 0);
    EXPECT_EQ(store.beginGroup(""), 0);
    EXPECT_EQ(store.beginGroup("c"), 0);
    EXPECT_EQ(store.getGroup(), "a/b/c");
    EXPECT_EQ(store.set("k", 1, ""), 0);
    scene::Messages messages;
    EXPECT_EQ(store.beginGroup("1x"), QZPREF_INVALID_KEY);
    for (const char *left : {"a/b", "a/b", "", ""}) {
        store.endGroup();
        EXPECT_EQ(store.getGroup(), left);
    }
    EXPECT_EQ(store.hasKey("a/b/c/k"), 0);
}

TEST_F(Store, UnknownProductsAreRefused)
{
    for (const int number : {-1, 16, 1000}) {
        try {
            QZPREF store(static_cast<QZPREF_PRODUCTS>(number), true);
            ADD_FAILURE() << number;
        } catch (const std::runtime_error &error) {
            EXPECT_STREQ(error.what(), "The product is not recognized by the library.");
        }
    }
}

TEST_F(Store, DamagedLayersAreLeftOutWithAWarning)
{
    write(text("machine.xml"), "<ApplicationSettings><k dt='int'>2</k>");
    write(text("site.xml"), document("<k dt='int'>3</k>"));
    scene::QtLog log;
    {
        QZPREF store(kProduct, true);
        EXPECT_EQ(store.getKeySource("k"), QZPrefSource_Installation);
    }
    EXPECT_NE(log.text().find("scan_profile: Loading first level fallback  setting(" +
                              text("machine.xml") +
                              ") failed. Format error in using settings file. This might not be in "
                              "proper .xml format.\n"),
              std::string::npos)
        << log.text();
}

TEST_F(Store, LayersAreReadOnceAndDroppedWithTheLastStore)
{
    write(text("machine.xml"), document("<k dt='int'>1</k>"));
    const auto value_now = [](QZPREF &store) {
        int value = 0;
        store.get("k", value);
        return value;
    };
    {
        QZPREF first(kProduct, true);
        const QZPREF copy(first);
        write(text("machine.xml"), document("<k dt='int'>2</k>"));
        {
            QZPREF second(QZPREF_ATELIO, true);
            EXPECT_EQ(value_now(second), 1);
        }
        set("HALCYRA_QZPREF_TEST", "1");
        QZPREF third(QZPREF_ATELIO, true);
        EXPECT_EQ(value_now(third), 2) << "read again while the variable is set";
        EXPECT_EQ(value_now(first), 2) << "for all";
        unset("HALCYRA_QZPREF_TEST");
        write(text("machine.xml"), document("<k dt='int'>3</k>"));
    }
    QZPREF afresh(kProduct, true);
    EXPECT_EQ(value_now(afresh), 3);
}

TEST_F(Store, CorruptUserFileIsReplacedByAnEmptyStore)
{
    write(user_file(), "this is not XML");
    scene::QtLog log;
    {
        QZPREF store(kProduct, true);
        EXPECT_FALSE(is_there("sandbox/Halcyra/2025-3/Dovrel.xml"));
        EXPECT_EQ(store.set("k", 1, ""), 0);
    }
    EXPECT_NE(
        scene::with_slashes(log.text())
            .find("QZPREF::initialize_handle: Loading setting(" + scene::with_slashes(user_file())),
        std::string::npos);
    QZPREF store(kProduct, true);
    EXPECT_EQ(store.hasKey("k"), 0);
}

TEST_F(Store, UnreadableUserFileIsReportedAndKept)
{
    std::filesystem::create_directories(user_file());
    try {
        QZPREF store(kProduct, true);
        ADD_FAILURE();
    } catch (const std::runtime_error &error) {
        EXPECT_STREQ(error.what(), "Access error in using settings file. This might be due to "
                                   "permissions or a full disk.");
    }
    EXPECT_TRUE(is_there("sandbox/Halcyra/2025-3/Dovrel.xml"));
}

TEST_F(Store, EmptyFilesAreMadeWithoutMigrationOnly)
{
    {
        QZPREF store(kProduct, false);
    }
    EXPECT_TRUE(is_there("sandbox/Halcyra/2025-3/Dovrel.xml"));
    write(text("sandbox2"), "a file where the directory should be");
    set("HALCYRA_QZPREF_SANDBOX", text("sandbox2"));
    EXPECT_THROW(QZPREF(kProduct, false), std::runtime_error);
    set("HALCYRA_QZPREF_SANDBOX", text("sandbox3"));
    QZPREF store(kProduct, true);
    EXPECT_FALSE(is_there("sandbox3"));
    EXPECT_EQ(store.syncSettings(), 0);
    EXPECT_TRUE(is_there("sandbox3/Halcyra/2025-3/Dovrel.xml"));
}

TEST_F(Store, DriveThatIsNotThereIsNoDirectoryOfOurs)
{
    set("HALCYRA_QZPREF_SANDBOX", "Q:\\nowhere");
    EXPECT_THROW(QZPREF(kProduct, false), std::runtime_error);
    QZPREF store(kProduct, true);
    EXPECT_EQ(store.set("k", 1, ""), 0);
    EXPECT_EQ(store.syncSettings(), QZPREF_ACCESS_ERROR);
    EXPECT_TRUE(std::filesystem::is_empty(root_));
}

TEST_F(Store, MigratesFromTheNewestReleaseThatHasKeys)
{
    write(user_file("2025-2"), "damaged");
    write(user_file("2025-1"), "");
    write(user_file("2019-3"), document("<wrong dt='int'>1</wrong>"));
    write(user_file("2019-3", "DovrelPanel.xml"),
          document("<!--why--><a dt='int' x='1'>5</a><a dt='int' os='darwin'>6</a>"));
    write(user_file("2017-1"), document("<old dt='int'>1</old>"));
    scene::Messages messages;
    {
        QZPREF store(kProduct, true);
        int value = 0;
        EXPECT_EQ(store.get("a", value), 0);
        EXPECT_EQ(value, 5);
        EXPECT_EQ(store.hasKey("old"), QZPREF_KEY_NOT_FOUND);
        EXPECT_FALSE(is_there("sandbox/Halcyra/2025-3"));
    }
    EXPECT_EQ(messages.text(), "");
    const std::string written = read(user_file());
    EXPECT_NE(written.find("<!--why-->\n    <a dt=\"int\" x=\"1\">5</a>\n"
                           "    <a dt=\"int\" os=\"darwin\">6</a>"),
              std::string::npos)
        << written;
    EXPECT_EQ(read(user_file("2025-2")), "damaged");
}

TEST_F(Store, OldReleasesLieInTheHomeDirectory)
{
    using namespace halcyra::preferences::internal;
    const auto directory = [](const char *release) {
        return scene::with_slashes(get_qzpref_directory(release));
    };
    EXPECT_EQ(directory("2025-3"), scene::with_slashes(text("sandbox/Halcyra/2025-3")));
    unset("HALCYRA_QZPREF_SANDBOX");
    set("XDG_DATA_HOME", text("share"));
    const std::string share =
        scene::with_slashes(qz::test::account_tells_folders() ? profile() + "\\AppData\\Local"
                                                              : text("share")) +
        "/Halcyra/";
    const auto file = [](const char *release) {
        return scene::with_slashes(get_qzpref_file(kProduct, release).toStdString());
    };
    EXPECT_EQ(directory("2017-1"), home() + "/Halcyra/2017-1");
    EXPECT_EQ(directory("2017-2"), share + "2017-2");
    EXPECT_EQ(file("2019-2"), share + "2019-2/Dovrel.xml");
    EXPECT_EQ(file("2019-3"), share + "2019-3/DovrelPanel.xml");
    EXPECT_THROW(get_qzpref_file(static_cast<QZPREF_PRODUCTS>(16), "2025-3"), std::out_of_range);
    unset("HALCYRA_MACHINE_PREFERENCE");
    unset("HALCYRA_SITE_PREFERENCE");
    EXPECT_EQ(get_machine_preferences_path(), "C:/ProgramData/Halcyra/suitepref.xml");
    EXPECT_EQ(get_suite_preferences_path(), "/config/suitepref.xml");
    set("HALCYRA", text("inst"));
    EXPECT_EQ(get_suite_preferences_path().toStdString(), text("inst/config/suitepref.xml"));
}

TEST(PreferenceSources, HaveNames)
{
    const std::pair<int, const char *> cases[] = {
        {0, "user"        },
        {1, "machine"     },
        {2, "installation"},
        {3, "not found"   }
    };
    for (const auto &[source, name] : cases)
        EXPECT_EQ(qzpref_source_to_string(static_cast<QZPrefSource>(source)), name);
}

} // namespace
