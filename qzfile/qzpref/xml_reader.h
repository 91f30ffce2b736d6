#ifndef QZ_QZPREF_XML_READER_H
#define QZ_QZPREF_XML_READER_H

#include "qzfile/qzpref/document.h"

#include <QByteArray>

namespace qz::pref {

/// Reads a preference file's text into @p document, which is empty before.
///
/// @return false after a warning on Qt's message log when the text is not well-formed XML 1.0, or
///         when its nesting makes keys out of all proportion to its size; @p document then holds
///         the keys found so far. Time and memory grow no faster than the text.
bool read_preferences(const QByteArray &text, Document &document);

/// As read_preferences(), always through the complete XML parser.
bool read_xml(const QByteArray &text, Document &document);

} // namespace qz::pref

#endif
