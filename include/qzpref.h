/** @file
 *  Preferences through handles.
 */
#ifndef QZFILESHARED_QZPREF_H
#define QZFILESHARED_QZPREF_H

#include "qzexport.h"

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Result of most calls on preferences. */
typedef enum QZpref_Err {
    QZPREF_SUCCESS_ = 0, /**< done */
    /** No open file, an empty file that cannot be made, a value of the wrong type for an existing
     *  key, or a value that no preference file can hold. */
    QZPREF_FAILURE = 1,
    /** Only a lower layer has the key; the getter with a default has handed back its default. */
    QZPREF_LOWER_LAYER = 2,
    /** The stored value is of another type or does not spell a value of its own. */
    QZPREF_CONVERSION_ERROR = 3,
    QZPREF_KEY_NOT_FOUND = 4,   /**< no layer has the key */
    QZPREF_ACCESS_ERROR = 6,    /**< a file cannot be read or written */
    QZPREF_FORMAT_ERROR = 7,    /**< a file is not in the preference format */
    QZPREF_UNKNOWN_PRODUCT = 8, /**< not one of QZPREF_PRODUCTS */
    QZPREF_LOCK_ERROR = 9,      /**< the lock on a file could not be taken */
    QZPREF_INVALID_KEY = 10     /**< a component of the key is not an XML name */
} QZpref_Err;

/** Platform that a value is for; 0 stands for all. */
typedef enum QZPREF_PLATFORM {
    QZPREF_PLATFORM_NONE = 0,
    QZPREF_PLATFORM_WINDOWS,
    QZPREF_PLATFORM_LINUX,
    QZPREF_PLATFORM_DARWIN
} QZPREF_PLATFORM;

/** Type of a stored value, as its "dt" attribute names it. */
typedef enum QZPREF_TYPE {
    QZPREF_TYPE_NONE = 0, /**< no such key, or a type that is none of these */
    QZPREF_TYPE_INT,
    QZPREF_TYPE_STRING,
    QZPREF_TYPE_DOUBLE,
    QZPREF_TYPE_BOOL
} QZPREF_TYPE;

/** Products with preferences of their own, in the order of their names. */
typedef enum QZPREF_PRODUCTS {
    QZPREF_PRODUCT_FIRST_ = 0,
    QZPREF_ATELIO = 0,
    QZPREF_BORVANE = 1,
    QZPREF_CELDRIS = 2,
    QZPREF_DOVREL = 3,
    QZPREF_ENSKARA = 4,
    QZPREF_FENDRO = 5,
    QZPREF_GRELLIN = 6,
    QZPREF_HESPAR = 7,
    QZPREF_ISKRELL = 8,
    QZPREF_KORVEL = 9,
    QZPREF_LUMARIS = 10,
    QZPREF_MERIDAX = 11,
    QZPREF_NORVANE = 12,
    QZPREF_OSTREL = 13,
    QZPREF_PLINDRA = 14,
    QZPREF_TARVEX = 15,
    QZPREF_PRODUCT_FORCE_SIGNED_ = -1,
    QZPREF_PRODUCT_FORCE_32_BITS_ = 0x7fffffff
} QZPREF_PRODUCTS;

/** @name Handles
 *
 * A handle stands for the preferences of one product: the user's file for the current release, over
 * the machine-wide and the installation-wide file, which are only read. Changes are made to the
 * user's file alone and reach it with qzpref_sync(), with qzpref_delete(), or when the event loop
 * of a graphical program comes round.
 *
 * Keys are UTF-8, components joined with '/', each a name by the rules of XML 1.0 elements and
 * without ':'. They are relative to the groups that are open on the handle. What is asked about a
 * handle that is none answers ::QZPREF_FAILURE, an empty text or nothing.
 *
 * Texts and arrays that are handed out are released by the caller with free(). Texts that are
 * handed in are copied.
 *
 * Handles may be made, used and deleted in any thread, one handle in one thread at a time: its
 * groups and its platform are part of it. One that was made in a thread with a running event loop
 * is deleted in that thread.
 * @{
 */

/**
 * Opens the preferences of a product. A user without a file for this release gets the values of the
 * newest earlier release that has any. A damaged user's file is discarded after a warning on Qt's
 * message log; a damaged file below it is left out.
 *
 * @param[out] h   The handle, released by the caller with qzpref_delete(); 0 unless 0 is returned.
 * @param product  One of the products.
 *
 * @return 0; 1 after a warning on Qt's message log when the product is none, the file cannot be
 *         read or its lock not be taken.
 */
QZ_API int qzpref_new(size_t *h, QZPREF_PRODUCTS product);

/** Saves what is not saved and closes a handle; one that is none is ignored. */
QZ_API void qzpref_delete(size_t h);

/**
 * Enters a group: later keys are relative to it. An exception that the window function of handler
 * -1 throws about the message passes through, and no group is entered.
 *
 * @param key  One or more components; an empty text or NULL enters nothing, and is left like any
 *             other.
 * @return ::QZPREF_SUCCESS_; ::QZPREF_INVALID_KEY after "validate_key: Invalid character in the
 *         qzpref key '...'" (QZERR_WARNING on handler -1), and no group is entered.
 */
QZ_API int qzpref_begin_group(size_t h, const char *key);

/** Leaves the innermost group; without one, Qt's message log gets a warning. */
QZ_API void qzpref_end_group(size_t h);

/** The groups entered, joined with '/'; empty without any. Released by the caller with free(). */
QZ_API char *qzpref_get_group(size_t h);

/** Values set from now on are for the platform that the library runs on. */
QZ_API void qzpref_begin_os_attribute(size_t h);

/**
 * Values set from now on are for one platform.
 * @param platform  A ::QZPREF_PLATFORM; 0 or a number that is none stands for the one we run on.
 */
QZ_API void qzpref_begin_os_attribute2(size_t h, int platform);

/** Values set from now on are for all platforms, as at first. */
QZ_API void qzpref_end_os_attribute(size_t h);

/** Removes every key of the user's file, whatever group is open. */
QZ_API void qzpref_clear(size_t h);

/**
 * Asks whether the user's file has a value of a type, for this platform or for all.
 * @return ::QZPREF_SUCCESS_ when it has; ::QZPREF_KEY_NOT_FOUND when not;
 *         ::QZPREF_FAILURE for type 0.
 */
QZ_API int qzpref_contains(size_t h, const char *key, QZPREF_TYPE type);

/**
 * Removes from the user's file.
 *
 * @param type  A type removes the value of @p key for this platform, or else the one for all, when
 * it is of that type, and nothing below it. Type 0 takes @p key as a group and removes everything
 * below it and a value of its name; an empty key is the group we are in.
 * @return With a type 1 when a value was removed, else 0; with type 0 the number of keys below.
 */
QZ_API int qzpref_remove(size_t h, const char *key, QZPREF_TYPE type);

/** Type of a key in any layer, as a value for any platform tells it; ::QZPREF_TYPE_NONE without. */
QZ_API QZPREF_TYPE qzpref_get_type(size_t h, const char *key);

/**
 * Reads a value of type bool: from the user's file, else the machine's, else the installation's;
 * in each the value for this platform before the one for all.
 *
 * @param[out] value  1 when true was read, else 0, whatever is returned.
 * @return ::QZPREF_SUCCESS_, ::QZPREF_KEY_NOT_FOUND, or ::QZPREF_CONVERSION_ERROR when the value is
 * of another type or does not spell one of its own.
 */
QZ_API int qzpref_get_bool(size_t h, const char *key, int *value);

/** As qzpref_get_bool(), for an int. @param[out] value The number, 0 unless 0 is returned. */
QZ_API int qzpref_get_int(size_t h, const char *key, int *value);

/** As qzpref_get_bool(), for a double. @param[out] value The number, 0.0 unless 0 is returned. */
QZ_API int qzpref_get_double(size_t h, const char *key, double *value);

/**
 * As qzpref_get_bool(), for a text.
 * @param[out] value  The text in UTF-8, empty unless 0 is returned; never NULL unless memory has
 * run out. Released by the caller with free().
 */
QZ_API int qzpref_get_string(size_t h, const char *key, char **value);

/**
 * Reads every bool below a group, through all layers.
 *
 * The group is entered for the reading and left afterwards, with two exceptions that callers count
 * on: where no layer has any key below it, it stays entered; and an invalid group is not entered,
 * so the group we are in is read, and one level is left at the end.
 *
 * @param key          The group; an empty text is the one we are in.
 * @param[out] names   @p count key names relative to the group, in the order of their bytes.
 * @param[out] values  @p count values in the same order, 1 or 0.
 * @param[out] count   Number of values. When it is 0, both arrays are NULL; else the arrays and
 * each name are released by the caller with free().
 *
 * @return ::QZPREF_SUCCESS_; ::QZPREF_KEY_NOT_FOUND when there is none;
 *         ::QZPREF_CONVERSION_ERROR when one of them does not spell a bool; the others are there.
 */
QZ_API int qzpref_get_bool_list(size_t h, const char *key, char ***names, int **values, int *count);

/** As qzpref_get_bool_list(), for every int. */
QZ_API int qzpref_get_int_list(size_t h, const char *key, char ***names, int **values, int *count);

/** As qzpref_get_bool_list(), for every double. */
QZ_API int qzpref_get_double_list(size_t h, const char *key, char ***names, double **values,
                                  int *count);

/** As qzpref_get_bool_list(), for every text; each value is released by the caller with free(). */
QZ_API int qzpref_get_string_list(size_t h, const char *key, char ***names, char ***values,
                                  int *count);

/**
 * Lists the groups below the one we are in, level by level, in the user's file alone.
 *
 * @param flag         How many levels; 0 for all.
 * @param[out] groups  @p count paths relative to the group we are in; the array and each path are
 *                     released by the caller with free(). NULL when there is none.
 * @param[out] count   Number of groups.
 * @return Number of levels that have groups.
 */
QZ_API int qzpref_get_subgroups(size_t h, int flag, char ***groups, int *count);

/** Native path of the user's file, which need not exist. Released by the caller with free(). */
QZ_API char *qzpref_get_settings_file(size_t h);

/**
 * Sets a bool: true unless @p value is 0.
 *
 * @return ::QZPREF_SUCCESS_; ::QZPREF_INVALID_KEY after "validate_key: Invalid character in the
 * qzpref key '...'"; ::QZPREF_FAILURE after "QZPREF::set: Incorrect value of type '...' is being
 * set for existing '...' type key('...')", or after a message of QZPREF::set when an XML 1.0 file
 * cannot hold the value. All messages: QZERR_WARNING on handler -1.
 */
QZ_API int qzpref_set_bool(size_t h, const char *key, int value);

/** As qzpref_set_bool(), for an int. */
QZ_API int qzpref_set_int(size_t h, const char *key, int value);

/** As qzpref_set_bool(), for a double; the file holds the shortest text that reads back the same.
 */
QZ_API int qzpref_set_double(size_t h, const char *key, double value);

/**
 * As qzpref_set_bool(), for a text in UTF-8; NULL is an empty one. A text of nothing but white
 * space does not survive the file: the key is gone when it is read again.
 */
QZ_API int qzpref_set_string(size_t h, const char *key, const char *value);

/**
 * Saves the changes and takes in what others have saved meanwhile. For keys that both have changed,
 * the later save wins. The file is replaced in one step or stays as it was; after a failure the
 * changes are kept for the next save.
 *
 * @return ::QZPREF_SUCCESS_; ::QZPREF_ACCESS_ERROR when the file cannot be read or written;
 *         ::QZPREF_FORMAT_ERROR when somebody has left a damaged file (changes replace it, on top
 * of what was last read); ::QZPREF_LOCK_ERROR.
 */
QZ_API int qzpref_sync(size_t h);
/** @} */

/**
 * Tells why a key has the value it has, as a JSON object: key, platform, layers (user, machine and
 * installation with file, exists, status, and the platform and plain form of the key), winner,
 * reason, type, and what each kind of getter gives. Changes nothing and takes no lock.
 *
 * @param product    One of the products.
 * @param key        Full key in UTF-8, without a platform suffix.
 * @param[out] json  The text in UTF-8, released by the caller with free(); NULL unless 0 or 4 is
 *                   returned.
 *
 * @return QZPREF_SUCCESS_, QZPREF_KEY_NOT_FOUND when no layer has the key (the JSON still says
 * where was looked), QZPREF_UNKNOWN_PRODUCT, or QZPREF_FAILURE.
 *
 * Safe from any thread.
 */
QZ_API int qzpref_explain(QZPREF_PRODUCTS product, const char *key, char **json);

#ifdef __cplusplus
}
#endif

#endif
