#include "account.h"
#include "qzfile/scene.h"
#include "tools/program.h"

#include <QJsonArray>

using namespace program;

namespace {

class Files : public scene::Scene {
protected:
    Files()
    {
        unset("QZ_PATH");
        unset("PLINDRA_EXEC");
        unset("HALCYRA_TEMP_PROJECT");
        set("HALCYRA", root_.string());
        set("DATA", "one");
        write("one/x.dat", "1");
        write("two/x.dat", "2");
        write("two/dir/file", "");
        write("plindra-v2025.3/file", "");
    }
};

const Case kLookups[] = {
    {"find x.dat -P $DATA:two",                               0,  "one/x.dat\n",    "",                                  nullptr},
    {"find x.dat -P two -P $DATA",                            0,  "two/x.dat\n",    "",                                  nullptr},
    {"find dir/file -o -P two",                               0,  "two/dir/file\n", "",                                  nullptr},
    {"find dir x.dat -o -P two",                              1,  "two/x.dat\n",    "dir: not found",                    nullptr},
    {"find -d dir -o -P two",                                 0,  "two/dir\n",      "",                                  nullptr},
    {"find x.dat",                                            1,  "",               "x.dat: not found",                  nullptr},
    {"find x.dat -o",                                         1,  "",               "no directories in the search path", nullptr},
    {"where x.dat -o -P $NO/a:$DATA;two:two/dir:$DATA",       0,
     "x.dat is one/x.dat\n\n"
     "    #  RESULT    DIRECTORY  FROM    WRITTEN\n"
     "    1  miss      /a         option  $NO/a    NO is not set\n"
     "=>  2  hit       one        option  $DATA\n"
     "    3  shadowed  two        option  two\n"
     "    4  miss      two/dir    option  two/dir\n",                               "",                                  nullptr},
    {"where dir -o -P two",                                   1,
     "dir is not found\n\n"
     "    #  RESULT  DIRECTORY  FROM    WRITTEN\n"
     "    1  miss    two        option  two      a directory there\n",              "",                                  nullptr},
    {"where",                                                 64, "",               "name is required",                  nullptr},
    {"path show -o -P C:\\a:C:/b -P two -P $DATA/../two:two", 0,
     "#  DIRECTORY   FROM    WRITTEN\n"
     "1  C:\\a        option  C:\\a          not there\n"
     "2  C           option  C             not there\n"
     "3  /b          option  /b            not there\n"
     "4  two         option  two\n"
     "5  one/../two  option  $DATA/../two\n"
     "6  two         option  two           the same as 4\n",                        "",                                  nullptr},
    {"path add -o two",                                       0,
     "#  DIRECTORY  FROM    WRITTEN\n"
     "1  two        option  two\n",                                                 "",                                  nullptr},
};

TEST_F(Files, SearchPath)
{
    expect_all(kLookups);
    set("QZ_PATH", "two");
    const QJsonDocument where = json("where x.dat -P one");
    ASSERT_EQ(where["entries"].toArray().size(), 7);
    EXPECT_EQ(scene::with_slashes(where["path"].toString().toStdString()), "two/x.dat");
    EXPECT_EQ(where["entries"][0]["written"].toString(), QStringLiteral("."));
    EXPECT_EQ(where["entries"][2]["unset"][0].toString(), QStringLiteral("PLINDRA_EXEC"));
    EXPECT_EQ(where["entries"][5]["origin"].toString(), QStringLiteral("environment"));
    EXPECT_EQ(where["entries"][6]["result"].toString(), QStringLiteral("shadowed"));
    expect({"where /etc/../etc/no", 1,
            "/etc/../etc/no is not found: an absolute name is not searched for\n", "", nullptr});
}

const Case kServices[] = {
    {"md5 one/x.dat",                0, "c4ca4238a0b923820dcc509a6f75849b  one/x.dat\n", "",                                                      nullptr         },
    {"md5",                          0, "d41d8cd98f00b204e9800998ecf8427e  -\n",         "",                                                      nullptr         },
    {"md5 no one",                   1, "",                                              "one: cannot be read",                                   nullptr         },
    {"base64",                       0, "Zm9v\n",                                        "",                                                      "foo"           },
    {"base64 one/x.dat",             0, "MQ==\n",                                        "",                                                      nullptr         },
    {"base64 no",                    1, "",                                              "no: No such file",                                      nullptr         },
    {"base64 -d",                    0, "foobar",                                        "",                                                      "Zm9v\r\nYmFy\n"},
    {"base64 -d",                    1, "foo",                                           "behind character 4",                                    "Zm9vZm-v"      },
    {"base64 -d",                    1, "fo",                                            "behind character 4",                                    "Zm8=Zm9v"      },
    {"base64 -d",                    1, "",                                              "behind character 0",                                    "Zm9"           },
    {"expand $DATA/b $NO/c ${DATA}", 0, "one/b\n/c\n${DATA}\n",                          "",                                                      nullptr         },
    {"expand ~nobody-here/x",        1, "/x\n",                                          "home directory for user",                               nullptr         },
    {"shell-quote 'a b' x\"y",       0, "a\" b\"\nx\"\\\"y\"\n",                         "",                                                      nullptr         },
    {"shell-quote dir/",             1, "",                                              "cannot be quoted",                                      nullptr         },
    {"scratch",                      1, "",                                              "HALCYRA_TEMP_PROJECT environment variable is not set.", nullptr         },
    {"check plindra",                0, "@/plindra-v2025.3\n",                           "",                                                      nullptr         },
    {"check atelio",                 1, "",                                              "atelio is not installed",                               nullptr         },
};

TEST_F(Files, Services)
{
    expect_all(kServices);
    set("HALCYRA_TEMP_PROJECT", text("scratch"));
    const std::string path = run("scratch").out;
    EXPECT_EQ(scene::with_slashes(path).find(scene::with_slashes(text("scratch/Tmp_"))), 0u)
        << path;
    for (const char *line :
         {"md5 one/x.dat", "base64 one/x.dat", "expand ~", "shell-quote ab", "scratch",
          "check plindra", "find x.dat -P one", "path show", "dos2unix -n one/x.dat"})
        json(line);
}

TEST_F(Files, TheUsersOwn)
{
    if (!qz::test::may_write_to_profile())
        GTEST_SKIP() << qz::test::kForeignProfile;
    const std::string directory = home() + "/Halcyra";
    expect({"expand $USERDATA", 0, (profile() + "\\Halcyra\n").c_str(), "", nullptr});
    expect({"expand -n $USERDATA", 0, (directory + "\n").c_str(), "", nullptr});
    expect({"web", 1, "not allowed\n", "", nullptr});
    touch(directory + "/.Tarvex_web_access_file");
    expect({"web", 0, "allowed\n", "", nullptr});
    json("web");
    std::filesystem::remove_all(directory);
}

TEST_F(Files, Base64OfManyChunks)
{
    std::string bytes(1000003, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * i >> 3);
    std::string encoded = run("base64", bytes).out;
    EXPECT_EQ(encoded.size(), (bytes.size() + 2) / 3 * 4 + 1);
    for (std::size_t at = 77; at < encoded.size(); at += 77)
        encoded.insert(at, 1, '\n');
    EXPECT_TRUE(run("base64 -d", encoded).out == bytes);
}

TEST_F(Files, LineEndings)
{
    write("dos", "a\r\nb\r\n");
    const Case cases[] = {
        {"dos2unix -n dos one/x.dat", 0, "would convert  dos\nunchanged  one/x.dat\n", "",                          nullptr},
        {"dos2unix dos no",           1, "converted  dos\n",                           "no: there is no such file", nullptr},
        {"dos2unix dos",              0, "unchanged  dos\n",                           "",                          nullptr},
    };
    expect_all(cases);
    EXPECT_EQ(read("dos"), "a\nb\n");
}

} // namespace
