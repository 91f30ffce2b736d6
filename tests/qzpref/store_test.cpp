#include "account.h"
#include "preference_scene.h"

#include <map>
#include <stdexcept>

using scene::kProduct;
using scene::thrown;

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

    template <typename T> static T stored(QZPREF &store, const std::string &key)
    {
        T value{};
        EXPECT_EQ(store.get(key, value), 0) << key;
        return value;
    }
};

constexpr auto kUser = QZPrefSource_User, kMachine = QZPrefSource_Machine,
               kInstallation = QZPrefSource_Installation, kNowhere = QZPrefSource_NotFound;
constexpr auto kInt = QZPREF_TYPE_INT, kText = QZPREF_TYPE_STRING, kNoType = QZPREF_TYPE_NONE;

struct LayerCase {
    const char *why, *key;
    QZPrefSource source;
    int get_code, get_value; // get(): the layered value
    int default_code;        // getInt() with a default, which is taken unless this is 0
    QZPREF_TYPE type;
};

const LayerCase kLayerCases[] = {
    {"the user's file wins",                        "k/all",     kUser,         0, 1,  0, kInt   },
    {"a value for this platform wins in a file",    "k/both",    kUser,         0, 11, 0, kInt   },
    {"the machine's value is announced, not given", "k/machine", kMachine,      0, 2,  2, kInt   },
    {"the installation's too",                      "k/site",    kInstallation, 0, 3,  2, kInt   },
    {"a text is no int",                            "k/text",    kMachine,      3, 0,  4, kText  },
    {"an int that is none, in the user's file",     "k/odd",     kUser,         3, 0,  3, kInt   },
    {"an int that is none, below",                  "k/bad",     kInstallation, 3, 0,  4, kInt   },
    {"no type, no value",                           "k/bare",    kUser,         3, 0,  3, kNoType},
    {"another platform's value is hidden",          "k/other",   kNowhere,      4, 0,  4, kInt   },
    {"nowhere",                                     "k/none",    kNowhere,      4, 0,  4, kNoType},
    {"needless separators are forgiven",            "/k//all/",  kUser,         0, 1,  0, kInt   },
    {"a group is no value",                         "k",         kNowhere,      4, 0,  4, kNoType},
    {"empty",                                       "",          kNowhere,      4, 0,  4, kNoType},
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
            EXPECT_EQ(value, c.default_code == 0 ? c.get_value : 77);
            EXPECT_EQ(store.getType(asked), c.type);
            EXPECT_EQ(store.hasKey(asked), c.source == kUser ? 0 : QZPREF_KEY_NOT_FOUND);
        }
    }
}

struct ConversionCase {
    const char *dt, *text;
    char type; // 'i', 'd' or 'b': the one that the text converts to; ' ': none
    double value;
};

const ConversionCase kConversionCases[] = {
    {"int",    "3",           'i', 3      },
    {"int",    " 3 ",         'i', 3      },
    {"int",    "+3",          'i', 3      },
    {"int",    "-2147483648", 'i', INT_MIN},
    {"int",    "3.5",         ' ', 0      },
    {"int",    "0x10",        ' ', 0      },
    {"double", "0.1",         'd', 0.1    },
    {"double", "1e-300",      'd', 1e-300 },
    {"double", "7",           'd', 7      },
    {"double", "1,5",         ' ', 0      },
    {"bool",   "true",        'b', 1      },
    {"bool",   "FALSE",       'b', 0      },
    {"bool",   "0",           'b', 0      },
    {"bool",   "yes",         'b', 1      },
    {"Int",    "3",           ' ', 0      },
};

TEST_F(Store, ValuesConvertOnlyAsTheirOwnType)
{
    for (const ConversionCase &c : kConversionCases) {
        SCOPED_TRACE(std::string(c.dt) + " " + c.text);
        write(user_file(), document(std::string("<k dt='") + c.dt + "'>" + c.text + "</k>"));
        QZPREF store(kProduct, true);
        const auto expect = [&c](char type, int code, double value) {
            EXPECT_EQ(code, c.type == type ? QZPREF_SUCCESS_ : QZPREF_CONVERSION_ERROR) << type;
            EXPECT_EQ(value, c.type == type ? c.value : 0) << type;
        };
        int i = 1;
        double d = 1;
        bool b = true;
        std::string s = "x";
        const int codes[] = {store.get("k", i), store.getDouble("k", &d, 0), store.get("k", b)};
        expect('i', codes[0], i);
        expect('d', codes[1], d);
        expect('b', codes[2], b);
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
        EXPECT_EQ(store.set("a/empty", QString(), ""), 0);
        EXPECT_EQ(stored<std::string>(store, "a/empty"), "");
        store.beginOsAttribute(QZPREF_PLATFORM_DARWIN);
        EXPECT_EQ(store.set("a/least", 4, ""), 0);
    }
    QZPREF store(kProduct, true);
    EXPECT_EQ(stored<std::string>(store, "a/text"), strange);
    EXPECT_EQ(stored<double>(store, "a/tiny"), 1e-308);
    EXPECT_EQ(stored<double>(store, "a/third"), 1.0 / 3);
    EXPECT_EQ(stored<int>(store, "a/least"), INT_MIN);
    // An empty value does not survive the file; that is part of its format.
    EXPECT_EQ(store.hasKey("a/empty", kText), QZPREF_KEY_NOT_FOUND);
}

TEST_F(Store, RefusesWhatAFileCannotGiveBack)
{
    const std::string said = "WARNING QZPREF::set: ";
    const std::string other_type =
        said + "Incorrect value of type 'QString' is being set for existing 'int' type key('n')\n";
    const std::string bad_key = "WARNING validate_key: Invalid character";
    const std::string no_text = said + "The value or the comment of key('t')";
    QVariantMap no_spelling;
    no_spelling["a"] = 1;

    const struct {
        const char *why, *key;
        QVariant value;
        const char *comment;
        int code;
        std::string message; ///< its beginning
    } cases[] = {
        {"another type",           "n",    "text",                 "",     1,  other_type},
        {"invalid key",            "a//b", 1,                      "",     10, bad_key   },
        {"control in the value",   "t",    QString("a\x01"),       "",     1,  no_text   },
        {"half a character",       "t",    QString(QChar(0xD800)), "",     1,  no_text   },
        {"control in the comment", "t",    "a",                    "\x1b", 1,  no_text   },
        {"comment not in UTF-8",   "t",    "a",                    "\xff", 1,  no_text   },
        {"no value at all",        "t",    QVariant(),             "",     1,  said      },
        {"a value without a text", "t",    no_spelling,            "",     1,  said      },
    };

    QZPREF store(kProduct, true);
    ASSERT_EQ(store.set("n", 1, ""), 0);
    for (const auto &c : cases) {
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
    std::string listed;
    for (const auto &[key, value] : values)
        listed += key + "=" + std::to_string(value) + " ";
    EXPECT_EQ(listed, "all=1 both=11 machine=2 site=3 ");
    EXPECT_EQ(store.getGroup(), "");
    std::map<std::string, std::string> texts;
    EXPECT_EQ(store.getStringList("", texts), 0);
    EXPECT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts["k/text"], "two");
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
    EXPECT_EQ(store.getGroup(), "") << "that of an invalid group leaves one level all the same";
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

    const struct {
        const char *why, *key;
        QZPREF_TYPE type;
        int result;
        const char *left;
    } cases[] = {
        {"the keys below stay",                 "g",    kInt,    1, "g/a g/a/x g/b gg "  },
        {"of another type",                     "g",    kText,   0, "g g/a g/a/x g/b gg "},
        {"this platform's form first",          "g/b",  kInt,    1, "g g/a g/a/x g/b gg "},
        {"the group and the value of its name", "g",    kNoType, 4, "gg "                },
        {"a single value",                      "gg",   kNoType, 0, "g g/a g/a/x g/b "   },
        {"the group we are in",                 "",     kNoType, 6, ""                   },
        {"missing",                             "none", kNoType, 0, "g g/a g/a/x g/b gg "},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        fill();
        EXPECT_EQ(store.removeKey(c.key, c.type), c.result);
        std::map<std::string, int> values;
        if (store.getIntList("", values))
            store.endGroup();
        std::string left;
        for (const auto &[name, value] : values)
            left += name + " ";
        EXPECT_EQ(left, c.left);
    }
    EXPECT_EQ(store.hasKey("g", kNoType), QZPREF_FAILURE);
}

TEST_F(Store, GroupsPrefixEveryKey)
{
    QZPREF store(kProduct, true);
    for (const char *group : {"a/b", "", "c"})
        EXPECT_EQ(store.beginGroup(group), 0);
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

TEST_F(Store, DamagedLayersAreLeftOutWithAWarning)
{
    const struct {
        const char *file, *level;
        QZPrefSource source; // of a key that both files have
    } cases[] = {
        {"machine.xml", "first",  kInstallation},
        {"site.xml",    "second", kMachine     },
    };

    for (const auto &c : cases) {
        for (const char *file : {"machine.xml", "site.xml"})
            write(file, document("<k dt='int'>3</k>"));
        write(c.file, "<ApplicationSettings><k dt='int'>2</k>");
        const scene::QtLog log;
        EXPECT_EQ(QZPREF(kProduct, true).getKeySource("k"), c.source);
        EXPECT_PRED_FORMAT2(testing::IsSubstring,
                            std::string("scan_profile: Loading ") + c.level +
                                " level fallback  setting(" + text(c.file) +
                                ") failed. Format error in using settings file. This might not be "
                                "in proper .xml format.\n",
                            log.text());
    }
}

TEST_F(Store, LayersAreReadOnceAndDroppedWithTheLastStore)
{
    write(text("machine.xml"), document("<k dt='int'>1</k>"));
    const auto value_now = [](QZPREF &store) { return stored<int>(store, "k"); };
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
    const scene::QtLog log;
    {
        QZPREF store(kProduct, true);
        EXPECT_FALSE(is_there(user_file()));
        EXPECT_EQ(store.set("k", 1, ""), 0);
    }
    const std::string said = "QZPREF::initialize_handle: Loading setting(" + user_file();
    EXPECT_PRED_FORMAT2(testing::IsSubstring, scene::with_slashes(said),
                        scene::with_slashes(log.text()));
    EXPECT_EQ(QZPREF(kProduct, true).hasKey("k"), 0);
}

TEST_F(Store, UnreadableUserFileIsReportedAndKept)
{
    std::filesystem::create_directories(user_file());
    EXPECT_EQ(thrown<std::runtime_error>([] { QZPREF(kProduct, true); }),
              "Access error in using settings file. This might be due to permissions or a full "
              "disk.");
    EXPECT_TRUE(is_there(user_file()));
}

TEST_F(Store, EmptyFilesAreMadeWithoutMigrationOnly)
{
    QZPREF(kProduct, false);
    EXPECT_TRUE(is_there(user_file()));
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
        EXPECT_EQ(stored<int>(store, "a"), 5);
        EXPECT_EQ(store.hasKey("old"), QZPREF_KEY_NOT_FOUND);
        EXPECT_FALSE(is_there("sandbox/Halcyra/2025-3"));
    }
    EXPECT_EQ(messages.text(), "");
    const std::string written = read(user_file());
    EXPECT_PRED_FORMAT2(testing::IsSubstring,
                        "<!--why-->\n    <a dt=\"int\" x=\"1\">5</a>\n"
                        "    <a dt=\"int\" os=\"darwin\">6</a>",
                        written);
    EXPECT_EQ(read(user_file("2025-2")), "damaged");
}

TEST_F(Store, OldReleasesLieInTheHomeDirectory)
{
    using namespace halcyra::preferences::internal;
    using scene::with_slashes;
    const auto directory = [](auto release) { return with_slashes(get_qzpref_directory(release)); };
    const auto file = [](auto release) {
        return with_slashes(get_qzpref_file(kProduct, release).toStdString());
    };
    EXPECT_EQ(directory("2025-3"), with_slashes(text("sandbox/Halcyra/2025-3")));
    unset("HALCYRA_QZPREF_SANDBOX");
    set("XDG_DATA_HOME", text("share"));
    const bool is_told = qz::test::account_tells_folders();
    const std::string share =
        with_slashes(is_told ? profile() + "\\AppData\\Local" : text("share")) + "/Halcyra/";
    EXPECT_EQ(directory("2017-1"), home() + "/Halcyra/2017-1");
    EXPECT_EQ(directory("2017-2"), share + "2017-2");
    EXPECT_EQ(file("2019-2"), share + "2019-2/Dovrel.xml");
    EXPECT_EQ(file("2019-3"), share + "2019-3/DovrelPanel.xml");
    const auto unknown = [] { get_qzpref_file(static_cast<QZPREF_PRODUCTS>(16), "2025-3"); };
    EXPECT_EQ(scene::thrown<std::out_of_range>(unknown), "invalid unordered_map<K, T> key");
    unset("HALCYRA_MACHINE_PREFERENCE");
    unset("HALCYRA_SITE_PREFERENCE");
    EXPECT_EQ(get_machine_preferences_path(), "C:/ProgramData/Halcyra/suitepref.xml");
    EXPECT_EQ(get_suite_preferences_path(), "/config/suitepref.xml");
    set("HALCYRA", text("inst"));
    EXPECT_EQ(get_suite_preferences_path().toStdString(), text("inst/config/suitepref.xml"));
}

} // namespace
