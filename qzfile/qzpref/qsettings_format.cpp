#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/preference_file.h"
#include "qzfile/qzpref/xml_reader.h"
#include "qzfile/qzpref/xml_writer.h"
#include "qzpref.hpp"

#include <QFileDevice>
#include <QMap>
#include <QVariant>

namespace {

using qz::pref::KeyRecord;

QString to_qstring(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The form in which the settings system exchanges a record.
QVariantMap to_variant_map(const KeyRecord &record)
{
    QVariantMap map;
    record.for_each_attribute([&](std::string_view name, std::string_view value) {
        map.insert(to_qstring(name), to_qstring(value));
    });
    if (!record.comment().empty())
        map.insert(QStringLiteral("comment"), to_qstring(record.comment()));
    map.insert(QStringLiteral("value"), to_qstring(record.value()));
    return map;
}

KeyRecord from_variant_map(const QVariantMap &map)
{
    KeyRecord record;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        record.set_attribute(entry.key().toStdString(), entry.value().toString().toStdString());
    return record;
}

bool readXmlFile(QIODevice &device, QSettings::SettingsMap &map)
{
    qz::pref::Document document;
    const bool well_formed = qz::pref::read_preferences(device.readAll(), document);
    document.for_each_below("", [&map](const qz::pref::Document::Entry &entry) {
        map.insert(to_qstring(entry.key()), to_variant_map(entry.record()));
    });
    return well_formed;
}

/// Whether a file with this entry in it could be read back.
bool is_writable(const std::string &key, const KeyRecord &record)
{
    for (const QString &component : to_qstring(qz::pref::base_key(key)).split(QChar(u'/'))) {
        if (!qz::pref::is_key_component(component.toStdString()))
            return false;
    }
    bool texts_fit = qz::pref::is_xml_text(record.value()) &&
                     qz::pref::is_xml_text(record.comment()) && qz::pref::is_xml_text(key);
    record.for_each_attribute([&](std::string_view name, std::string_view value) {
        texts_fit = texts_fit && qz::pref::is_key_component(std::string(name)) &&
                    qz::pref::is_xml_text(value);
    });
    return texts_fit;
}

bool write_xml_file(QIODevice &device, const QSettings::SettingsMap &map)
{
    std::string text;
    qz::pref::PreferenceWriter writer(text);
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        const std::string key = entry.key().toStdString();
        const KeyRecord record = from_variant_map(entry.value().toMap());
        if (!is_writable(key, record))
            return false;
        writer.write(key, record);
    }
    if (const auto *file = qobject_cast<QFileDevice *>(&device))
        qz::pref::PreferenceFile::note_foreign_write(file->fileName());
    writer.finish();
    const auto size = static_cast<qint64>(text.size());
    return device.write(text.data(), size) == size;
}

const QSettings::Format kFormat = QSettings::registerFormat(QStringLiteral("xml"), readXmlFile,
                                                            write_xml_file, Qt::CaseSensitive);

} // namespace

QSettings::Format getQSettingsFormat()
{
    return kFormat;
}
