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

/** The file that answers for a key. */
enum QZPrefSource : int {
    QZPrefSource_User = 0,         /**< the user's file */
    QZPrefSource_Machine = 1,      /**< the machine-wide file */
    QZPrefSource_Installation = 2, /**< the installation-wide file */
    QZPrefSource_NotFound = 3      /**< none of them */
};

/** "user", "machine", "installation", "not found"; "unknown" for any other number. */
QZ_API std::string qzpref_source_to_string(QZPrefSource source);

/**
 * Directory of the user's preferences, one subdirectory for each release: below the directory that
 * HALCYRA_QZPREF_SANDBOX names, else the user's local application data. A native path.
 * @throw std::runtime_error "Failure from method getting path"
 */
QZ_API QString qzpref_config_path();

/**
 * The format of preference files for QSettings objects of the caller's own. Values under a key are
 * maps with "value", "dt" (the type's name), perhaps "comment", and any other attributes. A store
 * that is open in the same program sees what such an object has synchronised.
 */
QZ_API QSettings::Format getQSettingsFormat();

namespace qz {
namespace pref {
struct StoreSession;
}
} // namespace qz

/**
 * The preferences of one product: the user's file for the current release, over the machine-wide
 * and the installation-wide file, which are only read.
 *
 * Keys are UTF-8, components joined with '/', relative to the groups that are open. Getters forgive
 * needless separators; set() and beginGroup() take only names by the rules of XML 1.0 elements
 * without ':'. Within a file a value for the platform we run on comes before one for all.
 *
 * Changes are made to the user's file and reach it with syncSettings(), with the destructor, or
 * when the event loop of the thread that made the store comes round. All stores of a program on one
 * file see each other's changes at once. Copies share one store: groups and changes of one are
 * those of all, and each counts as a store of its own.
 *
 * Any thread may make, use and destroy stores; one store and its copies in one thread at a time. A
 * store that was made in a thread with a running event loop is destroyed in that thread.
 */
class QZ_API QZPREF {
public:
    /**
     * Opens the preferences of @p product.
     *
     * @param migrate  Whether a user without a file for this release gets the values of the newest
     *                 earlier release that has any; else an empty file is made.
     * @throw std::runtime_error with the text of the code that explains it: "The product is not
     *        recognized by the library.", "Failure to set lock on given settings file.", "Access
     *        error in using settings file. This might be due to permissions or a full disk.";
     *        empty when the empty file cannot be made.
     *
     * A damaged user's file is discarded, a damaged file below it left out; both with a warning on
     * Qt's message log. While values are migrated, error handler -1 does not print.
     */
    QZPREF(QZPREF_PRODUCTS product, bool migrate);
    /** Makes a copy, which is the same store. */
    QZPREF(const QZPREF &other);
    /** Saves what this store has not saved, then shares the store of @p other. */
    QZPREF &operator=(const QZPREF &other);
    /** Saves what is not saved; a failure is not reported. */
    virtual ~QZPREF();

    /** Removes every key of the user's file, whatever group is open. */
    virtual void clearSettings();
    /** @param[out] path Native path of the user's file, which need not exist. */
    void getSettingsFile(std::string &path) const;

    /**
     * Enters a group; an empty one changes nothing but is left all the same.
     * @return QZPREF_SUCCESS_; QZPREF_INVALID_KEY after "validate_key: Invalid character in the
     * qzpref key '...'" (QZERR_WARNING on handler -1), and nothing is entered.
     */
    QZpref_Err beginGroup(const std::string &group);
    /** Leaves the innermost group; without one, Qt's message log gets a warning. */
    void endGroup();
    /** The groups entered, joined with '/'; empty without any. */
    std::string getGroup() const;

    /** Values set from now on are for @p platform; 0 stands for the one we run on. */
    void beginOsAttribute(QZPREF_PLATFORM platform);
    /** Values set from now on are for all platforms. */
    void endOsAttribute();

    /** Saves and takes in what others have saved. @return as qzpref_sync(). */
    QZpref_Err syncSettings();

    /** Whether the user's file has the key: QZPREF_SUCCESS_ or QZPREF_KEY_NOT_FOUND. */
    QZpref_Err hasKey(const std::string &key);
    /** As hasKey(), of one type; QZPREF_FAILURE for QZPREF_TYPE_NONE. */
    QZpref_Err hasKey(const std::string &key, QZPREF_TYPE type);

    /**
     * Sets a value in the user's file.
     *
     * @param value    An int, double, bool or QString; another type that has a text is stored as
     *                 that text, and no getter takes it.
     * @param comment  Stands before the value in the file; an empty one leaves the one there is.
     * @return as qzpref_set_bool(), with the same messages.
     */
    QZpref_Err set(const std::string &key, QVariant value, const std::string &comment);

    /**
     * Reads a value through the layers: user, machine, installation.
     * @param[out] value  The value, or the type's empty one (0, 0.0, false, "") unless 0 is
     * returned.
     * @return QZPREF_SUCCESS_, QZPREF_KEY_NOT_FOUND, or QZPREF_CONVERSION_ERROR when the layer that
     *         answers holds another type or a text that spells none.
     */
    QZpref_Err get(const std::string &key, int &value);
    QZpref_Err get(const std::string &key, double &value);      /**< @copydoc get */
    QZpref_Err get(const std::string &key, bool &value);        /**< @copydoc get */
    QZpref_Err get(const std::string &key, std::string &value); /**< @copydoc get */

    /**
     * Reads a value of the user's own file, else hands back @p fallback. A value of a lower layer
     * is announced by the code and never handed back; get() reads it.
     *
     * @param[out] out  The value or @p fallback.
     * @return QZPREF_SUCCESS_; QZPREF_CONVERSION_ERROR when the user's file has the key, but no
     *         value of the type; QZPREF_LOWER_LAYER when it does not and the layer that answers has
     *         a value of the type; else QZPREF_KEY_NOT_FOUND.
     */
    QZpref_Err getInt(const std::string &key, int *out, int fallback);
    QZpref_Err getDouble(const std::string &key, double *out,
                         double fallback);                                /**< @copydoc getInt */
    QZpref_Err getBool(const std::string &key, bool *out, bool fallback); /**< @copydoc getInt */
    /** @copydoc getInt */
    QZpref_Err getString(const std::string &key, std::string &out, const std::string &fallback);
    /** Without a default it reads through the layers, as get(). */
    QZpref_Err getString(const std::string &key, std::string &out);

    /**
     * Reads every value of one type below a group, through all layers. Names are relative to the
     * group and without platform suffix. What becomes of the open groups and what is returned is
     * told at qzpref_get_bool_list().
     * @param[in,out] values  Gets the values; what is in it stays.
     */
    QZpref_Err getIntList(const std::string &group, std::map<std::string, int> &values);
    /** @copydoc getIntList */
    QZpref_Err getDoubleList(const std::string &group, std::map<std::string, double> &values);
    /** @copydoc getIntList */
    QZpref_Err getBoolList(const std::string &group, std::map<std::string, bool> &values);
    /** @copydoc getIntList */
    QZpref_Err getStringList(const std::string &group, std::map<std::string, std::string> &values);

    /**
     * Appends the groups below the one we are in, level by level, of the user's file alone.
     * @param depth  How many levels; 0 for all.
     * @return Number of levels that have groups.
     */
    int getSubgroups(std::vector<std::string> &groups, int depth);

    /** Type of a key in any layer, as a value for any platform tells it. */
    QZPREF_TYPE getType(const std::string &key);
    /** Removes a value or a group from the user's file, as qzpref_remove(). */
    int removeKey(const std::string &key, QZPREF_TYPE type);
    /** The layer from which get() reads @p key; not found for NULL. */
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
    QZ_OUT_OF_REACH std::shared_ptr<qz::pref::StoreSession> settings_;
};

namespace halcyra {
namespace preferences {
namespace internal {
/**
 * Directory of the user's files of a release: below qzpref_config_path(), up to "2017-1" below the
 * home directory. A native path.
 * @throw std::runtime_error "Failure from method getting path"
 */
QZ_API std::string get_qzpref_directory(const std::string &release);
/**
 * The user's file of a product in a release; in "2019-3" some products name theirs otherwise.
 * @throw std::out_of_range "invalid unordered_map<K, T> key" for a number that is no product.
 */
QZ_API QString get_qzpref_file(QZPREF_PRODUCTS product, const QString &release);
/** The machine-wide file: HALCYRA_MACHINE_PREFERENCE, else a fixed path of Windows. */
QZ_API QString get_machine_preferences_path();
/** The installation-wide file: HALCYRA_SITE_PREFERENCE, else below the installation root. */
QZ_API QString get_suite_preferences_path();
} // namespace internal
} // namespace preferences

/**
 * The same store for callers who want values rather than codes. T is int, double, bool, std::string
 * or QString; texts are UTF-8. Moving is copying: both share the store.
 */
class QZ_API Preferences : public QZPREF {
public:
    /** As QZPREF(product, true). */
    explicit Preferences(QZPREF_PRODUCTS product);
    /**
     * The value of a key through the layers; a value of another type gives the type's empty value.
     * @throw std::out_of_range "No key: " and the key, when no layer has it.
     */
    template <typename T> T get(const std::string &key) const;
    /** Sets a value for the platforms that QZPREF::set() sets it for; a failure is not reported. */
    template <typename T> void set(const std::string &key, const T &value);
    /** Whether the user's file has the key. */
    bool hasKey(const std::string &key) const;
    /** Removes the key and everything below it from the user's file. */
    void removeKey(const std::string &key);
    /** Removes every key of the user's file. */
    void clear();
};

/// @cond the forms of get() and set() that there are
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

/// @endcond

namespace preferences {

/** One spelling of a key as one file holds it. */
struct StoredForm {
    bool present = false; /**< whether the file has it; else all else is empty */
    std::string key; /**< full key; with ":os=" and the platform's name for the platform form */
    QZPREF_TYPE type = QZPREF_TYPE_NONE; /**< type of the value */
    std::string type_text; /**< the "dt" attribute as it stands, also when it names no known type */
    std::string value;     /**< text of the value, UTF-8 */
    std::string comment;   /**< what the file says above the value */
};

/** One of the three files that answer for a product. */
struct LayerReport {
    QZPrefSource source = QZPrefSource_NotFound; /**< whose file it is */
    std::string file;                    /**< native path; empty when no file is configured */
    bool exists = false;                 /**< whether something is there */
    QZpref_Err status = QZPREF_SUCCESS_; /**< why the file is left out, else QZPREF_SUCCESS_ */
    std::size_t key_count = 0;           /**< number of keys that it holds */
    StoredForm platform_form;            /**< of the key that was asked for, on this platform */
    StoredForm plain_form;               /**< of the key that was asked for, on all platforms */
};

/** What one kind of getter gives for a key. */
struct GetterReport {
    std::string getter;                /**< "get(int)", "getInt(default)", ... */
    QZpref_Err code = QZPREF_SUCCESS_; /**< what it returns */
    bool gives_default = false; /**< the caller's default, or the type's empty value, comes back */
    std::string value;          /**< text of the value that comes back when it is no default */
};

/** Why a key has the value it has. */
struct Explanation {
    std::string key;                 /**< as it is kept */
    std::string platform;            /**< "windows", "linux" or "darwin" */
    std::vector<LayerReport> layers; /**< user, machine, installation: the order of the lookup */
    QZPrefSource winner = QZPrefSource_NotFound; /**< the layer that answers */
    bool platform_form_wins = false;             /**< with its value for this platform */
    std::string reason;                          /**< one sentence */
    QZPREF_TYPE type = QZPREF_TYPE_NONE;         /**< as QZPREF::getType() gives it */
    std::vector<GetterReport> getters;           /**< one for each kind */
};

/** One preference as it answers on this platform. */
struct ListedKey {
    std::string key;                             /**< full key without platform suffix */
    QZPREF_TYPE type = QZPREF_TYPE_NONE;         /**< type of the value */
    std::string type_text;                       /**< the "dt" attribute as it stands */
    std::string value;                           /**< text of the value, UTF-8 */
    std::string comment;                         /**< what the file says above the value */
    QZPrefSource source = QZPrefSource_NotFound; /**< the layer that answers */
    std::string file;                            /**< its file, a native path */
    bool platform_form = false; /**< whether the value is for this platform alone */
};

/** The release from which the first store of a product would take over its values. */
struct PendingMigration {
    std::string release;       /**< empty when there is nothing to take over or no need to */
    std::string file;          /**< its file, a native path */
    std::size_t key_count = 0; /**< number of keys to take over */
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
    /** @return what the first store of the product would take over. */
    PendingMigration migration() const;

private:
    struct Layers;
    QZ_OUT_OF_REACH std::unique_ptr<Layers> layers_;
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
