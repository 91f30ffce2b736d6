#include "qzfile/qzpref/xml_writer.h"

namespace qz::pref {

namespace {

QString to_qstring(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::vector<std::string> components_of(std::string_view key)
{
    key = key.substr(0, key.find(':'));
    std::vector<std::string> components;
    for (;;) {
        const std::size_t slash = key.find('/');
        components.emplace_back(key.substr(0, slash));
        if (slash == std::string_view::npos)
            return components;
        key.remove_prefix(slash + 1);
    }
}

/// XML 1.0 knows no "--" inside a comment and none that ends in '-': a blank keeps them apart.
QString well_formed_comment(std::string_view comment)
{
    QString text;
    for (const QChar c : to_qstring(comment)) {
        if (c == u'-' && text.endsWith(u'-'))
            text += u' ';
        text += c;
    }
    if (text.endsWith(u'-'))
        text += u' ';
    return text;
}

} // namespace

PreferenceWriter::PreferenceWriter(QByteArray &text) : xml_(&text)
{
    xml_.setAutoFormatting(true);
    xml_.writeStartDocument();
    xml_.writeStartElement(QStringLiteral("ApplicationSettings"));
}

void PreferenceWriter::leave(std::size_t levels)
{
    for (; levels > 0; --levels) {
        xml_.writeEndElement();
        open_.pop_back();
    }
}

void PreferenceWriter::write(std::string_view key, const KeyRecord &record)
{
    std::vector<std::string> components = components_of(key);
    // The last element of a key holds its value, so neither the previous key's nor this key's can
    // be a group that the two share.
    const std::size_t groups =
        std::min(open_.empty() ? 0 : open_.size() - 1, components.size() - 1);
    std::size_t shared = 0;
    while (shared < groups && open_[shared] == components[shared])
        ++shared;
    leave(open_.size() - shared);

    for (std::size_t i = shared; i < components.size(); ++i) {
        if (i + 1 == components.size() && !record.comment().empty())
            xml_.writeComment(well_formed_comment(record.comment()));
        xml_.writeStartElement(to_qstring(components[i]));
        open_.push_back(std::move(components[i]));
    }
    record.for_each_attribute([&](std::string_view name, std::string_view value) {
        xml_.writeAttribute(to_qstring(name), to_qstring(value));
    });
    const std::size_t colon = key.find(':');
    const std::size_t equals = key.find('=', colon == std::string_view::npos ? key.size() : colon);
    if (equals != std::string_view::npos) {
        xml_.writeAttribute(to_qstring(key.substr(colon + 1, equals - colon - 1)),
                            to_qstring(key.substr(equals + 1)));
    }
    write_value(record.value());
}

// A reader turns a bare carriage return into a line feed; a reference keeps it.
void PreferenceWriter::write_value(std::string_view value)
{
    for (;;) {
        const std::size_t carriage_return = value.find('\r');
        xml_.writeCharacters(to_qstring(value.substr(0, carriage_return)));
        if (carriage_return == std::string_view::npos)
            return;
        xml_.writeEntityReference(QStringLiteral("#13"));
        value.remove_prefix(carriage_return + 1);
    }
}

bool PreferenceWriter::finish()
{
    leave(open_.size());
    xml_.writeEndElement();
    xml_.writeEndDocument();
    return !xml_.hasError();
}

} // namespace qz::pref
