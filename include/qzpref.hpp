/** @file
 *  The preference store, its file locations and the typed wrapper.
 */
#ifndef QZFILESHARED_QZPREF_HPP
#define QZFILESHARED_QZPREF_HPP

#include "qzexport.h"
#include "qzpref.h"

#include <QSettings>
#include <QString>
#include <QVariant>

#include <map>
#include <memory>
#include <string>
#include <vector>

enum QZPrefSource : int {
    QZPrefSource_User = 0,
    QZPrefSource_Machine = 1,
    QZPrefSource_Installation = 2,
    QZPrefSource_NotFound = 3
};

QZ_API std::string qzpref_source_to_string(QZPrefSource source);
QZ_API QString qzpref_config_path();
QZ_API QSettings::Format getQSettingsFormat();

namespace qz {
namespace pref {
struct StoreSession;
}
} // namespace qz

class QZ_API QZPREF {
public:
    QZPREF(QZPREF_PRODUCTS product, bool migrate);
    QZPREF(const QZPREF &other);
    QZPREF &operator=(const QZPREF &other);
    virtual ~QZPREF();
    virtual void clearSettings();
    void getSettingsFile(std::string &path) const;
    QZpref_Err beginGroup(const std::string &group);
    void endGroup();
    std::string getGroup() const;
    void beginOsAttribute(QZPREF_PLATFORM platform);
    void endOsAttribute();
    QZpref_Err syncSettings();
    QZpref_Err hasKey(const std::string &key);
    QZpref_Err hasKey(const std::string &key, QZPREF_TYPE type);
    QZpref_Err set(const std::string &key, QVariant value, const std::string &comment);
    QZpref_Err get(const std::string &key, int &value);
    QZpref_Err get(const std::string &key, double &value);
    QZpref_Err get(const std::string &key, bool &value);
    QZpref_Err get(const std::string &key, std::string &value);
    QZpref_Err getInt(const std::string &key, int *out, int fallback);
    QZpref_Err getDouble(const std::string &key, double *out, double fallback);
    QZpref_Err getBool(const std::string &key, bool *out, bool fallback);
    QZpref_Err getString(const std::string &key, std::string &out, const std::string &fallback);
    QZpref_Err getString(const std::string &key, std::string &out);
    QZpref_Err getIntList(const std::string &group, std::map<std::string, int> &values);
    QZpref_Err getDoubleList(const std::string &group, std::map<std::string, double> &values);
    QZpref_Err getBoolList(const std::string &group, std::map<std::string, bool> &values);
    QZpref_Err getStringList(const std::string &group, std::map<std::string, std::string> &values);
    int getSubgroups(std::vector<std::string> &groups, int depth);
    QZPREF_TYPE getType(const std::string &key);
    int removeKey(const std::string &key, QZPREF_TYPE type);
    QZPrefSource getKeySource(const char *key);

private:
    QZpref_Err initialize_handle(bool migrate);
    QZpref_Err create_empty_preference_file();
    QZpref_Err discard_corrupt_file();
    void migrate_preferences();
    void loadFromRelease(const std::string &release);
    int remove_key(const char *key);

    QZPREF_PRODUCTS product_;
    QZPREF_PLATFORM os_attribute_;
    std::shared_ptr<qz::pref::StoreSession> settings_;
};

namespace halcyra {
namespace preferences {
namespace internal {
QZ_API std::string get_qzpref_directory(const std::string &release);
QZ_API QString get_qzpref_file(QZPREF_PRODUCTS product, const QString &release);
QZ_API QString get_machine_preferences_path();
QZ_API QString get_suite_preferences_path();
} // namespace internal
} // namespace preferences

class QZ_API Preferences : public QZPREF {
public:
    explicit Preferences(QZPREF_PRODUCTS product);
    template <typename T> T get(const std::string &key) const;
    template <typename T> void set(const std::string &key, const T &value);
    bool hasKey(const std::string &key) const;
    void removeKey(const std::string &key);
    void clear();
};

template <> QZ_API int Preferences::get<int>(const std::string &key) const;
template <> QZ_API double Preferences::get<double>(const std::string &key) const;
template <> QZ_API bool Preferences::get<bool>(const std::string &key) const;
template <> QZ_API std::string Preferences::get<std::string>(const std::string &key) const;
template <> QZ_API QString Preferences::get<QString>(const std::string &key) const;
template <> QZ_API void Preferences::set<int>(const std::string &key, const int &value);
template <> QZ_API void Preferences::set<double>(const std::string &key, const double &value);
template <> QZ_API void Preferences::set<bool>(const std::string &key, const bool &value);
template <>
QZ_API void Preferences::set<std::string>(const std::string &key, const std::string &value);
template <> QZ_API void Preferences::set<QString>(const std::string &key, const QString &value);
} // namespace halcyra

#endif
