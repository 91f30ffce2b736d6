#ifndef QZ_QZFILE_PRODUCTS_H
#define QZ_QZFILE_PRODUCTS_H

#include <string_view>

namespace qz::file {

/// A product of the suite: the word that begins its directory's name, and its version.
struct Product {
    std::string_view word;
    int version;
};

/// The product of that exact word, or null.
const Product *find_product(std::string_view word);

/// Whether the word names something that may have a directory in the installation: a product, or
/// one of the few directories beside them.
bool is_installable(std::string_view word);

} // namespace qz::file

#endif
