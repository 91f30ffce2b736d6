#ifndef QZ_QZPREF_PRODUCTS_H
#define QZ_QZPREF_PRODUCTS_H

#include "qzpref.h"

#include <string>
#include <string_view>

namespace qz::pref {

/// Whether @p product is one of the library's products.
bool is_product(QZPREF_PRODUCTS product);

/// The product of a name, compared without regard to case, or of a number in decimal.
/// @throw std::runtime_error when there is none.
QZPREF_PRODUCTS product_from_text(std::string_view text);

/// Base name of the product's preference file in @p release.
/// @throw std::out_of_range for a number that is no product.
const std::string &file_name_of(QZPREF_PRODUCTS product, const std::string &release);

} // namespace qz::pref

#endif
