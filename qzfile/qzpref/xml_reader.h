#ifndef QZ_QZPREF_XML_READER_H
#define QZ_QZPREF_XML_READER_H

#include "qzfile/qzpref/key_record.h"

#include <QByteArray>

#include <functional>
#include <string>

namespace qz::pref {

/// Takes one key with its record, in the order of the file; a key may come again.
using KeySink = std::function<void(const std::string &key, const KeyRecord &record)>;

/// Reads a preference file's text and hands every key to @p sink.
///
/// @return false after a warning on Qt's message log when the text is not well-formed XML 1.0, or
///         when its nesting makes keys out of all proportion to its size; keys found so far have
///         been handed over. Time and memory grow no faster than the text.
bool read_preferences(const QByteArray &text, const KeySink &sink);

} // namespace qz::pref

#endif
