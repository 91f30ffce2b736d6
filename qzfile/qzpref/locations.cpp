#include "qzfile/qzpref/locations.h"

#include "platform/native_path.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/user_directories.h"
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

/// Directory of the user's files of @p release, below @p base for all but the oldest.
template <typename Base> QString release_directory(const std::string &release, Base base)
{
    QString path;
    if (compare_releases(release, kLastReleaseInHome) >= 1) {
        path = base();
    } else {
        path = qEnvironmentVariableIsSet(kSandboxVariable) ? qEnvironmentVariable(kSandboxVariable)
                                                           : QDir::homePath();
        path = native(path + QStringLiteral("/Halcyra"));
    }
    const boost::filesystem::path joined =
        boost::filesystem::path(QFile::encodeName(path).toStdString()) / release;
    return QFile::decodeName(QByteArray::fromStdString(joined.string()));
}

QString file_in(const QString &directory, QZPREF_PRODUCTS product, const std::string &release)
{
    return directory + QDir::separator() +
           QString::fromStdString(qz::pref::file_name_of(product, release)) +
           QStringLiteral(".xml");
}

/// The sandbox that takes the place of the user's own directories; empty without one.
QString sandbox_path()
{
    if (!qEnvironmentVariableIsSet(kSandboxVariable))
        return {};
    return native(qEnvironmentVariable(kSandboxVariable) + QStringLiteral("/Halcyra"));
}

} // namespace

QString qzpref_config_path()
{
    const QString sandbox = sandbox_path();
    if (!sandbox.isEmpty())
        return sandbox;
    return native(QFile::decodeName(
        QByteArray::fromStdString(qzfile_get_directory_path(DirectoryName::LocalAppData))));
}

QString qz::pref::user_file_untouched(QZPREF_PRODUCTS product, const std::string &release)
{
    const QString directory = release_directory(release, [] {
        const QString sandbox = sandbox_path();
        if (!sandbox.isEmpty())
            return sandbox;
        const std::optional<std::string> local =
            qz::file::local_appdata_directory(qz::platform::MissingFolder::Leave);
        return native(QFile::decodeName(QByteArray::fromStdString(local.value_or(std::string()))));
    });
    return file_in(directory, product, release);
}

namespace halcyra::preferences::internal {

std::string get_qzpref_directory(const std::string &release)
{
    return QFile::encodeName(release_directory(release, qzpref_config_path)).toStdString();
}

QString get_qzpref_file(QZPREF_PRODUCTS product, const QString &release)
{
    const std::string release_name = release.toStdString();
    return file_in(release_directory(release_name, qzpref_config_path), product, release_name);
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
