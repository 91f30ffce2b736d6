#include "qz/pref_target.h"

#include "qz/output.h"
#include "qzerr.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

namespace qz::cli {

namespace {

struct TypeNames {
    const char *word;
    const char *stored;
};

// Indexed by QZPREF_TYPE.
constexpr TypeNames kTypes[] = {
    {"none", ""}, {"int", "int"}, {"string", "QString"}, {"double", "double"}, {"bool", "bool"}};

template <typename Number> std::optional<Number> parse_number(const std::string &text)
{
    const char *begin = text.data();
    const char *const end = begin + text.size();
    if (begin != end && *begin == '+' && end - begin > 1 && begin[1] != '-')
        ++begin;
    Number number{};
    const auto [rest, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || rest != end || begin == end)
        return std::nullopt;
    return number;
}

std::optional<bool> parse_bool(const std::string &text)
{
    const QString word = QString::fromStdString(text).toLower();
    for (const char *yes : {"true", "yes", "on", "1"}) {
        if (word == QLatin1String(yes))
            return true;
    }
    for (const char *no : {"false", "no", "off", "0"}) {
        if (word == QLatin1String(no))
            return false;
    }
    return std::nullopt;
}

template <typename Value> std::optional<QVariant> variant(const std::optional<Value> &value)
{
    return value ? std::optional<QVariant>(QVariant::fromValue(*value)) : std::nullopt;
}

} // namespace

void declare_product(CLI::App &command, PrefTarget &target)
{
    command
        .add_option("product", target.product,
                    "Name or number of the product ('qz products' lists them)")
        ->required();
}

void declare_key(CLI::App &command, PrefTarget &target)
{
    declare_product(command, target);
    command.add_option("key", target.key, "Key, as in display/colors/background")->required();
    command.add_option("-g,--group", target.group, "Group that the key is relative to")
        ->type_name("GROUP");
}

CLI::Option *declare_type(CLI::App &command, std::string &type, const std::string &description)
{
    return command.add_option("-t,--type", type, description)
        ->type_name("int|double|bool|string")
        ->check(CLI::Validator(
            [](const std::string &word) {
                return type_of_word(word) ? std::string()
                                          : '\'' + word + "' is not int, double, bool or string";
            },
            std::string()));
}

std::string full_key(const PrefTarget &target)
{
    return target.group.empty() ? target.key : target.group + '/' + target.key;
}

std::optional<QZPREF_PRODUCTS> find_product(const std::string &text)
{
    try {
        return halcyra::preferences::product_from_text(text);
    } catch (const std::runtime_error &error) {
        complain('\'' + text + "': " + error.what() + " ('qz products' lists them.)");
        return std::nullopt;
    }
}

std::string type_word(QZPREF_TYPE type)
{
    return kTypes[type].word;
}

QZPREF_TYPE type_of_word(const std::string &word)
{
    for (const QZPREF_TYPE type :
         {QZPREF_TYPE_INT, QZPREF_TYPE_STRING, QZPREF_TYPE_DOUBLE, QZPREF_TYPE_BOOL}) {
        if (word == kTypes[type].word)
            return type;
    }
    return QZPREF_TYPE_NONE;
}

std::string stored_type_name(QZPREF_TYPE type)
{
    return kTypes[type].stored;
}

QZPREF_TYPE guess_type(const std::string &text)
{
    if (text == "true" || text == "false")
        return QZPREF_TYPE_BOOL;
    if (parse_number<int>(text))
        return QZPREF_TYPE_INT;
    const std::optional<double> number = parse_number<double>(text);
    return number && std::isfinite(*number) ? QZPREF_TYPE_DOUBLE : QZPREF_TYPE_STRING;
}

std::optional<QVariant> parse_value(const std::string &text, QZPREF_TYPE type)
{
    switch (type) {
    case QZPREF_TYPE_INT:
        return variant(parse_number<int>(text));
    case QZPREF_TYPE_DOUBLE:
        return variant(parse_number<double>(text));
    case QZPREF_TYPE_BOOL:
        return variant(parse_bool(text));
    default:
        return QVariant(QString::fromStdString(text));
    }
}

QVariant stored_value(const std::string &text, QZPREF_TYPE type)
{
    const QString string = QString::fromStdString(text);
    QVariant value(string);
    static constexpr QMetaType::Type kMetaTypes[] = {
        QMetaType::QString, QMetaType::Int, QMetaType::QString, QMetaType::Double, QMetaType::Bool};
    return value.convert(QMetaType(kMetaTypes[type])) ? value : QVariant(string);
}

std::string value_text(const QVariant &value)
{
    return value.toString().toStdString();
}

std::string count_of_keys(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " key" : " keys");
}

std::string describe(QZpref_Err code)
{
    switch (code) {
    case QZPREF_LOWER_LAYER:
        return "only a lower layer has the key, so the default is given";
    case QZPREF_CONVERSION_ERROR:
        return "the stored value is not of this type";
    case QZPREF_KEY_NOT_FOUND:
        return "no layer has this key";
    case QZPREF_INVALID_KEY:
        return "not a valid key";
    case QZPREF_FAILURE:
        return "the store failed";
    default:
        return halcyra::preferences::error_text(code);
    }
}

int fail(QZpref_Err code, const std::string &subject)
{
    unsigned worst = QZERR_BUMMER;
    qzerr_maxlevel(-1, &worst);
    if (code && worst < QZERR_WARNING)
        complain(subject + ": " + describe(code));
    return code;
}

QZpref_Err code_of(const std::string &message)
{
    for (const QZpref_Err code :
         {QZPREF_ACCESS_ERROR, QZPREF_FORMAT_ERROR, QZPREF_UNKNOWN_PRODUCT, QZPREF_LOCK_ERROR}) {
        if (message == halcyra::preferences::error_text(code))
            return code;
    }
    return QZPREF_FAILURE;
}

std::string pending_migration(const halcyra::preferences::Inspection &inspection)
{
    const halcyra::preferences::PendingMigration pending = inspection.migration();
    if (pending.release.empty())
        return {};
    return "the first program to open it takes over " + count_of_keys(pending.key_count) +
           " of release " + pending.release + " from " + pending.file;
}

void mention_pending_migration(const halcyra::preferences::Inspection &inspection)
{
    const std::string pending = pending_migration(inspection);
    if (!pending.empty())
        complain("note: the user's file is not there yet: " + pending);
}

void mention_left_out(const halcyra::preferences::Inspection &inspection)
{
    for (const halcyra::preferences::LayerReport &layer : inspection.layers()) {
        if (layer.exists && layer.status)
            complain("note: " + layer.file + " is left out: " + describe(layer.status));
    }
}

} // namespace qz::cli
