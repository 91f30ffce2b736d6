/** @file
 *  String and path forms of the file and layout functions, release order.
 */
#ifndef QZFILESHARED_QZFILE_HPP
#define QZFILESHARED_QZFILE_HPP

#include "qzexport.h"
#include "qzfile.h"

#include <boost/filesystem/path.hpp>

#include <list>
#include <string>
#include <unordered_set>
#include <vector>

class QZ_API QZFileContext {
public:
    QZFileContext();
    ~QZFileContext();
};
enum class DirectoryName : int {
    Home = 1,
    AppData,
    LocalAppData,
    UserData,
    Temp,
    Desktop,
    MyDocuments,
    MyNetworkPlaces
};
enum class AtelioScriptsPathType : int {
    UserMenuFile = 1,
    UserScriptsDir,
    SystemMenuFile,
    SystemScriptsDir
};
QZ_API std::string qzfile_get_product_dir_path(const std::string &product);
QZ_API std::vector<std::string> qzfile_get_product_directory_names();
QZ_API std::string qzfile_get_directory_path(DirectoryName which);
QZ_API std::string qzfile_get_atelio_scripts_path(AtelioScriptsPathType type);
QZ_API std::string qzfile_get_appdata_release_dir_path();
QZ_API std::string qzfile_get_config_dir();
QZ_API const std::list<std::string> &qzfile_get_past_release_names();
QZ_API int compare_releases(std::string a, std::string b);

namespace halcyra {
QZ_API const std::string &release_name();
QZ_API int plindra_version();

namespace path {
QZ_API boost::filesystem::path halcyra_dir();
QZ_API boost::filesystem::path home();
QZ_API boost::filesystem::path product_dir(const std::string &product);
QZ_API boost::filesystem::path get_atelio_data_res_directory_file(const std::string &file);
QZ_API boost::filesystem::path get_plindra_data_atelio_directory_file(const std::string &file);
QZ_API std::vector<boost::filesystem::path> get_all_files_with_suffix(const std::string &directory,
                                                                      const std::string &suffix);
QZ_API std::string get_unique_file_name(const std::string &suffix);
QZ_API boost::filesystem::path get_unique_temporary_file_path(const std::string &suffix);
} // namespace path
} // namespace halcyra

namespace test {
QZ_API std::unordered_set<std::string> get_product_names();
}

#endif
