#ifndef QZ_QZPREF_LOCATIONS_H
#define QZ_QZPREF_LOCATIONS_H

#include "qzpref.h"

#include <QString>

#include <string>

namespace qz::pref {

/// As get_qzpref_file(), and no directory on the way is made.
QString user_file_untouched(QZPREF_PRODUCTS product, const std::string &release);

} // namespace qz::pref

#endif
