#include "qz/output.h"
#include "qz/pref_target.h"
#include "qzerr.h"

#include <stdexcept>

namespace qz::cli {

namespace {

struct SetOptions : PrefTarget {
    std::string value;
    std::string type;
    std::string comment;
    std::string platform;
};

struct UnsetOptions : PrefTarget {
    std::string platform;
    bool recursive = false;
};

constexpr const char *kPlatforms[] = {"", "windows", "linux", "darwin"};

CLI::Option *declare_platform(CLI::App &command, std::string &platform,
                              const std::string &description)
{
    return command.add_option("-p,--platform", platform, description)
        ->type_name("windows|linux|darwin")
        ->check(CLI::Validator(
            [](const std::string &word) {
                for (const char *known : kPlatforms) {
                    if (*known && word == known)
                        return std::string();
                }
                return '\'' + word + "' is not windows, linux or darwin";
            },
            std::string()));
}

QZPREF_PLATFORM platform_of(const std::string &word)
{
    int platform = QZPREF_PLATFORM_NONE;
    for (int i = QZPREF_PLATFORM_WINDOWS; i <= QZPREF_PLATFORM_DARWIN; ++i) {
        if (word == kPlatforms[i])
            platform = i;
    }
    return static_cast<QZPREF_PLATFORM>(platform);
}

void declare_set(CLI::App &command, SetOptions &options)
{
    declare_key(command, options);
    command.add_option("value", options.value, "The new value; behind -- if it begins with a '-'")
        ->required();
    declare_type(command, options.type, "Type of the value (default: see below)");
    command.add_option("-c,--comment", options.comment, "Comment for the key in the file")
        ->type_name("TEXT");
    declare_platform(command, options.platform, "Platform that the value is for (default: all)");
    command.footer(
        "Without --type the value takes the type that the key has. A new key takes the type that\n"
        "its value spells: true and false are bool, a whole decimal number of 32 bits is int, any\n"
        "other finite decimal number is double, and everything else is string. A bool is spelled\n"
        "true, yes, on, 1 or false, no, off, 0. The type of a key does not change: unset it "
        "first.");
}

void declare_unset(CLI::App &command, UnsetOptions &options)
{
    declare_key(command, options);
    declare_platform(command, options.platform,
                     "Remove the value for this platform (default: the one that the getters see)");
    command.add_flag("-r,--recursive", options.recursive,
                     "The key is a group: remove everything below it");
}

/// Opens the store of a product, does something with it and saves it.
template <typename Change> int change_store(const PrefTarget &target, Change change)
{
    const std::optional<QZPREF_PRODUCTS> product = find_product(target.product);
    if (!product)
        return QZPREF_UNKNOWN_PRODUCT;
    mention_pending_migration(halcyra::preferences::Inspection(*product));
    const std::string subject = full_key(target);
    qzerr_errclear(-1);
    try {
        QZPREF store(*product, true);
        if (!target.group.empty()) {
            if (const QZpref_Err code = store.beginGroup(target.group))
                return fail(code, subject);
        }
        if (const int code = change(store))
            return code;
        return fail(store.syncSettings(), subject);
    } catch (const std::runtime_error &error) {
        return fail(code_of(error.what()), subject);
    }
}

QZPREF_TYPE type_for(const SetOptions &options, QZPREF &store)
{
    if (!options.type.empty())
        return type_of_word(options.type);
    const QZPREF_TYPE existing = store.getType(options.key);
    return existing ? existing : guess_type(options.value);
}

int run_set(const SetOptions &options)
{
    QZPREF_TYPE type = QZPREF_TYPE_NONE;
    QVariant stored;
    std::string file;
    const int code = change_store(options, [&](QZPREF &store) -> int {
        type = type_for(options, store);
        const std::optional<QVariant> value = parse_value(options.value, type);
        if (!value) {
            complain('\'' + options.value + "' is not of type " + type_word(type));
            return QZPREF_CONVERSION_ERROR;
        }
        stored = *value;
        if (const QZPREF_PLATFORM platform = platform_of(options.platform))
            store.beginOsAttribute(platform);
        store.getSettingsFile(file);
        return fail(store.set(options.key, stored, options.comment), full_key(options));
    });
    if (code)
        return code;
    if (value_text(stored).find_first_not_of(" \t\r\n") == std::string::npos)
        complain("note: an empty or blank value does not survive in the file: the key is gone "
                 "when it is read again");
    if (options.json) {
        print_json(QJsonObject{{"key", json_text(full_key(options))},
                               {"type", json_text(type_word(type))},
                               {"value", QJsonValue::fromVariant(stored)},
                               {"platform", json_text(options.platform)},
                               {"file", json_text(file)}});
    }
    return code;
}

/// Removes the value that @p key has in the user's own file.
/// @return the number of values removed, 0 or 1.
int remove_value(QZPREF &store, const std::string &key)
{
    for (const QZPREF_TYPE type :
         {QZPREF_TYPE_INT, QZPREF_TYPE_STRING, QZPREF_TYPE_DOUBLE, QZPREF_TYPE_BOOL}) {
        if (const int removed = store.removeKey(key, type))
            return removed;
    }
    return 0;
}

int run_unset(const UnsetOptions &options)
{
    int removed = 0;
    const int code = change_store(options, [&](QZPREF &store) -> int {
        std::string key = options.key;
        if (!options.platform.empty())
            key += ":os=" + options.platform;
        removed =
            options.recursive ? store.removeKey(key, QZPREF_TYPE_NONE) : remove_value(store, key);
        if (removed)
            return QZPREF_SUCCESS_;
        complain(full_key(options) + ": the user's file has no such " +
                 (options.recursive ? "group" : "key"));
        return QZPREF_KEY_NOT_FOUND;
    });
    if (code == QZPREF_SUCCESS_ && options.json)
        print_json(QJsonObject{{"key", json_text(full_key(options))}, {"removed", removed}});
    return code;
}

} // namespace

void add_pref_write_commands(CLI::App &pref, Chosen &chosen)
{
    add_command(pref, chosen, "set", "Write a value to the user's file", declare_set, run_set);
    add_command(pref, chosen, "unset", "Remove a value, or a group, from the user's file",
                declare_unset, run_unset);
}

} // namespace qz::cli
