#include "platform/native_path.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/installation_root.h"
#include "qzfile/qzfile/qzfile/products.h"

#include <QDir>
#include <QFile>

#include <stdexcept>
#include <string>

using qz::platform::native_path;

namespace halcyra::path {

boost::filesystem::path halcyra_dir()
{
    return native_path(qz::file::installation_root());
}

boost::filesystem::path home()
{
    return QFile::encodeName(QDir::homePath()).toStdString();
}

boost::filesystem::path product_dir(const std::string &product)
{
    if (!qz::file::is_installable(product))
        throw std::out_of_range("Invalid product: " + product);
    return native_path(qzfile_get_product_dir_path(product));
}

boost::filesystem::path get_atelio_data_res_directory_file(const std::string &file)
{
    return native_path(qzfile_get_product_dir_path("atelio") + "\\data\\res\\" + file);
}

boost::filesystem::path get_plindra_data_atelio_directory_file(const std::string &file)
{
    return native_path(qzfile_get_product_dir_path("plindra") + "\\data\\atelio\\" + file);
}

} // namespace halcyra::path
