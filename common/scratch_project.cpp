#include "platform/native_path.h"
#include "qzcommon.hpp"

#include <QDateTime>
#include <QLocale>
#include <boost/filesystem/path.hpp>

#include <cstdlib>
#include <stdexcept>

namespace {

/// "Tmp_14Nov2026_1736_06123": the local time to the millisecond, the month always in English.
std::string name_for(const QDateTime &time)
{
    const QString stamp = QLocale::c().toString(time, QStringLiteral("ddMMMyyyy_HHmm_sszzz"));
    return "Tmp_" + stamp.toStdString();
}

} // namespace

std::string qzcommon_get_scratch_project_path()
{
    const std::string name = name_for(QDateTime::currentDateTime());
    const char *const parent = std::getenv("HALCYRA_TEMP_PROJECT");
    if (parent == nullptr)
        throw std::runtime_error("HALCYRA_TEMP_PROJECT environment variable is not set.");

    // A path that names nothing on this system stays as it is written: without it, the name alone
    // would be taken for a project in the current directory.
    const std::string native = qz::platform::native_path(parent);
    boost::filesystem::path path(native.empty() ? parent : native.c_str());
    path /= name;
    return path.make_preferred().string();
}

std::string qzcommon_get_scratch_project_regular_expression()
{
    // The month is "[A-za-z]" in every release: programs compare the pattern itself.
    return "Tmp_([0-2][0-9]|3[01])[A-za-z]{1,4}([1-9][0-9]{3})"
           "_([01][0-9]|2[0-3])([0-5][0-9])_([0-5][0-9][0-9]{3})";
}
