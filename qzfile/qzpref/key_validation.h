#ifndef QZ_QZPREF_KEY_VALIDATION_H
#define QZ_QZPREF_KEY_VALIDATION_H

#include "qzpref.h"

#include <string>
#include <string_view>

namespace qz::pref {

/// Whether every '/'-separated component of @p key can name an XML element. A ':' is refused too:
/// it would be taken for the start of a platform suffix when the file is written; so is the name of
/// the root element, which the reader passes over.
/// @return QZPREF_SUCCESS_, or QZPREF_INVALID_KEY after a QZERR_WARNING on handler -1 that names
///         the component at fault.
QZpref_Err validate_key(std::string_view key);

/// Whether @p component can name an element below the root and holds no ':'.
bool is_key_component(const std::string &component);

/// Whether XML 1.0 can hold every character of @p utf8; most control characters it cannot.
bool is_xml_text(std::string_view utf8);

/// The spelling under which a key is kept: no empty components, no '/' at either end.
std::string normalized_key(std::string_view key);
/// Appends that spelling of @p key to @p text.
void append_normalized_key(std::string &text, std::string_view key);

} // namespace qz::pref

#endif
