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

#include <cstddef>
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

namespace preferences {

/** One spelling of a key as one file holds it. */
struct StoredForm {
    bool present = false;
    std::string key; /**< full key; with ":os=" and the platform's name for the platform form */
    QZPREF_TYPE type = QZPREF_TYPE_NONE;
    std::string type_text; /**< the "dt" attribute as it stands, also when it names no known type */
    std::string value;     /**< text of the value, UTF-8 */
    std::string comment;
};

/** One of the three files that answer for a product. */
struct LayerReport {
    QZPrefSource source = QZPrefSource_NotFound;
    std::string file;                    /**< native path; empty when no file is configured */
    bool exists = false;                 /**< whether something is there */
    QZpref_Err status = QZPREF_SUCCESS_; /**< why the file is left out, else QZPREF_SUCCESS_ */
    std::size_t key_count = 0;
    StoredForm platform_form; /**< of the key that was asked for, on this platform */
    StoredForm plain_form;    /**< of the key that was asked for, on all platforms */
};

/** What one kind of getter gives for a key. */
struct GetterReport {
    std::string getter; /**< "get(int)", "getInt(default)", ... */
    QZpref_Err code = QZPREF_SUCCESS_;
    bool gives_default = false; /**< the caller's default, or the type's empty value, comes back */
    std::string value;          /**< text of the value that comes back when it is no default */
};

/** Why a key has the value it has. */
struct Explanation {
    std::string key;                 /**< as it is kept */
    std::string platform;            /**< "windows", "linux" or "darwin" */
    std::vector<LayerReport> layers; /**< user, machine, installation: the order of the lookup */
    QZPrefSource winner = QZPrefSource_NotFound;
    bool platform_form_wins = false;
    std::string reason; /**< one sentence */
    QZPREF_TYPE type = QZPREF_TYPE_NONE;
    std::vector<GetterReport> getters;
};

/** One preference as it answers on this platform. */
struct ListedKey {
    std::string key; /**< full key without platform suffix */
    QZPREF_TYPE type = QZPREF_TYPE_NONE;
    std::string type_text;
    std::string value;
    std::string comment;
    QZPrefSource source = QZPrefSource_NotFound;
    std::string file;
    bool platform_form = false;
};

/** The release from which the first store of a product would take over its values. */
struct PendingMigration {
    std::string release; /**< empty when there is nothing to take over or no need to */
    std::string file;
    std::size_t key_count = 0;
};

/**
 * Looks at the preferences of a product from outside: which file does a value come from, and why?
 *
 * It reads the files as they are at construction and changes nothing: no directory or file is made,
 * nothing is migrated, no lock is taken. It does not see what a store has not saved. Where the
 * user's file does not exist yet, that layer is empty here although the first store would fill it
 * from migration().
 *
 * Safe from any thread; one object from one thread at a time.
 */
class QZ_API Inspection {
public:
    /** @throw std::runtime_error "The product is not recognized by the library." */
    explicit Inspection(QZPREF_PRODUCTS product);
    ~Inspection();
    Inspection(const Inspection &) = delete;
    Inspection &operator=(const Inspection &) = delete;

    /** The three layers; their forms are empty. */
    std::vector<LayerReport> layers() const;
    /** @param key Full key, without a platform suffix. */
    Explanation explain(const std::string &key) const;
    /** Every preference below @p group that answers on this platform, in the order of the keys; all
     *  of them for an empty group. */
    std::vector<ListedKey> list(const std::string &group) const;
    /** Every group below @p group in any layer, by its full path, in order. */
    std::vector<std::string> groups(const std::string &group) const;
    PendingMigration migration() const;

private:
    struct Layers;
    std::unique_ptr<Layers> layers_;
};

/** Name of a product, the base name of its preference file; empty for a number that is none. */
QZ_API std::string product_name(QZPREF_PRODUCTS product);
/**
 * The product of a name, compared without regard to case, or of a number in decimal.
 * @throw std::runtime_error "The product is not recognized by the library."
 */
QZ_API QZPREF_PRODUCTS product_from_text(const std::string &text);
/** Text for a store code; empty for those that have none. */
QZ_API std::string error_text(QZpref_Err code);

} // namespace preferences
} // namespace halcyra

#endif
