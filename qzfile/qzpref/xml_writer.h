#ifndef QZ_QZPREF_XML_WRITER_H
#define QZ_QZPREF_XML_WRITER_H

#include "qzfile/qzpref/key_record.h"

#include <QByteArray>
#include <QXmlStreamWriter>

#include <string>
#include <string_view>
#include <vector>

namespace qz::pref {

/// Writes keys, given in ascending order, as the text of a preference file.
class PreferenceWriter {
public:
    /// Starts a document at the end of @p text, which is borrowed until finish().
    explicit PreferenceWriter(QByteArray &text);

    void write(std::string_view key, const KeyRecord &record);
    /// Closes what is open. @return whether every character could be written.
    bool finish();

private:
    void leave(std::size_t levels);
    void write_value(std::string_view value);

    QXmlStreamWriter xml_;
    std::vector<std::string> open_; // names of the elements that are open below the root
};

} // namespace qz::pref

#endif
