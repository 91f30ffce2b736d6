#ifndef QZ_TOOLS_PREF_TARGET_H
#define QZ_TOOLS_PREF_TARGET_H

#include "qz/command.h"
#include "qzpref.hpp"

#include <QJsonValue>
#include <QVariant>

#include <optional>

namespace qz::cli {

/// Which product the command is about, and where in its preferences.
struct PrefTarget : CommonOptions {
    std::string product;
    std::string group;
    std::string key;
};

void declare_product(CLI::App &command, PrefTarget &target);
void declare_key(CLI::App &command, PrefTarget &target);
/// "--type int|double|bool|string", kept as the word.
CLI::Option *declare_type(CLI::App &command, std::string &type, const std::string &description);

/// The key below the group, as the layers know it.
std::string full_key(const PrefTarget &target);

/// Looks @p text up among the products; it complains when there is none.
std::optional<QZPREF_PRODUCTS> find_product(const std::string &text);

/// "int", "double", "bool", "string"; "none" for what is no type.
std::string type_word(QZPREF_TYPE type);
/// The inverse; QZPREF_TYPE_NONE for an empty word.
QZPREF_TYPE type_of_word(const std::string &word);
/// The name that a file gives to the type: "QString" for strings.
std::string stored_type_name(QZPREF_TYPE type);

/// The type that @p text spells: bool for true and false, int for a decimal number of 32 bits,
/// double for any other finite decimal number, string for all else.
QZPREF_TYPE guess_type(const std::string &text);
/// @p text as a value of @p type; nothing when it does not spell one.
std::optional<QVariant> parse_value(const std::string &text, QZPREF_TYPE type);

/// The value that a getter makes of the text in a file; text that is none of @p type stays text.
QVariant stored_value(const std::string &text, QZPREF_TYPE type);
/// A value as text, the shortest that reads back as the same.
std::string value_text(const QVariant &value);

/// "1 key", "2 keys".
std::string count_of_keys(std::size_t count);

/// What a code of the store says, in words.
std::string describe(QZpref_Err code);
/// Complains about @p code unless the library has already reported why, and returns it.
/// @param subject  What the command was about.
int fail(QZpref_Err code, const std::string &subject);
/// The code for which opening a store throws @p message.
QZpref_Err code_of(const std::string &message);

/// What the first store of this release takes over from an earlier one; empty when it does not.
std::string pending_migration(const halcyra::preferences::Inspection &inspection);
/// Says so on standard error.
void mention_pending_migration(const halcyra::preferences::Inspection &inspection);
/// Names on standard error the files that are there but cannot be used.
void mention_left_out(const halcyra::preferences::Inspection &inspection);

void add_pref_read_commands(CLI::App &pref, Chosen &chosen);
void add_pref_write_commands(CLI::App &pref, Chosen &chosen);
void add_pref_explain_command(CLI::App &pref, Chosen &chosen);

} // namespace qz::cli

#endif
