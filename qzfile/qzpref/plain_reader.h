#ifndef QZ_QZPREF_PLAIN_READER_H
#define QZ_QZPREF_PLAIN_READER_H

#include "qzfile/qzpref/document.h"

#include <string_view>

namespace qz::pref {

/// Reads a preference file's text in the plain form in which this library writes it, many times
/// faster than a complete XML parser.
///
/// It accepts only what it is sure of: UTF-8, elements with ASCII names and few attributes, text
/// with the five predefined entities, comments. For whatever it accepts the keys are those of the
/// complete parser.
///
/// @return false when the text has anything else in it or is damaged; @p document then holds an
///         arbitrary part of the keys, and the complete parser has to decide.
bool read_plain(std::string_view text, Document &document);

} // namespace qz::pref

#endif
