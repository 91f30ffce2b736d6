#include "qzfile/qzfile/qzfile/user_directories.h"

#include "platform/shell_folders.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/failure.h"

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

using namespace qz::file;
using qz::platform::MissingFolder;
using qz::platform::shell_folder;
using qz::platform::ShellFolder;

namespace {

/// Makes a directory that may be missing and hands its name out.
int hand_out_made(const std::string &directory, char **out)
{
    const int status = qzfile_mkdir(directory.c_str(), 0755);
    return status == 0 ? hand_out(directory, out) : status;
}

int hand_out_shell_folder(ShellFolder folder, const char *message, char **out)
{
    return handing_out(out, [&] {
        const std::optional<std::string> path = shell_folder(folder);
        return path ? hand_out(*path, out) : fail("%s", message);
    });
}

constexpr const char *kAppDataOverride = "HALCYRA_APPDATA_OVERRIDE";

/// The maker's directory in a shell folder, or what @p override_variable holds in its place.
std::optional<std::string> maker_directory(ShellFolder folder, const char *override_variable,
                                           MissingFolder missing)
{
    const std::optional<std::string> path = shell_folder(folder, missing);
    if (!path)
        return std::nullopt;
    const char *replacement = override_variable ? std::getenv(override_variable) : nullptr;
    return replacement ? replacement : *path + "\\Halcyra";
}

int hand_out_maker_directory(ShellFolder folder, const char *override_variable, const char *message,
                             char **out)
{
    return handing_out(out, [&] {
        const std::optional<std::string> directory =
            maker_directory(folder, override_variable, MissingFolder::Make);
        return directory ? hand_out_made(*directory, out) : fail("%s", message);
    });
}

int hand_out_temporary_directory(char **out)
{
    if (const char *directory = std::getenv("HALCYRA_TMPDIR"))
        return hand_out_made(directory, out);
    char *appdata = nullptr;
    const int status = qzfile_halcyra_local_appdata_dir(&appdata);
    const CText owned(appdata);
    if (status != 0)
        return fail("qzfile_get_halcyra_temp: Unable to get local appdata directory\n");
    return hand_out_made(std::string(appdata) + "\\tmp", out);
}

} // namespace

std::optional<std::string> qz::file::local_appdata_directory(MissingFolder missing)
{
    return maker_directory(ShellFolder::LocalAppData, kAppDataOverride, missing);
}

int qzfile_halcyra_appdata_dir(char **out)
{
    return hand_out_maker_directory(ShellFolder::RoamingAppData, kAppDataOverride,
                                    "qzfile_halcyra_appdata_dir: Unable to get appdata directory\n",
                                    out);
}

int qzfile_halcyra_local_appdata_dir(char **out)
{
    return hand_out_maker_directory(
        ShellFolder::LocalAppData, kAppDataOverride,
        "qzfile_halcyra_local_appdata_dir: Unable to get local appdata directory\n", out);
}

int qzfile_halcyra_userdata_dir(char **out)
{
    return hand_out_maker_directory(
        ShellFolder::Profile, nullptr,
        "qzfile_halcyra_userdata_dir: Unable to get userdata directory\n", out);
}

int qzfile_get_halcyra_temp(char **out)
{
    return handing_out(out, [&] { return hand_out_temporary_directory(out); });
}

int qzfile_get_desktop_dir(char **out)
{
    return hand_out_shell_folder(ShellFolder::Desktop,
                                 "qzfile_get_desktop_dir: Unable to get desktop directory\n", out);
}

// The last two messages do not name their functions; programs that read logs know them so.
int qzfile_get_mydocuments_dir(char **out)
{
    return hand_out_shell_folder(
        ShellFolder::Documents,
        "qzfile_halcyra_mydocuments_dir: Unable to get my documents directory\n", out);
}

int qzfile_get_mynetworkplaces_dir(char **out)
{
    return hand_out_shell_folder(
        ShellFolder::NetworkPlaces,
        "qzfile_halcyra_mynetworkplaces_dir: Unable to get my documents directory\n", out);
}

std::string qzfile_get_directory_path(DirectoryName which)
{
    constexpr int (*kFunctions[])(char **) = {qzfile_dir_home,
                                              qzfile_halcyra_appdata_dir,
                                              qzfile_halcyra_local_appdata_dir,
                                              qzfile_halcyra_userdata_dir,
                                              qzfile_get_halcyra_temp,
                                              qzfile_get_desktop_dir,
                                              qzfile_get_mydocuments_dir,
                                              qzfile_get_mynetworkplaces_dir};
    char *directory = nullptr;
    if (which >= DirectoryName::Home && which <= DirectoryName::MyNetworkPlaces &&
        kFunctions[static_cast<int>(which) - 1](&directory) == 0 && directory)
        return CText(directory).get();
    throw std::runtime_error("Failure from method getting path");
}
