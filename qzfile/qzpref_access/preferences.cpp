#include "qzpref.hpp"

#include <stdexcept>

namespace halcyra {

namespace {

/// The layered value of @p key, whatever else the read reports; a key that no layer has is thrown.
template <typename T> T value_or_throw(const Preferences &preferences, const std::string &key)
{
    T value{};
    // The store's reads change nothing that a caller can see; only their declaration says
    // otherwise.
    auto &store = const_cast<Preferences &>(preferences);
    if (store.QZPREF::get(key, value) == QZPREF_KEY_NOT_FOUND)
        throw std::out_of_range("No key: " + key);
    return value;
}

} // namespace

Preferences::Preferences(QZPREF_PRODUCTS product) : QZPREF(product, true) {}

template <> int Preferences::get<int>(const std::string &key) const
{
    return value_or_throw<int>(*this, key);
}

template <> double Preferences::get<double>(const std::string &key) const
{
    return value_or_throw<double>(*this, key);
}

template <> bool Preferences::get<bool>(const std::string &key) const
{
    return value_or_throw<bool>(*this, key);
}

template <> std::string Preferences::get<std::string>(const std::string &key) const
{
    return value_or_throw<std::string>(*this, key);
}

template <> QString Preferences::get<QString>(const std::string &key) const
{
    return QString::fromStdString(get<std::string>(key));
}

template <> void Preferences::set<int>(const std::string &key, const int &value)
{
    QZPREF::set(key, QVariant(value), "");
}

template <> void Preferences::set<double>(const std::string &key, const double &value)
{
    QZPREF::set(key, QVariant(value), "");
}

template <> void Preferences::set<bool>(const std::string &key, const bool &value)
{
    QZPREF::set(key, QVariant(value), "");
}

template <> void Preferences::set<std::string>(const std::string &key, const std::string &value)
{
    QZPREF::set(key, QVariant(QString::fromStdString(value)), "");
}

template <> void Preferences::set<QString>(const std::string &key, const QString &value)
{
    QZPREF::set(key, QVariant(value), "");
}

bool Preferences::hasKey(const std::string &key) const
{
    return const_cast<Preferences *>(this)->QZPREF::hasKey(key) == QZPREF_SUCCESS_;
}

void Preferences::removeKey(const std::string &key)
{
    QZPREF::removeKey(key, QZPREF_TYPE_NONE);
}

void Preferences::clear()
{
    clearSettings();
}

} // namespace halcyra
