/** @file
 *  String and path forms of the file and layout functions, release order.
 *
 *  A std::string holds a path as qzfile.h spells it, with '\\'. A boost::filesystem::path is
 *  native: the system's own calls take it as it is. Failures are thrown; what a plain function
 *  underneath reports on error handler -1 appears as well.
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

/// Calls qzfile_initialize() and, at the end of its scope, qzfile_terminate().
class QZ_API QZFileContext {
public:
    QZFileContext();
    ~QZFileContext();
};

/// The directories of a user, for qzfile_get_directory_path().
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

/// The script menus and directories of the workbench, for qzfile_get_atelio_scripts_path().
enum class AtelioScriptsPathType : int {
    UserMenuFile = 1,
    UserScriptsDir,
    SystemMenuFile,
    SystemScriptsDir
};

/**
 * The directory of a product, as qzfile_find_product_dir() finds it.
 *
 * @param product  The product's word.
 * @return the directory, never empty.
 * @throws std::runtime_error  "Failure getting the product directory".
 */
QZ_API std::string qzfile_get_product_dir_path(const std::string &product);

/// The words of all products of the suite, installed or not, sorted.
QZ_API std::vector<std::string> qzfile_get_product_directory_names();

/**
 * A directory of the user, as the function of qzfile.h gives it: the home directory, application
 * data, local application data, user data, temporary files, desktop, documents, network places.
 *
 * @param which  The directory.
 * @return the directory.
 * @throws std::runtime_error  "Failure from method getting path", when the function fails and for
 *                             any other value.
 */
QZ_API std::string qzfile_get_directory_path(DirectoryName which);

/**
 * A script menu or directory of the workbench: of the user, in the release's directory, or of the
 * installation, in the directory of the shared components. It need not be there.
 *
 * @param type  The menu or directory.
 * @return the path.
 * @throws std::runtime_error  "Failure getting the appdata/release directory" or "Failure getting
 *                             the product directory"; "Invalid script path type specified." for any
 *                             other value.
 */
QZ_API std::string qzfile_get_atelio_scripts_path(AtelioScriptsPathType type);

/**
 * The directory of the current release, as qzfile_get_appdata_release_dir() gives it.
 *
 * @return the directory, never empty.
 * @throws std::runtime_error  "Failure getting the appdata/release directory".
 */
QZ_API std::string qzfile_get_appdata_release_dir_path();

/// "config" in the installation root, the value of HALCYRA; it need not be there.
QZ_API std::string qzfile_get_config_dir();

/// Every release, newest first, from the current one on. Borrowed until the process ends; any
/// number of threads may call it.
QZ_API const std::list<std::string> &qzfile_get_past_release_names();

/**
 * Which of two releases is the newer one, by their places in qzfile_get_past_release_names().
 * Unknown names, later releases included, count as older than all and as one.
 *
 * @param a  A release name, compared byte for byte.
 * @param b  Another.
 * @return 1 when @p a is newer, -1 when it is older, 0 when both hold the same place. Any number of
 *         threads may call it.
 */
QZ_API int compare_releases(std::string a, std::string b);

namespace halcyra {
/// The release that the library belongs to. Borrowed until the process ends; any number of threads
/// may call it.
QZ_API const std::string &release_name();

/// The version of the shared components in this release.
QZ_API int plindra_version();

namespace path {
/// The installation root, the value of HALCYRA, unchecked; empty when it is not set.
QZ_API boost::filesystem::path halcyra_dir();

/// The user's home directory as Qt gives it.
QZ_API boost::filesystem::path home();

/**
 * The directory of a product, as qzfile_get_product_dir_path() finds it.
 *
 * @param product  The word of a product, or "sample_data" or "site_scripts", which may lie beside
 *                 the products.
 * @return the directory.
 * @throws std::out_of_range   "Invalid product: " and the name, for any other name.
 * @throws std::runtime_error  "Failure getting the product directory".
 */
QZ_API boost::filesystem::path product_dir(const std::string &product);

/**
 * A file in "data/res" of the product atelio; it need not be there.
 *
 * @param file  The file's name.
 * @return the path.
 * @throws std::runtime_error  "Failure getting the product directory".
 */
QZ_API boost::filesystem::path get_atelio_data_res_directory_file(const std::string &file);

/**
 * A file in "data/atelio" of the product plindra; it need not be there.
 *
 * @param file  The file's name.
 * @return the path.
 * @throws std::runtime_error  "Failure getting the product directory".
 */
QZ_API boost::filesystem::path get_plindra_data_atelio_directory_file(const std::string &file);

/**
 * The regular files directly in a directory whose names end in a suffix. A link counts as what it
 * points to.
 *
 * @param directory  The directory.
 * @param suffix     The last bytes of the names, compared as they are.
 * @return the paths, in the system's order.
 * @throws boost::filesystem::filesystem_error  "directory_iterator::directory_iterator",
 *         "directory_iterator::operator++" or "status", the step that failed, with the path.
 */
QZ_API std::vector<boost::filesystem::path> get_all_files_with_suffix(const std::string &directory,
                                                                      const std::string &suffix);

/**
 * A random name, such as "3f0a-99c1-07be-d452". Nothing is made, and nothing is looked up.
 *
 * @param suffix  What follows the 19 characters.
 * @return the name. Any number of threads may call it.
 */
QZ_API std::string get_unique_file_name(const std::string &suffix);

/**
 * A name of get_unique_file_name() in the directory for temporary files, which is made when it is
 * missing; the file is not.
 *
 * @param suffix  What follows the 19 characters of the name.
 * @return the path.
 * @throws std::runtime_error  "Failure from method getting path".
 */
QZ_API boost::filesystem::path get_unique_temporary_file_path(const std::string &suffix);
} // namespace path
} // namespace halcyra

namespace test {
/// The words of qzfile_get_product_directory_names() as a set.
QZ_API std::unordered_set<std::string> get_product_names();
} // namespace test

#endif
