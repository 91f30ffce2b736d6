#pragma once

#include "qzerr.hpp"
#include "qzfile.h"
#include "thrown.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>

namespace scene {

/// @p path with '/' wherever the system takes it for the same as '\\'.
inline std::string with_slashes(std::string path)
{
    if (std::filesystem::path::preferred_separator == '\\')
        std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

/// Everything reported on the module's handler meanwhile, whatever its level.
class Messages {
public:
    Messages() { qzerr_level(-1, QZERR_BUMMER); }

    ~Messages() { qzerr_level(-1, QZERR_WARNING); }

    std::string text() { return capture_.getMessages(); }

private:
    halcyra::qzlibs::CaptureQZErr capture_{-1};
};

/// Takes over text that a function handed out; "(null)" for none.
inline std::string taken(char *text)
{
    const std::string copy = text ? text : "(null)";
    std::free(text);
    return copy;
}

using qz::test::thrown;

/// The text that a function gives by its last argument, or "(null)"; its result must say which.
template <typename... Parameters, typename... Arguments>
std::string given_by(int (*function)(Parameters...), Arguments... arguments)
{
    char *out = nullptr;
    const int status = function(arguments..., &out);
    EXPECT_EQ(status, out ? 0 : -1);
    return taken(out);
}

/// A directory of its own that is the working directory and holds the user's home; variables that
/// steer the library are set for the test alone.
class Scene : public testing::Test {
protected:
    Scene()
    {
        root_ = std::filesystem::canonical(directory_.path().toStdString());
        std::filesystem::current_path(root_);
        set("HOME", (root_ / "home").string());
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "HALCYRA",
                                     "HALCYRA_APPDATA_OVERRIDE", "HALCYRA_TMPDIR"})
            unset(variable);
    }

    ~Scene() override
    {
        for (const auto &[variable, value] : kept_) {
            if (value)
                qputenv(variable.c_str(), value->c_str());
            else
                qunsetenv(variable.c_str());
        }
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

    void set(const std::string &variable, const std::string &value)
    {
        keep(variable);
        qputenv(variable.c_str(), value.c_str());
    }

    void unset(const std::string &variable)
    {
        keep(variable);
        qunsetenv(variable.c_str());
    }

    /// Makes a file and its directories.
    void write(const std::filesystem::path &file, const std::string &bytes) const
    {
        const auto path = root_ / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    void touch(const std::filesystem::path &file) const { write(file, ""); }

    std::string read(const std::filesystem::path &file) const
    {
        std::ifstream stream(root_ / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// Makes a link; false where the user has no right to.
    bool link(const std::filesystem::path &target, const std::filesystem::path &name) const
    {
        std::error_code refused;
        if (std::filesystem::is_directory(root_ / target))
            std::filesystem::create_directory_symlink(root_ / target, root_ / name, refused);
        else
            std::filesystem::create_symlink(root_ / target, root_ / name, refused);
        return !refused;
    }

    /// Leaves a working directory that is gone; false where the system keeps it.
    bool lose_working_directory() const
    {
        std::filesystem::create_directory(root_ / "gone");
        std::filesystem::current_path(root_ / "gone");
        std::error_code refused;
        return std::filesystem::remove(root_ / "gone", refused);
    }

    /// Whether something is there, links not followed; the name as the library takes it.
    bool is_there(const std::string &name) const
    {
        const QFileInfo info(QDir(directory_.path()), QFile::decodeName(name.c_str()));
        return info.exists() || info.isSymLink();
    }

    std::string text(const std::string &name) const
    {
        return root_.string() + static_cast<char>(std::filesystem::path::preferred_separator) +
               name;
    }

    /// The user's home: in the scene where a variable names it, else the account's own.
    static std::string home() { return QDir::homePath().toLocal8Bit().toStdString(); }

    /// The same as the system spells it.
    static std::string profile()
    {
        return QDir::toNativeSeparators(QDir::homePath()).toLocal8Bit().toStdString();
    }

    /// Names the directory for temporary files by every variable that a system looks at.
    void set_temporary_directory(const std::string &directory)
    {
        for (const char *variable : {"TMPDIR", "TMP", "TEMP"})
            set(variable, directory);
    }

private:
    QTemporaryDir directory_;

protected:
    std::filesystem::path root_;

private:
    void keep(const std::string &variable)
    {
        if (kept_.count(variable))
            return;
        const char *value = std::getenv(variable.c_str());
        kept_[variable] = value ? std::optional<std::string>(value) : std::nullopt;
    }

    std::map<std::string, std::optional<std::string>> kept_;
};

} // namespace scene
