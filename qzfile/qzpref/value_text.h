#ifndef QZ_QZPREF_VALUE_TEXT_H
#define QZ_QZPREF_VALUE_TEXT_H

#include <optional>
#include <string>

namespace qz::pref {

/// Reads the text of a stored value as a value of type T (int, double, bool or std::string), by the
/// rules of QVariant's conversion from a string.
template <typename T> std::optional<T> from_text(const std::string &text);
template <> std::optional<int> from_text<int>(const std::string &text);
template <> std::optional<double> from_text<double>(const std::string &text);
template <> std::optional<bool> from_text<bool>(const std::string &text);
template <> std::optional<std::string> from_text<std::string>(const std::string &text);

} // namespace qz::pref

#endif
