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
    QZPREF_SUCCESS_ = 0,
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
    QZPREF_TYPE_NONE = 0,
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

QZ_API int qzpref_new(size_t *h, QZPREF_PRODUCTS product);
QZ_API void qzpref_delete(size_t h);
QZ_API int qzpref_begin_group(size_t h, const char *key);
QZ_API void qzpref_end_group(size_t h);
QZ_API char *qzpref_get_group(size_t h);
QZ_API void qzpref_begin_os_attribute(size_t h);
QZ_API void qzpref_begin_os_attribute2(size_t h, int platform);
QZ_API void qzpref_end_os_attribute(size_t h);
QZ_API void qzpref_clear(size_t h);
QZ_API int qzpref_contains(size_t h, const char *key, QZPREF_TYPE type);
QZ_API int qzpref_remove(size_t h, const char *key, QZPREF_TYPE type);
QZ_API QZPREF_TYPE qzpref_get_type(size_t h, const char *key);
QZ_API int qzpref_get_bool(size_t h, const char *key, int *value);
QZ_API int qzpref_get_int(size_t h, const char *key, int *value);
QZ_API int qzpref_get_double(size_t h, const char *key, double *value);
QZ_API int qzpref_get_string(size_t h, const char *key, char **value);
QZ_API int qzpref_get_bool_list(size_t h, const char *key, char ***names, int **values, int *count);
QZ_API int qzpref_get_int_list(size_t h, const char *key, char ***names, int **values, int *count);
QZ_API int qzpref_get_double_list(size_t h, const char *key, char ***names, double **values,
                                  int *count);
QZ_API int qzpref_get_string_list(size_t h, const char *key, char ***names, char ***values,
                                  int *count);
QZ_API int qzpref_get_subgroups(size_t h, int flag, char ***groups, int *count);
QZ_API char *qzpref_get_settings_file(size_t h);
QZ_API int qzpref_set_bool(size_t h, const char *key, int value);
QZ_API int qzpref_set_int(size_t h, const char *key, int value);
QZ_API int qzpref_set_double(size_t h, const char *key, double value);
QZ_API int qzpref_set_string(size_t h, const char *key, const char *value);
QZ_API int qzpref_sync(size_t h);

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
