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
        map.insert(to_qstring(entry.key), to_variant_map(entry.record));
    });
    return well_formed;
}

bool write_xml_file(QIODevice &device, const QSettings::SettingsMap &map)
{
    QByteArray text;
    qz::pref::PreferenceWriter writer(text);
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        writer.write(entry.key().toStdString(), from_variant_map(entry.value().toMap()));
    if (const auto *file = qobject_cast<QFileDevice *>(&device))
        qz::pref::PreferenceFile::note_foreign_write(file->fileName());
    return writer.finish() && device.write(text) == text.size();
}

const QSettings::Format kFormat = QSettings::registerFormat(QStringLiteral("xml"), readXmlFile,
                                                            write_xml_file, Qt::CaseSensitive);

} // namespace

QSettings::Format getQSettingsFormat()
{
    return kFormat;
}
