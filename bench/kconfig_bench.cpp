// The rows of KConfig. It is built on Qt 5, so it has a program of its own that links no Qt 6.

#include "bench/preference_rows.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <KConfig>
#include <KConfigGroup>

namespace {

QVariant variant_of(const bench::Preference &preference)
{
    switch (preference.kind) {
    case bench::Kind::Int:
        return preference.integer;
    case bench::Kind::String:
        return QString::fromStdString(preference.text);
    case bench::Kind::Double:
        return preference.real;
    case bench::Kind::Bool:
        return preference.flag;
    }
    return {};
}

class KConfigStore {
public:
    static constexpr const char *kName = "kconfig";

    using Group = QString;

    struct Key {
        KConfigGroup group;
        QByteArray name;
    };

    using Value = QVariant;

    static void write(const bench::Place &place, int layer,
                      const std::vector<bench::Preference> &all)
    {
        KConfig config(file(place, layer), KConfig::SimpleConfig);
        for (const bench::Preference &preference : all)
            KConfigGroup(&config, QString::fromStdString(preference.group))
                .writeEntry(preference.name.c_str(), variant_of(preference));
        config.sync();
    }

    KConfigStore(const bench::Place &place, int layers)
        : config_(file(place, 0), layers > 1 ? KConfig::CascadeConfig : KConfig::SimpleConfig)
    {
        QStringList below;
        for (int layer = layers - 1; layer > 0; --layer)
            below << file(place, layer);
        if (!below.isEmpty())
            config_.addConfigSources(below);
    }

    static Group group_of(const bench::Preference &preference)
    {
        return QString::fromStdString(preference.group);
    }

    static Value value_of(const bench::Preference &preference) { return variant_of(preference); }

    Key key_of(const bench::Preference &preference)
    {
        return {KConfigGroup(&config_, group_of(preference)),
                QByteArray::fromStdString(preference.name)};
    }

    bool knows(const Group &group) const { return config_.hasGroup(group); }

    int integer(const Key &key) const { return key.group.readEntry(key.name.constData(), 0); }

    int text_size(const Key &key) const
    {
        return key.group.readEntry(key.name.constData(), QString()).size();
    }

    double real(const Key &key) const { return key.group.readEntry(key.name.constData(), 0.0); }

    bool flag(const Key &key) const { return key.group.readEntry(key.name.constData(), false); }

    void set(Key &key, const Value &value) { key.group.writeEntry(key.name.constData(), value); }

    bool sync() { return config_.sync(); }

    std::size_t list(const Group &group) const
    {
        QMap<QString, int> values;
        const QMap<QString, QString> entries = KConfigGroup(&config_, group).entryMap();
        for (auto entry = entries.begin(); entry != entries.end(); ++entry)
            values.insert(entry.key(), entry.value().toInt());
        return static_cast<std::size_t>(values.size());
    }

private:
    static QString file(const bench::Place &place, int layer)
    {
        return QString("%1/%2_%3.rc")
            .arg(QString::fromStdString(place.directory))
            .arg(place.copy)
            .arg(layer);
    }

    KConfig config_;
};

const bool registered = bench::register_rows<KConfigStore>();

} // namespace
