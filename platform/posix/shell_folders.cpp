#include "platform/shell_folders.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace qz::platform {

namespace {

struct DesktopRule {
    QStandardPaths::StandardLocation location;
    bool is_made;
};

DesktopRule desktop_rule(ShellFolder folder)
{
    switch (folder) {
    case ShellFolder::RoamingAppData:
        return {QStandardPaths::GenericConfigLocation, true};
    case ShellFolder::LocalAppData:
        return {QStandardPaths::GenericDataLocation, true};
    case ShellFolder::Profile:
        return {QStandardPaths::HomeLocation, true};
    case ShellFolder::Desktop:
        return {QStandardPaths::DesktopLocation, false};
    case ShellFolder::Documents:
        return {QStandardPaths::DocumentsLocation, false};
    case ShellFolder::NetworkPlaces:
        break;
    }
    return {QStandardPaths::PublicShareLocation, false};
}

} // namespace

std::optional<std::string> shell_folder(ShellFolder folder, MissingFolder missing)
{
    const DesktopRule rule = desktop_rule(folder);
    const QString path = QStandardPaths::writableLocation(rule.location);
    if (path.isEmpty())
        return std::nullopt;
    if (missing == MissingFolder::Make && rule.is_made && !QDir().mkpath(path))
        return std::nullopt;
    return QFile::encodeName(path).toStdString();
}

} // namespace qz::platform
