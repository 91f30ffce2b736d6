#include "qzfile.h"
#include "qzfile/scene.h"
#include "qzfortran.h"

#include <algorithm>
#include <functional>

namespace {

/// A text as a Fortran program passes it: blanks up to the declared length, and no NUL.
std::string padded(std::string text, std::size_t length)
{
    text.resize(length, ' ');
    return text;
}

int length(const std::string &text)
{
    return static_cast<int>(text.size());
}

class FileEntries : public scene::Scene {
protected:
    FileEntries() { qzfile_path_set("."); }

    ~FileEntries() override { qzfile_path_clear(); }

    scene::Messages messages_;
    int status_ = -9;
};

TEST_F(FileEntries, Find)
{
    touch("abcdefgh");
    touch("abcdefghijklmnopqrstuvw");
    const std::string padded_name = padded("abcdefgh", 40);
    const std::string long_name = padded("abcdefghijklmnopqrstuvw", 40);
    const std::string ended = "abcdefgh" + std::string(1, '\0') + "xyz";
    const char *const too_long =
        "FATAL QZFILEF_FIND: fpath not long enough; need 25 chars, have 10";
    const char *const no_file =
        "INFO QZFILEF_FIND: qzfile_find() fails, cname=' abcdefgh', cpath=NULL\n";

    const struct {
        const char *why;
        std::string name, path; ///< the path of ten characters
        int status;
        const char *message;
    } cases[] = {
        {"blanks behind the name are stripped", padded_name, ".\\abcdefgh", 0,  ""      },
        {"a NUL ends the name",                 ended,       ".\\abcdefgh", 0,  ""      },
        {"a result that is too long is cut",    long_name,   ".\\abcdefgh", -1, too_long},
        {"nothing found, nothing stored",       " abcdefgh", "..........",  -1, no_file },
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        std::string path(10, '.');
        const int file = 0;
        QZFILEF_FIND(c.name.data(), &file, path.data(), &status_, length(c.name), length(path));
        EXPECT_EQ(status_, c.status);
        EXPECT_EQ(path, c.path);
        EXPECT_EQ(messages_.text(), c.message);
    }
}

TEST_F(FileEntries, BlanksFillTheRestOfAResult)
{
    set("QZ_TEST", "ab");
    std::string path(6, '.');
    QZFILEF_DIR_EXPAND("$QZ_TEST  ", path.data(), &status_, 10, length(path));
    EXPECT_EQ(status_, 0);
    EXPECT_EQ(path, "ab    ");
    QZFILEF_PATH_GET(path.data(), &status_, length(path));
    EXPECT_EQ(status_, 0);
    EXPECT_EQ(path, ".     ");
    QZFILEF_PATH_GET(path.data(), &status_, 1);
    EXPECT_EQ(status_, 0) << "as long as the variable is short enough";
    EXPECT_EQ(messages_.text(), "");
}

TEST_F(FileEntries, AnExpansionThatFailsIsStoredAsFarAsItGoes)
{
    std::string path(6, '.');
    QZFILEF_DIR_EXPAND("~no_such_user/ab", path.data(), &status_, 16, length(path));
    EXPECT_EQ(status_, -1);
    EXPECT_EQ(path, "/ab   ");
    EXPECT_NE(messages_.text().find("INFO QZFILEF_DIR_EXPAND: qzfile_dir_expand() fails, "
                                    "cname='~no_such_user/ab', cpath=/ab\n"),
              std::string::npos);
}

TEST_F(FileEntries, FailuresAreReportedOnceMore)
{
    const int file = 0;
    std::string blank = "    ";
    const std::pair<std::function<void(int *)>, std::string> cases[] = {
        {[&](int *status) { QZFILEF_EXISTS("a.b ", &file, status, 4); },
         "INFO QZFILEF_EXISTS: qzfile_exists() fails, cname='a.b'\n"                     },
        {[](int *status) { QZFILEF_PATH_IS_ABSOLUTE("a\\b ", status, 4); },
         "INFO QZFILEF_PATH_IS_ABSOLUTE: qzfile_path_is_absolute() fails, cname='a\\b'\n"},
        {[](int *status) { QZFILEF_PATH_ADD("  ", status, 2); },
         "FATAL QZFILEF_PATH_ADD: qzfile_path_add(), cpath= ''\n"                        },
        {[](int *status) { QZFILEF_PATH_SET("  ", status, 2); },
         "FATAL qzfilef_path_set: qzfile_path_set() fails, cpath = ''\n"                 },
        {[&](int *status) { QZFILEF_PATH_LOCALIZE(blank.data(), status, 4); },
         "INFO QZFILEF_PATH_LOCALIZE: fails, cpath=\n"                                   },
    };

    for (const auto &[call, last] : cases) {
        SCOPED_TRACE(last);
        status_ = -9;
        call(&status_);
        EXPECT_EQ(status_, -1);
        const std::string text = messages_.text();
        EXPECT_EQ(text.substr(text.size() - std::min(text.size(), last.size())), last);
    }
    EXPECT_EQ(blank, "    ");
}

TEST_F(FileEntries, AMissingWorkingDirectoryIsReportedByItsEntryPoint)
{
    const bool is_lost = lose_working_directory(); // some systems keep it
    QZFILEF_PATH_ADD_CWD(&status_);
    EXPECT_EQ(status_, is_lost ? -1 : 0);
    const char *const message = "FATAL QZFILEF_PATH_ADD_CWD: qzfile_path_add_cwd) fails\n";
    EXPECT_EQ(messages_.text().find(message) != std::string::npos, is_lost);
    std::filesystem::current_path(root_);
}

TEST_F(FileEntries, LocalizeConvertsAtMost1024Characters)
{
    const char *const too_long =
        "FATAL QZFILEF_PATH_LOCALIZE: cpath not long enough; need 1025 chars, have 1024";

    const struct {
        const char *why;
        std::size_t text_length, declared;
        int status;
        const char *message;
    } cases[] = {
        {"usual",                                                 5,    12,   0,  ""      },
        {"all of a long variable",                                1024, 1024, 0,  ""      },
        {"a longer variable is complained of, whatever it holds", 5,    1025, 0,  too_long},
        {"and cut",                                               1025, 1025, -1, too_long},
    };

    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        std::string path = padded(std::string(c.text_length, '/'), c.declared);
        QZFILEF_PATH_LOCALIZE(path.data(), &status_, length(path));
        const std::size_t turned = std::min<std::size_t>(c.text_length, 1024);
        EXPECT_EQ(status_, c.status);
        EXPECT_EQ(path, padded(std::string(turned, '\\'), c.declared));
        EXPECT_EQ(messages_.text(), c.message);
    }
}

} // namespace
