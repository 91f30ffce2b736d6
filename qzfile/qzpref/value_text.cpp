#include "qzfile/qzpref/value_text.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <charconv>

namespace qz::pref {

namespace {

/// QVariant's own answer, for every spelling that the quick ways below leave.
template <typename T> std::optional<T> from_variant(const std::string &text)
{
    QVariant value(QString::fromStdString(text));
    if (!value.convert(QMetaType::fromType<T>()))
        return std::nullopt;
    return value.value<T>();
}

/// The number that the whole of @p text spells in its plainest form.
template <typename T> std::optional<T> plain_number(const std::string &text)
{
    T number{};
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return number;
}

} // namespace

template <> std::optional<int> from_text<int>(const std::string &text)
{
    if (const auto number = plain_number<int>(text))
        return number;
    return from_variant<int>(text);
}

template <> std::optional<double> from_text<double>(const std::string &text)
{
    // Letters other than an exponent spell infinities and the like, of which QVariant knows fewer.
    if (text.find_first_not_of("0123456789+-.eE") == std::string::npos) {
        if (const auto number = plain_number<double>(text))
            return number;
    }
    return from_variant<double>(text);
}

template <> std::optional<bool> from_text<bool>(const std::string &text)
{
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return from_variant<bool>(text);
}

template <> std::optional<std::string> from_text<std::string>(const std::string &text)
{
    return text;
}

} // namespace qz::pref
