#ifndef QZ_QZPREF_ERROR_TEXT_H
#define QZ_QZPREF_ERROR_TEXT_H

#include "qzpref.h"

namespace qz::pref {

/// What a store code says to a user; empty for those that are answers rather than failures.
const char *error_text(QZpref_Err code);

} // namespace qz::pref

#endif
