// An account without the folders that the system keeps for it: the function below stands in the
// place of the question for them.

#include "platform/shell_folders.h"
#include "qzfile/scene.h"

using scene::Messages;
using MissingFolders = scene::Scene;

std::optional<std::string> qz::platform::shell_folder(ShellFolder, MissingFolder)
{
    return std::nullopt;
}

TEST_F(MissingFolders, AreSaid)
{
    const std::string local = "halcyra_local_appdata_dir: Unable to get local appdata";
    const std::string temp = "get_halcyra_temp: Unable to get local appdata";

    const std::pair<int (*)(char **), std::string> cases[] = {
        {qzfile_halcyra_appdata_dir,       "halcyra_appdata_dir: Unable to get appdata"             },
        {qzfile_halcyra_local_appdata_dir, local                                                    },
        {qzfile_halcyra_userdata_dir,      "halcyra_userdata_dir: Unable to get userdata"           },
        {qzfile_get_halcyra_temp,          local + " directory\nWARNING qzfile_" + temp             },
        {qzfile_get_desktop_dir,           "get_desktop_dir: Unable to get desktop"                 },
        {qzfile_get_mydocuments_dir,       "halcyra_mydocuments_dir: Unable to get my documents"    },
        {qzfile_get_mynetworkplaces_dir,   "halcyra_mynetworkplaces_dir: Unable to get my documents"},
    };

    for (const auto &[function, said] : cases) {
        Messages messages;
        EXPECT_EQ(scene::given_by(function), "(null)");
        EXPECT_EQ(messages.text(), "WARNING qzfile_" + said + " directory\n");
    }
}
