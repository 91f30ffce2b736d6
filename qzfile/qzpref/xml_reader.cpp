#include "qzfile/qzpref/xml_reader.h"

#include "qzfile/qzpref/plain_reader.h"

#include <QDebug>
#include <QXmlStreamReader>

#include <vector>

namespace qz::pref {

namespace {

constexpr QStringView kRootElement = u"ApplicationSettings";
constexpr QStringView kPlatformAttribute = u"os";

// Keys repeat the names of all elements around them, so a few bytes of nesting can ask for
// gigabytes of keys. What people and programs write stays far below a hundred bytes of key per
// byte of file.
constexpr std::size_t kKeyBytesAllowed = 64u << 20;
constexpr std::size_t kKeyBytesPerByteOfText = 64;

void append_utf8(std::string &out, QStringView text)
{
    const std::size_t start = out.size();
    out.resize(start + static_cast<std::size_t>(text.size()));
    char *to = out.data() + start;
    for (const QChar c : text) {
        if (c.unicode() >= 0x80) {
            out.resize(start);
            const QByteArray utf8 = text.toUtf8();
            out.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
            return;
        }
        *to++ = static_cast<char>(c.unicode());
    }
}

std::string to_utf8(QStringView text)
{
    std::string out;
    append_utf8(out, text);
    return out;
}

/// Turns the tokens of the document into keys and records.
class PreferenceParser {
public:
    PreferenceParser(const QByteArray &text, Document &document)
        : xml_(text), document_(document),
          key_bytes_left_(kKeyBytesAllowed +
                          kKeyBytesPerByteOfText * static_cast<std::size_t>(text.size()))
    {}

    bool run()
    {
        while (!xml_.atEnd()) {
            switch (xml_.readNext()) {
            case QXmlStreamReader::Comment:
                pending_comment_ = to_utf8(xml_.text());
                break;
            case QXmlStreamReader::StartElement:
                start_element();
                break;
            case QXmlStreamReader::EndElement:
                end_element();
                break;
            case QXmlStreamReader::Characters:
                characters();
                break;
            default:
                break;
            }
            if (xml_.hasError()) {
                qWarning().noquote()
                    << "! Error parsing XML configuration file" << xml_.errorString();
                return false;
            }
        }
        return true;
    }

private:
    void start_element()
    {
        record_ = KeyRecord();
        if (xml_.name() == kRootElement)
            return;
        starts_.push_back(key_.size());
        if (starts_.size() > 1)
            key_ += '/';
        append_utf8(key_, xml_.name());
        for (const QXmlStreamAttribute &attribute : xml_.attributes()) {
            if (attribute.name() == kPlatformAttribute) {
                key_ += ":os=";
                append_utf8(key_, attribute.value());
            } else {
                record_.set_attribute(to_utf8(attribute.name()), to_utf8(attribute.value()));
            }
        }
        if (!pending_comment_.empty()) {
            record_.set_comment(std::move(pending_comment_));
            pending_comment_.clear();
        }
    }

    void end_element()
    {
        if (xml_.name() == kRootElement || starts_.empty())
            return;
        const std::size_t start = starts_.back();
        const std::string_view entry =
            std::string_view(key_).substr(starts_.size() > 1 ? start + 1 : start);
        if (to_utf8(xml_.name()) != entry.substr(0, entry.find(':'))) {
            qWarning().noquote() << "! Error, this endElement was" << xml_.name() << ", not"
                                 << QString::fromUtf8(entry.data(), qsizetype(entry.size()));
        }
        key_.resize(start);
        starts_.pop_back();
    }

    void characters()
    {
        // Text of the root belongs to no key: one without a name could not be written again.
        if (starts_.empty() || xml_.isWhitespace() || xml_.text().trimmed().isEmpty())
            return;
        if (key_.size() > key_bytes_left_) {
            xml_.raiseError(QStringLiteral("The nesting is too deep for the size of the file."));
            return;
        }
        key_bytes_left_ -= key_.size();
        record_.set_value(to_utf8(xml_.text()));
        document_.set(key_, record_);
    }

    QXmlStreamReader xml_;
    Document &document_;
    std::string key_;                 // entries of all open elements, joined with '/'
    std::vector<std::size_t> starts_; // where each open element's entry begins in key_
    std::string pending_comment_;
    KeyRecord record_;
    std::size_t key_bytes_left_;
};

} // namespace

bool read_xml(const QByteArray &text, Document &document)
{
    const bool well_formed = PreferenceParser(text, document).run();
    document.settle();
    return well_formed;
}

bool read_preferences(const QByteArray &text, Document &document)
{
    if (read_plain({text.constData(), static_cast<std::size_t>(text.size())}, document)) {
        document.settle();
        return true;
    }
    document = Document();
    return read_xml(text, document);
}

} // namespace qz::pref
