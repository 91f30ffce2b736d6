#ifndef QZ_QZPREF_XML_WRITER_H
#define QZ_QZPREF_XML_WRITER_H

#include "qzfile/qzpref/key_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace qz::pref {

/// Writes keys, given in ascending order, as the text of a preference file: byte for byte what Qt's
/// XML writer makes of them, at a fraction of its cost. Carriage returns and hyphens in a comment,
/// which that one writes so that they are not read again, are the exception.
///
/// Names must be element names and texts must be XML 1.0 characters in UTF-8; whoever sets a key
/// has made sure of it.
class PreferenceWriter {
public:
    /// Starts a document at the end of @p text, which is borrowed until finish().
    explicit PreferenceWriter(std::string &text);

    void write(std::string_view key, const KeyRecord &record);
    /// Closes what is open.
    void finish();

private:
    void start_line();
    void write_comment(std::string_view comment);
    void write_attribute(std::string_view name, std::string_view value);
    void leave(std::size_t levels);

    std::string &text_;
    // Elements that are open below the root; the last one holds a value, the others are groups.
    std::vector<std::string> open_;
    bool any_key_ = false;
    bool holds_value_ = false; // the last element that was opened is that of a value, still open
};

} // namespace qz::pref

#endif
