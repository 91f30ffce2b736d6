#include "platform/native_path.h"
#include "qzfile.hpp"
#include "qzfile/qzpref/products.h"
#include "qzpref.hpp"

#include <QDir>
#include <QFile>
#include <boost/filesystem/path.hpp>

namespace {

// Up to this release the files lay below the home directory.
constexpr const char *kLastReleaseInHome = "2017-1";
constexpr const char *kSandboxVariable = "HALCYRA_QZPREF_SANDBOX";
constexpr const char *kMachineFile = "C:/ProgramData/Halcyra/suitepref.xml";
constexpr const char *kSuiteFile = "/config/suitepref.xml";

/// The spelling the system opens. A path that names nothing here keeps its text: a caller who shows
/// it shows what was asked for.
QString native(const QString &path)
{
    const std::string spelled = qz::platform::native_path(QFile::encodeName(path).toStdString());
    return spelled.empty() ? path : QFile::decodeName(QByteArray::fromStdString(spelled));
}

} // namespace

QString qzpref_config_path()
{
    if (qEnvironmentVariableIsSet(kSandboxVariable))
        return native(qEnvironmentVariable(kSandboxVariable) + QStringLiteral("/Halcyra"));
    return native(QFile::decodeName(
        QByteArray::fromStdString(qzfile_get_directory_path(DirectoryName::LocalAppData))));
}

namespace halcyra::preferences::internal {

std::string get_qzpref_directory(const std::string &release)
{
    QString base;
    if (compare_releases(release, kLastReleaseInHome) < 1) {
        base = qEnvironmentVariableIsSet(kSandboxVariable) ? qEnvironmentVariable(kSandboxVariable)
                                                           : QDir::homePath();
        base = native(base + QStringLiteral("/Halcyra"));
    } else {
        base = qzpref_config_path();
    }
    return (boost::filesystem::path(QFile::encodeName(base).toStdString()) / release).string();
}

QString get_qzpref_file(QZPREF_PRODUCTS product, const QString &release)
{
    const std::string release_name = release.toStdString();
    const QString directory =
        QFile::decodeName(QByteArray::fromStdString(get_qzpref_directory(release_name)));
    return directory + QDir::separator() +
           QString::fromStdString(qz::pref::file_name_of(product, release_name)) +
           QStringLiteral(".xml");
}

QString get_machine_preferences_path()
{
    if (qEnvironmentVariableIsSet("HALCYRA_MACHINE_PREFERENCE"))
        return native(qEnvironmentVariable("HALCYRA_MACHINE_PREFERENCE"));
    return QString::fromLatin1(kMachineFile);
}

QString get_suite_preferences_path()
{
    if (qEnvironmentVariableIsSet("HALCYRA_SITE_PREFERENCE"))
        return native(qEnvironmentVariable("HALCYRA_SITE_PREFERENCE"));
    return native(qEnvironmentVariable("HALCYRA") + QString::fromLatin1(kSuiteFile));
}

} // namespace halcyra::preferences::internal
