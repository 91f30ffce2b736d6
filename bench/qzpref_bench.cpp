// Our preference store, QSettings with its own INI format, and the cost of the XML text alone.

#include "bench/preference_rows.h"
#include "qzpref.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QSettings>
#include <QVariant>
#include <QXmlStreamReader>

#include <stdexcept>

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

std::string path_of(const bench::Preference &preference)
{
    return preference.group + "/" + preference.name;
}

/// The files of the store: a product for each copy, and one file for each layer below.
class QzprefFiles {
public:
    explicit QzprefFiles(const bench::Place &place)
        : product_(static_cast<QZPREF_PRODUCTS>(place.copy))
    {
        const QString directory = QString::fromStdString(place.directory);
        qputenv("HALCYRA_QZPREF_SANDBOX", QFile::encodeName(directory));
        qputenv("HALCYRA", QFile::encodeName(directory));
        qputenv("HALCYRA_MACHINE_PREFERENCE", QFile::encodeName(directory + "/machine.xml"));
        qputenv("HALCYRA_SITE_PREFERENCE", QFile::encodeName(directory + "/site.xml"));
    }

    QZPREF_PRODUCTS product() const { return product_; }

    QString layer(int number) const
    {
        using namespace halcyra::preferences::internal;
        if (number == 0)
            return get_qzpref_file(product_, "2025-3");
        return number == 1 ? get_machine_preferences_path() : get_suite_preferences_path();
    }

private:
    QZPREF_PRODUCTS product_;
};

class QzprefStore {
public:
    static constexpr const char *kName = "qzpref";

    struct Group {
        std::string name;
        std::string a_key;
    };

    using Key = std::string;
    using Value = QVariant;

    static void write(const bench::Place &place, int layer,
                      const std::vector<bench::Preference> &all)
    {
        const QzprefFiles files(place);
        {
            QZPREF store(files.product(), false);
            for (const bench::Preference &preference : all)
                store.set(path_of(preference), variant_of(preference), {});
            if (store.syncSettings())
                throw std::runtime_error("the preference file cannot be written");
        }
        // Only the store writes the format, and it writes no layer but the user's.
        if (layer > 0 && !QFile::rename(files.layer(0), files.layer(layer)))
            throw std::runtime_error("the file of a lower layer cannot be made");
    }

    QzprefStore(const bench::Place &place, int) : store_(QzprefFiles(place).product(), false) {}

    static Group group_of(const bench::Preference &preference)
    {
        return {preference.group, path_of(preference)};
    }

    static Value value_of(const bench::Preference &preference) { return variant_of(preference); }

    Key key_of(const bench::Preference &preference) const { return path_of(preference); }

    bool knows(const Group &group) { return store_.hasKey(group.a_key) == QZPREF_SUCCESS_; }

    int integer(const Key &key)
    {
        int value = 0;
        store_.get(key, value);
        return value;
    }

    std::size_t text_size(const Key &key)
    {
        std::string value;
        store_.get(key, value);
        return value.size();
    }

    double real(const Key &key)
    {
        double value = 0.0;
        store_.get(key, value);
        return value;
    }

    bool flag(const Key &key)
    {
        bool value = false;
        store_.get(key, value);
        return value;
    }

    void set(const Key &key, const Value &value) { store_.set(key, value, {}); }

    bool sync() { return store_.syncSettings() == QZPREF_SUCCESS_; }

    std::size_t list(const Group &group)
    {
        std::map<std::string, int> values;
        store_.getIntList(group.name, values);
        return values.size();
    }

private:
    QZPREF store_;
};

class IniStore {
public:
    static constexpr const char *kName = "qsettings";

    struct Group {
        QString name;
        QString a_key;
    };

    using Key = QString;
    using Value = QVariant;

    static void write(const bench::Place &place, int layer,
                      const std::vector<bench::Preference> &all)
    {
        QSettings settings(file(place, layer), QSettings::IniFormat);
        for (const bench::Preference &preference : all)
            settings.setValue(QString::fromStdString(path_of(preference)), variant_of(preference));
    }

    IniStore(const bench::Place &place, int layers)
    {
        for (int layer = 0; layer < layers; ++layer)
            layers_.push_back(
                std::make_unique<QSettings>(file(place, layer), QSettings::IniFormat));
    }

    static Group group_of(const bench::Preference &preference)
    {
        return {QString::fromStdString(preference.group),
                QString::fromStdString(path_of(preference))};
    }

    static Value value_of(const bench::Preference &preference) { return variant_of(preference); }

    Key key_of(const bench::Preference &preference) const
    {
        return QString::fromStdString(path_of(preference));
    }

    bool knows(const Group &group) const { return layers_.front()->contains(group.a_key); }

    int integer(const Key &key) const { return find(key).toInt(); }

    qsizetype text_size(const Key &key) const { return find(key).toString().size(); }

    double real(const Key &key) const { return find(key).toDouble(); }

    bool flag(const Key &key) const { return find(key).toBool(); }

    void set(const Key &key, const Value &value) { layers_.front()->setValue(key, value); }

    bool sync()
    {
        layers_.front()->sync();
        return layers_.front()->status() == QSettings::NoError;
    }

    std::size_t list(const Group &group)
    {
        QSettings &settings = *layers_.front();
        QMap<QString, int> values;
        settings.beginGroup(group.name);
        for (const QString &key : settings.childKeys())
            values.insert(key, settings.value(key).toInt());
        settings.endGroup();
        return static_cast<std::size_t>(values.size());
    }

private:
    static QString file(const bench::Place &place, int layer)
    {
        return QString("%1/%2_%3.ini")
            .arg(QString::fromStdString(place.directory))
            .arg(place.copy)
            .arg(layer);
    }

    QVariant find(const Key &key) const
    {
        QVariant value;
        for (std::size_t layer = 0; layer < layers_.size() && !value.isValid(); ++layer)
            value = layers_[layer]->value(key);
        return value;
    }

    std::vector<std::unique_ptr<QSettings>> layers_;
};

/// What opening costs at least: every token of our file, and nothing done with it.
void xml_row(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    const QTemporaryDir directory;
    const bench::Place place{directory.path().toStdString()};
    QzprefStore::write(place, 0, bench::preferences(count));
    const QString path = QzprefFiles(place).layer(0);
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&file);
        int elements = 0;
        while (!reader.atEnd())
            elements += reader.readNext() == QXmlStreamReader::StartElement ? 1 : 0;
        if (reader.hasError() || elements < count)
            state.SkipWithError("the file is incomplete");
    }
}

bool register_xml_rows()
{
    for (const int count : {100, 1'000, 10'000, 100'000}) {
        benchmark::RegisterBenchmark("open/xml", xml_row)
            ->Arg(count)
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}

const bool registered =
    bench::register_rows<QzprefStore>() && bench::register_rows<IniStore>() && register_xml_rows();

} // namespace
