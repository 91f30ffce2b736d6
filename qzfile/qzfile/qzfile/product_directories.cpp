#include "qzerr.h"
#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/directory_listing.h"
#include "qzfile/qzfile/qzfile/installation_root.h"

#include <stdexcept>
#include <string>

using namespace qz::file;

namespace {

/// What follows the product's word in the name of its directory.
constexpr char kVersionPattern[] = "-v[0-9]+(.[0-9]+)?$";

int find_product_directory(const char *product, char **out)
{
    const std::string root = installation_root();
    DirectoryListing listing;
    if (!listing.open(root.c_str())) {
        qzerr_throw(-1, QZERR_FATAL, "Cannot open %s\n", root.c_str());
        return -1;
    }
    if (!listing.set_filter((std::string("^") + product + kVersionPattern).c_str()))
        return -1;
    // An installation carries one directory for each product, so the first is the one.
    const std::string directory(listing.next());
    if (directory.empty())
        return -1;
    *out = qzfile_add_component(root.c_str(), directory.c_str());
    return *out ? 0 : -1;
}

} // namespace

int qzfile_find_product_dir(const char *product, char **out)
{
    return handing_out(out, [&] { return product ? find_product_directory(product, out) : -1; });
}

std::string qzfile_get_product_dir_path(const std::string &product)
{
    char *directory = nullptr;
    const int status = qzfile_find_product_dir(product.c_str(), &directory);
    const CText owned(directory);
    if (status != 0 || !*or_empty(directory))
        throw std::runtime_error("Failure getting the product directory");
    return directory;
}
