#include "qz/output.h"
#include "qz/pref_target.h"

#include <memory>
#include <stdexcept>

namespace qz::cli {

using halcyra::preferences::Explanation;
using halcyra::preferences::GetterReport;
using halcyra::preferences::Inspection;
using halcyra::preferences::LayerReport;
using halcyra::preferences::ListedKey;

namespace {

struct GetOptions : PrefTarget {
    std::string type;
    std::string fallback;
    CLI::Option *fallback_given = nullptr;
};

struct GroupOptions : PrefTarget {};

struct FileOptions : PrefTarget {
    bool all = false;
};

void declare_get(CLI::App &command, GetOptions &options)
{
    declare_key(command, options);
    declare_type(command, options.type, "Type to read (default: the type that is stored)");
    options.fallback_given =
        command
            .add_option("-d,--default", options.fallback,
                        "Read as a getter with a default: a lower layer's value stays hidden")
            ->type_name("VALUE");
}

void declare_group(CLI::App &command, GroupOptions &options)
{
    declare_product(command, options);
    command.add_option("group", options.group, "Only what is below this group");
}

void declare_file(CLI::App &command, FileOptions &options)
{
    declare_product(command, options);
    command.add_flag("-a,--all", options.all, "All three layers, not only the user's file");
}

/// Lets the first store of a release take over older values.
QZpref_Err migrate(QZPREF_PRODUCTS product)
{
    try {
        QZPREF store(product, true);
        return store.syncSettings();
    } catch (const std::runtime_error &error) {
        return code_of(error.what());
    }
}

/// The type of the form that answers on this platform.
QZPREF_TYPE answering_type(const Explanation &explanation)
{
    if (explanation.winner == QZPrefSource_NotFound)
        return QZPREF_TYPE_NONE;
    const LayerReport &layer = explanation.layers[explanation.winner];
    return explanation.platform_form_wins ? layer.platform_form.type : layer.plain_form.type;
}

QZPREF_TYPE wanted_type(const GetOptions &options, const Explanation &explanation)
{
    if (!options.type.empty())
        return type_of_word(options.type);
    if (const QZPREF_TYPE stored = answering_type(explanation))
        return stored;
    return *options.fallback_given ? guess_type(options.fallback) : QZPREF_TYPE_STRING;
}

const GetterReport &report_of(const Explanation &explanation, QZPREF_TYPE type, bool with_default)
{
    static const char *const kWithDefault[] = {"", "getInt(default)", "getString(default)",
                                               "getDouble(default)", "getBool(default)"};
    const std::string name =
        with_default ? kWithDefault[type] : "get(" + stored_type_name(type) + ')';
    for (const GetterReport &report : explanation.getters) {
        if (report.getter == name)
            return report;
    }
    throw std::logic_error("no report on " + name);
}

int run_get(const GetOptions &options)
{
    const std::optional<QZPREF_PRODUCTS> product = find_product(options.product);
    if (!product)
        return QZPREF_UNKNOWN_PRODUCT;
    const std::string key = full_key(options);
    std::optional<Inspection> inspection(std::in_place, *product);
    if (!inspection->migration().release.empty()) {
        if (const QZpref_Err code = migrate(*product))
            return fail(code, key);
        inspection.emplace(*product);
    }
    const Explanation explanation = inspection->explain(key);
    const LayerReport &user = explanation.layers[QZPrefSource_User];
    if (user.status == QZPREF_ACCESS_ERROR)
        return fail(user.status, user.file);
    mention_left_out(*inspection);

    const QZPREF_TYPE type = wanted_type(options, explanation);
    const bool with_default = bool(*options.fallback_given);
    const GetterReport &report = report_of(explanation, type, with_default);
    std::optional<QVariant> value;
    if (!report.gives_default)
        value = stored_value(report.value, type);
    else if (with_default)
        value = parse_value(options.fallback, type);
    if (with_default && !value) {
        complain("the default '" + options.fallback + "' is not of type " + type_word(type));
        return kExitUsage;
    }
    if (!value)
        return fail(report.code, key);
    if (options.json) {
        print_json(QJsonObject{{"key", json_text(explanation.key)},
                               {"type", json_text(type_word(type))},
                               {"value", QJsonValue::fromVariant(*value)},
                               {"is_default", report.gives_default},
                               {"source", json_text(qzpref_source_to_string(explanation.winner))},
                               {"code", report.code}});
    } else {
        print_line(value_text(*value));
    }
    return fail(report.code, key);
}

/// What there is of a product, after what is special about it has been mentioned; null and a
/// complaint for a text that names none.
std::unique_ptr<Inspection> inspect(const std::string &product_text)
{
    const std::optional<QZPREF_PRODUCTS> product = find_product(product_text);
    if (!product)
        return nullptr;
    auto inspection = std::make_unique<Inspection>(*product);
    mention_pending_migration(*inspection);
    mention_left_out(*inspection);
    return inspection;
}

int run_type(const PrefTarget &options)
{
    const std::unique_ptr<Inspection> inspection = inspect(options.product);
    if (!inspection)
        return QZPREF_UNKNOWN_PRODUCT;
    const Explanation explanation = inspection->explain(full_key(options));
    const std::string word = type_word(explanation.type);
    if (options.json)
        print_json(QJsonObject{{"key", json_text(explanation.key)}, {"type", json_text(word)}});
    else
        print_line(word);
    return explanation.type ? QZPREF_SUCCESS_ : QZPREF_KEY_NOT_FOUND;
}

int run_source(const PrefTarget &options)
{
    const std::unique_ptr<Inspection> inspection = inspect(options.product);
    if (!inspection)
        return QZPREF_UNKNOWN_PRODUCT;
    const Explanation explanation = inspection->explain(full_key(options));
    const bool found = explanation.winner != QZPrefSource_NotFound;
    const std::string word = qzpref_source_to_string(explanation.winner);
    if (options.json) {
        QJsonObject answer{{"key", json_text(explanation.key)}, {"source", json_text(word)}};
        if (found)
            answer["file"] = json_text(explanation.layers[explanation.winner].file);
        print_json(answer);
    } else {
        print_line(word);
    }
    return found ? QZPREF_SUCCESS_ : QZPREF_KEY_NOT_FOUND;
}

QJsonObject json_of(const ListedKey &listed)
{
    return {{"key", json_text(listed.key)},
            {"type", json_text(type_word(listed.type))},
            {"value", QJsonValue::fromVariant(stored_value(listed.value, listed.type))},
            {"text", json_text(listed.value)},
            {"comment", json_text(listed.comment)},
            {"source", json_text(qzpref_source_to_string(listed.source))},
            {"file", json_text(listed.file)},
            {"platform_form", listed.platform_form}};
}

int run_list(const GroupOptions &options)
{
    const std::unique_ptr<Inspection> inspection = inspect(options.product);
    if (!inspection)
        return QZPREF_UNKNOWN_PRODUCT;
    const std::vector<ListedKey> keys = inspection->list(options.group);
    if (options.json) {
        QJsonArray answer;
        for (const ListedKey &listed : keys)
            answer.append(json_of(listed));
        print_json(answer);
    } else if (!keys.empty()) {
        constexpr std::size_t kValueColumn = 2;
        Table table({"KEY", "TYPE", "VALUE", "LAYER", "FILE"});
        table.set_ragged(kValueColumn);
        for (const ListedKey &listed : keys) {
            table.add({listed.key + (listed.platform_form ? " *" : ""),
                       listed.type ? type_word(listed.type) : '?' + listed.type_text, listed.value,
                       qzpref_source_to_string(listed.source), Cell(listed.file, Look::Faint)});
        }
        table.print();
    }
    if (!keys.empty())
        return QZPREF_SUCCESS_;
    complain("no layer has a key " +
             (options.group.empty() ? "at all" : "below '" + options.group + '\''));
    return QZPREF_KEY_NOT_FOUND;
}

int run_groups(const GroupOptions &options)
{
    const std::unique_ptr<Inspection> inspection = inspect(options.product);
    if (!inspection)
        return QZPREF_UNKNOWN_PRODUCT;
    QJsonArray answer;
    for (const std::string &group : inspection->groups(options.group)) {
        if (options.json)
            answer.append(json_text(group));
        else
            print_line(group);
    }
    if (options.json)
        print_json(answer);
    return QZPREF_SUCCESS_;
}

std::string state_of(const LayerReport &layer)
{
    if (layer.file.empty())
        return "not configured";
    if (!layer.exists)
        return "not there";
    return layer.status ? describe(layer.status) : count_of_keys(layer.key_count);
}

int run_file(const FileOptions &options)
{
    const std::optional<QZPREF_PRODUCTS> product = find_product(options.product);
    if (!product)
        return QZPREF_UNKNOWN_PRODUCT;
    const Inspection inspection(*product);
    const std::vector<LayerReport> layers = inspection.layers();
    if (options.json) {
        QJsonArray answer;
        for (const LayerReport &layer : layers) {
            answer.append(QJsonObject{{"layer", json_text(qzpref_source_to_string(layer.source))},
                                      {"file", json_text(layer.file)},
                                      {"exists", layer.exists},
                                      {"code", layer.status},
                                      {"keys", static_cast<qint64>(layer.key_count)}});
        }
        print_json(answer);
    } else if (options.all) {
        Table table({"LAYER", "FILE", "STATE"});
        for (const LayerReport &layer : layers)
            table.add({qzpref_source_to_string(layer.source), layer.file, state_of(layer)});
        table.print();
    } else {
        print_line(layers[QZPrefSource_User].file);
    }
    return QZPREF_SUCCESS_;
}

} // namespace

void add_pref_read_commands(CLI::App &pref, Chosen &chosen)
{
    add_command(pref, chosen, "get", "Print the value of a key", declare_get, run_get);
    add_command(pref, chosen, "list", "List keys with type, value, layer and file", declare_group,
                run_list)
        ->footer("A * behind a key marks a value that is for this platform only.");
    add_command(pref, chosen, "groups", "List the groups of all layers", declare_group, run_groups);
    add_command(pref, chosen, "type", "Print the type of a key, on whatever platform it has one",
                declare_key, run_type);
    add_command(pref, chosen, "source",
                "Print the layer that answers for a key: user, machine or installation",
                declare_key, run_source);
    add_command(pref, chosen, "file", "Print the path of the user's file", declare_file, run_file);
}

} // namespace qz::cli
