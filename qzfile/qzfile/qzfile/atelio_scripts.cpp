#include "qzfile.hpp"

#include <stdexcept>
#include <string>

std::string qzfile_get_atelio_scripts_path(AtelioScriptsPathType type)
{
    switch (type) {
    case AtelioScriptsPathType::UserMenuFile:
        return qzfile_get_appdata_release_dir_path() + "\\atelio\\scriptsx.mnu";
    case AtelioScriptsPathType::UserScriptsDir:
        return qzfile_get_appdata_release_dir_path() + "\\scriptsx";
    case AtelioScriptsPathType::SystemMenuFile:
        return qzfile_get_product_dir_path("plindra") + "\\python\\common\\scriptsx.mnu";
    case AtelioScriptsPathType::SystemScriptsDir:
        return qzfile_get_product_dir_path("plindra") + "\\python\\common";
    }
    throw std::runtime_error("Invalid script path type specified.");
}
