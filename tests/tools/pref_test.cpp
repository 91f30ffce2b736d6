#include "qzpref/preference_scene.h"
#include "tools/program.h"

using namespace program;

namespace {

class Pref : public scene::PreferenceScene {
protected:
    Pref()
    {
        write(text("machine.xml"),
              document("<d><!--Pixels--><w dt='int'>3</w><w dt='int' os='darwin'>4</w>"
                       "<c dt='QString'>a\nb</c></d><odd dt='float'>1.5</odd>"));
        write(text("site.xml"), document("<d><w dt='int'>9</w><s dt='double'>0.10</s></d>"
                                         "<far dt='bool' os='darwin'>true</far>"));
    }
};

const Case kReads[] = {
    {"pref get dovrel d/w",           0,  "3\n",                                   "",                 nullptr},
    {"pref get 3 w -g d",             0,  "3\n",                                   "",                 nullptr},
    {"pref get DOVREL d/w -t double", 3,  "",                                      "not of this type", nullptr},
    {"pref get dovrel d/w -d 7",      2,  "7\n",                                   "only a lower",     nullptr},
    {"pref get dovrel d/c -d x",      2,  "x\n",                                   "only a lower",     nullptr},
    {"pref get dovrel d/w -d x",      64, "",                                      "not of type int",  nullptr},
    {"pref get dovrel no/key",        4,  "",                                      "no layer has",     nullptr},
    {"pref get dovrel no/key -d 7",   4,  "7\n",                                   "no layer has",     nullptr},
    {"pref get dovrel far",           4,  "",                                      "no layer has",     nullptr},
    {"pref get dovrel d/s",           0,  "0.1\n",                                 "",                 nullptr},
    {"pref get dovrel d/c",           0,  "a\nb\n",                                "",                 nullptr},
    {"pref get dovrel d/c -t string", 0,  "a\nb\n",                                "",                 nullptr},
    {"pref get dovrel odd",           3,  "",                                      "not of this type", nullptr},
    {"pref get 16 d/w",               8,  "",                                      "not recognized",   nullptr},
    {"pref get nobody d/w",           8,  "",                                      "not recognized",   nullptr},
    {"pref source dovrel d/w",        0,  "machine\n",                             "",                 nullptr},
    {"pref source dovrel d/s",        0,  "installation\n",                        "",                 nullptr},
    {"pref source dovrel far",        4,  "not found\n",                           "",                 nullptr},
    {"pref type dovrel far",          0,  "bool\n",                                "",                 nullptr},
    {"pref type dovrel no",           4,  "none\n",                                "",                 nullptr},
    {"pref groups dovrel",            0,  "d\n",                                   "",                 nullptr},
    {"pref file dovrel",              0,  "@/sandbox/Halcyra/2025-3/Dovrel.xml\n", "",                 nullptr},
    {"pref list dovrel none",         4,  "",                                      "below 'none'",     nullptr},
    {"pref list dovrel d",            0,
     "KEY  TYPE    VALUE  LAYER         FILE\n"
     "d/c  string  a\\nb   machine       @/machine.xml\n"
     "d/s  double  0.10   installation  @/site.xml\n"
     "d/w  int     3      machine       @/machine.xml\n",                          "",                 nullptr},
    {"pref",                          64, "",                                      "Usage: qz pref",   nullptr},
    {"pref frob",                     64, "",                                      "'frob' is not a",  nullptr},
    {"pref get dovrel",               64, "",                                      "key is required",  nullptr},
    {"pref get dovrel a b",           64, "",                                      "'b' is one",       nullptr},
    {"pref get dovrel a -t float",    64, "",                                      "'float' is not",   nullptr},
    {"pref set dovrel a -x",          64, "",                                      "write -- before",  nullptr},
};

TEST_F(Pref, ReadingAnswersAndMakesNothing)
{
    expect_all(kReads);
    const Answer explained = run("pref explain dovrel d/w");
    EXPECT_EQ(explained.code, 0);
    for (const char *part :
         {"d/w = int 3, from the layer machine", "not there", "=> d/w  ", " int 3  <!--Pixels-->",
          " int 9\n", "getInt(default)     2     its default"})
        EXPECT_PRED_FORMAT2(testing::IsSubstring, part, explained.out);
    EXPECT_EQ(explained.out.find('\x1b'), std::string::npos) << "colours belong on a terminal";
    EXPECT_EQ(run("pref explain dovrel no").code, 4);
    EXPECT_FALSE(is_there("sandbox"));
}

TEST_F(Pref, BrokenUserFileIsLeftAloneByReaders)
{
    write(user_file(), "<broken");
    expect({"pref get dovrel d/w", 0, "3\n", "Format error", nullptr});
    EXPECT_EQ(read(user_file()), "<broken");
}

TEST_F(Pref, FirstGetTakesOverAnEarlierRelease)
{
    write(user_file("2024-2"), document("<d><w dt='int'>77</w></d>"));
    EXPECT_PRED_FORMAT2(testing::IsSubstring, "takes over 1 key of release 2024-2",
                        run("pref list dovrel d").err);
    EXPECT_FALSE(is_there("sandbox/Halcyra/2025-3"));
    expect({"pref get dovrel d/w", 0, "77\n", "", nullptr});
    expect({"pref source dovrel d/w", 0, "user\n", "", nullptr});
}

const Case kWrites[] = {
    {"pref set dovrel i 12 -c 'twelve -- a dozen'", 0,  "", "",                   nullptr},
    {"pref set dovrel i 13",                        0,  "", "",                   nullptr},
    {"pref set dovrel i abc",                       3,  "", "'abc' is not of",    nullptr},
    {"pref set dovrel i abc -t string",             1,  "", "Incorrect value of", nullptr},
    {"pref set dovrel big 2147483648",              0,  "", "",                   nullptr},
    {"pref set dovrel hex 0x10",                    0,  "", "",                   nullptr},
    {"pref set dovrel yes yes",                     0,  "", "",                   nullptr},
    {"pref set dovrel flag yes -t bool",            0,  "", "",                   nullptr},
    {"pref set dovrel neg -5",                      0,  "", "",                   nullptr},
    {"pref set dovrel dash -- -x",                  0,  "", "",                   nullptr},
    {"pref set dovrel list [a,b]",                  0,  "", "",                   nullptr},
    {"pref set dovrel d/w 5 -p windows",            0,  "", "",                   nullptr},
    {"pref set dovrel d/w 6 -p linux",              0,  "", "",                   nullptr},
    {"pref set dovrel d/w 7 -p beos",               64, "", "'beos' is not",      nullptr},
    {"pref set dovrel 1st 3",                       10, "", "'1st'",              nullptr},
    {"pref set dovrel x 3 -g 1st",                  10, "", "'1st'",              nullptr},
    {"pref set dovrel empty ''",                    0,  "", "does not survive",   nullptr},
    {"pref set nobody x 3",                         8,  "", "not recognized",     nullptr},
    {"pref set dovrel gone 1",                      0,  "", "",                   nullptr},
    {"pref unset dovrel gone",                      0,  "", "",                   nullptr},
    {"pref unset dovrel gone",                      4,  "", "no such key",        nullptr},
    {"pref unset dovrel d/w -p linux",              0,  "", "",                   nullptr},
    {"pref set dovrel t/a 1",                       0,  "", "",                   nullptr},
    {"pref set dovrel t/b/c 1",                     0,  "", "",                   nullptr},
    {"pref unset dovrel t -r",                      0,  "", "",                   nullptr},
};

TEST_F(Pref, WritingGivesPredictableTypes)
{
    expect_all(kWrites);
    EXPECT_EQ(read(user_file()), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<ApplicationSettings>\n"
                                 "    <big dt=\"double\">2147483648</big>\n"
                                 "    <d>\n"
                                 "        <w dt=\"int\" os=\"windows\">5</w>\n"
                                 "    </d>\n"
                                 "    <dash dt=\"QString\">-x</dash>\n"
                                 "    <flag dt=\"bool\">true</flag>\n"
                                 "    <hex dt=\"QString\">0x10</hex>\n"
                                 "    <!--twelve - - a dozen-->\n"
                                 "    <i dt=\"int\">13</i>\n"
                                 "    <list dt=\"QString\">[a,b]</list>\n"
                                 "    <neg dt=\"int\">-5</neg>\n"
                                 "    <yes dt=\"QString\">yes</yes>\n"
                                 "</ApplicationSettings>\n");
}

TEST_F(Pref, GetSpellsAValueInOneWay)
{
    write(user_file(), document("<i dt='int'> 12 </i><b dt='bool'>FALSE</b><d dt='double'>1e-3</d>"
                                "<s dt='QString'> x </s>"));
    const Case values[] = {
        {"pref get dovrel i", 0, "12\n",    "", nullptr},
        {"pref get dovrel b", 0, "false\n", "", nullptr},
        {"pref get dovrel d", 0, "0.001\n", "", nullptr},
        {"pref get dovrel s", 0, " x \n",   "", nullptr},
    };
    expect_all(values);
}

TEST_F(Pref, EveryAnswerHasJson)
{
    set("HALCYRA", root_.string());
    set("HALCYRA_APPDATA_OVERRIDE", text("app"));
    write(text("plindra-v2025.3/file"), "");
    write(user_file(), document("<s dt='QString'>tab\tü</s>"));
    for (const char *line :
         {"pref list dovrel", "pref groups dovrel", "pref type dovrel s", "pref source dovrel s",
          "pref file dovrel", "pref explain dovrel s", "pref set dovrel k 1", "pref unset dovrel k",
          "dirs", "dirs temp", "releases"})
        json(line);
    EXPECT_EQ(json("pref get dovrel s")["value"].toString().toStdString(), "tab\tü");
    const QJsonDocument products = json("products");
    EXPECT_EQ(products["preferences"][3]["name"].toString().toStdString(), "Dovrel");
    const QString installed = products["installation"][16]["directory"].toString();
    EXPECT_EQ(scene::with_slashes(installed.toStdString()),
              scene::with_slashes(text("plindra-v2025.3")));
    EXPECT_EQ(run("releases").out.substr(0, 14), "2025-3\n2025-2\n");
}

} // namespace
