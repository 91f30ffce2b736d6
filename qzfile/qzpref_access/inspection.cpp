#include "qzfile.hpp"
#include "qzfile/qzpref/document.h"
#include "qzfile/qzpref/error_text.h"
#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/locations.h"
#include "qzfile/qzpref/preference_file.h"
#include "qzfile/qzpref/products.h"
#include "qzfile/qzpref/store_session.h"
#include "qzfile/qzpref/typed_lookup.h"
#include "qzpref.hpp"

#include <QFile>

#include <set>
#include <stdexcept>

using namespace qz::pref;

namespace halcyra::preferences {

namespace {

/// One file as it was when it was looked at.
struct Snapshot {
    Snapshot(QZPrefSource layer, const QString &path)
        : source(layer), file(QFile::encodeName(path).toStdString()),
          exists(!path.isEmpty() && PreferenceFile(path).exists())
    {
        if (!exists)
            return;
        status = read_document(path, document);
        if (status)
            document = Document();
    }

    LayerReport report() const
    {
        LayerReport report;
        report.source = source;
        report.file = file;
        report.exists = exists;
        report.status = status;
        report.key_count = document.size();
        return report;
    }

    QZPrefSource source;
    std::string file;
    bool exists;
    QZpref_Err status = QZPREF_SUCCESS_;
    Document document;
};

StoredForm form_of(const std::string &key, const KeyRecord *record)
{
    StoredForm form;
    form.key = key;
    if (!record)
        return form;
    form.present = true;
    form.type = record->type();
    form.type_text = std::string(record->type_text());
    form.value = record->value();
    form.comment = record->comment();
    return form;
}

/// What get() and the getter with a default give for values of type T.
template <typename T>
void report_getters(const char *name, const LayeredRecord &answer,
                    std::vector<GetterReport> &reports)
{
    const bool found = answer.record != nullptr;
    const bool converts = found && value_of<T>(*answer.record).has_value();
    const std::string value = converts ? answer.record->value() : std::string();

    GetterReport layered;
    layered.getter = "get(" + std::string(type_name(type_of_values<T>())) + ")";
    layered.code = converts ? QZPREF_SUCCESS_
                   : found  ? QZPREF_CONVERSION_ERROR
                            : QZPREF_KEY_NOT_FOUND;
    layered.gives_default = !converts;
    layered.value = value;
    reports.push_back(layered);

    const bool users_own = answer.layer == QZPrefSource_User;
    GetterReport with_default = layered;
    with_default.getter = std::string(name) + "(default)";
    if (!users_own) {
        with_default.code = converts ? QZPREF_LOWER_LAYER : QZPREF_KEY_NOT_FOUND;
        with_default.gives_default = true;
        with_default.value.clear();
    }
    reports.push_back(with_default);
}

std::string reason_for(const LayeredRecord &answer, bool platform_form, const std::string &platform)
{
    static const char *const kLayers[] = {
        "The user's file has the key",
        "The user's file does not have the key, the machine's file does",
        "Only the installation's file has the key"};
    if (!answer.record)
        return "No layer has the key for " + platform + " or for all platforms.";
    return std::string(kLayers[answer.layer]) +
           (platform_form
                ? ", and its value for " + platform + " comes before one for all platforms."
                : ", with a value for all platforms.");
}

} // namespace

struct Inspection::Layers {
    explicit Layers(QZPREF_PRODUCTS wanted)
        : product(wanted),
          all{Snapshot(QZPrefSource_User, user_file_untouched(wanted, halcyra::release_name())),
              Snapshot(QZPrefSource_Machine, internal::get_machine_preferences_path()),
              Snapshot(QZPrefSource_Installation, internal::get_suite_preferences_path())}
    {}

    LayeredVariants variants(std::string_view key) const
    {
        return {all[0].document.variants(key), all[1].document.variants(key),
                all[2].document.variants(key)};
    }

    /// Calls @p visit(key) for every key below @p group in every layer.
    template <typename Visit> void for_each_key(const std::string &group, Visit visit) const
    {
        std::string prefix = normalized_key(group);
        if (!prefix.empty())
            prefix += '/';
        for (const Snapshot &layer : all) {
            layer.document.for_each_below(
                prefix, [&](const Document::Entry &entry) { visit(entry.key(), prefix.size()); });
        }
    }

    QZPREF_PRODUCTS product;
    std::array<Snapshot, 3> all;
};

Inspection::Inspection(QZPREF_PRODUCTS product)
{
    if (!is_product(product))
        throw std::runtime_error(error_text(QZPREF_UNKNOWN_PRODUCT));
    layers_ = std::make_unique<Layers>(product);
}

Inspection::~Inspection() = default;

std::vector<LayerReport> Inspection::layers() const
{
    std::vector<LayerReport> reports;
    for (const Snapshot &layer : layers_->all)
        reports.push_back(layer.report());
    return reports;
}

Explanation Inspection::explain(const std::string &key) const
{
    Explanation explanation;
    explanation.key = normalized_key(key);
    explanation.platform = std::string(platform_name(current_platform()));
    explanation.layers = layers();
    const LayeredVariants variants = layers_->variants(explanation.key);
    for (std::size_t i = 0; i < variants.size(); ++i) {
        LayerReport &report = explanation.layers[i];
        report.platform_form = form_of(suffixed_key(explanation.key, current_platform()),
                                       variants[i].own(current_platform()));
        report.plain_form = form_of(explanation.key, variants[i].plain());
    }
    const LayeredRecord answer = answering_record(variants);
    explanation.winner = static_cast<QZPrefSource>(answer.layer);
    explanation.platform_form_wins =
        answer.record && explanation.layers[answer.layer].platform_form.present;
    explanation.reason = reason_for(answer, explanation.platform_form_wins, explanation.platform);
    explanation.type = type_of(variants);
    report_getters<int>("getInt", answer, explanation.getters);
    report_getters<double>("getDouble", answer, explanation.getters);
    report_getters<bool>("getBool", answer, explanation.getters);
    report_getters<std::string>("getString", answer, explanation.getters);
    return explanation;
}

std::vector<ListedKey> Inspection::list(const std::string &group) const
{
    std::set<std::string, KeyOrder> keys;
    layers_->for_each_key(group, [&](std::string_view key, std::size_t prefix) {
        keys.emplace(key.substr(0, key.find(':', prefix)));
    });
    std::vector<ListedKey> listed;
    for (const std::string &key : keys) {
        const LayeredVariants variants = layers_->variants(key);
        const LayeredRecord answer = answering_record(variants);
        if (!answer.record)
            continue;
        ListedKey entry;
        entry.key = key;
        entry.type = answer.record->type();
        entry.type_text = std::string(answer.record->type_text());
        entry.value = answer.record->value();
        entry.comment = answer.record->comment();
        entry.source = static_cast<QZPrefSource>(answer.layer);
        entry.file = layers_->all[answer.layer].file;
        entry.platform_form = variants[answer.layer].own(current_platform()) == answer.record;
        listed.push_back(std::move(entry));
    }
    return listed;
}

std::vector<std::string> Inspection::groups(const std::string &group) const
{
    std::set<std::string, KeyOrder> groups;
    layers_->for_each_key(group, [&](std::string_view key, std::size_t prefix) {
        for (std::size_t slash = key.find('/', prefix); slash != std::string_view::npos;
             slash = key.find('/', slash + 1))
            groups.emplace(key.substr(0, slash));
    });
    return {groups.begin(), groups.end()};
}

PendingMigration Inspection::migration() const
{
    PendingMigration pending;
    if (layers_->all[QZPrefSource_User].exists)
        return pending;
    for (const std::string &release : qzfile_get_past_release_names()) {
        const QString path = user_file_untouched(layers_->product, release);
        Document old;
        if (!PreferenceFile(path).exists() || read_document(path, old) || old.empty())
            continue;
        pending.release = release;
        pending.file = QFile::encodeName(path).toStdString();
        pending.key_count = old.size();
        break;
    }
    return pending;
}

std::string product_name(QZPREF_PRODUCTS product)
{
    return is_product(product) ? file_name_of(product, halcyra::release_name()) : std::string();
}

QZPREF_PRODUCTS product_from_text(const std::string &text)
{
    return qz::pref::product_from_text(text);
}

std::string error_text(QZpref_Err code)
{
    return qz::pref::error_text(code);
}

} // namespace halcyra::preferences
