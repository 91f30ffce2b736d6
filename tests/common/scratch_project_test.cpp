#include "qzcommon.hpp"
#include "qzfile/scene.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace {

constexpr const char *kVariable = "HALCYRA_TEMP_PROJECT";

std::string with_separators(std::string text)
{
    std::replace(text.begin(), text.end(), '|',
                 static_cast<char>(std::filesystem::path::preferred_separator));
    return text;
}

TEST(ScratchProject, NameInEachParent)
{
    const struct {
        const char *why, *value, *parent; // '|' stands for the system's own separator
    } cases[] = {
        {"a separator comes between",              "|data|jobs", "|data|jobs|"},
        {"unless there is one",                    "/data/",     "|data|"     },
        {"slashes become the system's separator",  "/data/jobs", "|data|jobs|"},
        {"backslashes separate everywhere",        "data\\jobs", "data|jobs|" },
        {"a drive is kept where it names nothing", "C:\\data",   "C:\\data|"  },
    };

    const std::regex pattern(qzcommon_get_scratch_project_regular_expression());
    for (const auto &c : cases) {
        SCOPED_TRACE(c.why);
        qputenv(kVariable, with_separators(c.value).c_str());
        const std::string path = qzcommon_get_scratch_project_path();
        const std::string parent = with_separators(c.parent);
        ASSERT_EQ(path.substr(0, parent.size()), parent);
        EXPECT_TRUE(std::regex_match(path.substr(parent.size()), pattern)) << path;
    }
}

TEST(ScratchProject, NameIsTheLocalTimeInEnglish)
{
    qputenv(kVariable, "x");
    QLocale::setDefault(QLocale(QLocale::Greek));
    const QDateTime before = QDateTime::currentDateTime();
    const QString path = QString::fromStdString(qzcommon_get_scratch_project_path());
    const QDateTime after = QDateTime::currentDateTime();
    QLocale::setDefault(QLocale::c());

    const QDateTime named =
        QLocale::c().toDateTime(path.mid(2), QStringLiteral("'Tmp_'ddMMMyyyy_HHmm_sszzz"));
    ASSERT_TRUE(named.isValid()) << path.toStdString();
    EXPECT_LE(before, named);
    EXPECT_LE(named, after);
}

TEST(ScratchProject, NoParent)
{
    qunsetenv(kVariable);
    EXPECT_EQ(scene::thrown<std::runtime_error>(qzcommon_get_scratch_project_path),
              "HALCYRA_TEMP_PROJECT environment variable is not set.");
}

TEST(ScratchProject, Pattern)
{
    const std::pair<const char *, bool> names[] = {
        {"Tmp_14Nov2026_1736_06123",   true },
        {"Tmp_31[_^`2026_2359_59999",  true }, // the month may be punctuation
        {"Tmp_31N2026_2359_59999",     true }, // or one letter
        {"Tmp_14Novem2026_1736_06123", false},
        {"Tmp_32Nov2026_1736_06123",   false},
        {"Tmp_14Nov0999_1736_06123",   false},
        {"Tmp_14Nov2026_2436_06123",   false},
        {"Tmp_14Nov2026_1736_60123",   false},
        {"Tmp_14Nov2026_1736_06",      false},
    };

    const std::string pattern = qzcommon_get_scratch_project_regular_expression();
    EXPECT_EQ(pattern.size(), 102U) << "programs compare the pattern itself";
    for (const auto &[name, is_found] : names) {
        const std::string text = std::string("/a/") + name + ".d";
        std::smatch match;
        std::regex_search(text, match, std::regex(pattern));
        EXPECT_EQ(match.str(), is_found ? name : "") << name;
    }
}

} // namespace
