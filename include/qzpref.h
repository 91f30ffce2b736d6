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

typedef enum QZpref_Err { QZPREF_SUCCESS_ = 0 } QZpref_Err;

typedef enum QZPREF_PLATFORM {
    QZPREF_PLATFORM_NONE = 0,
    QZPREF_PLATFORM_WINDOWS,
    QZPREF_PLATFORM_LINUX,
    QZPREF_PLATFORM_DARWIN
} QZPREF_PLATFORM;

typedef enum QZPREF_TYPE {
    QZPREF_TYPE_NONE = 0,
    QZPREF_TYPE_INT,
    QZPREF_TYPE_STRING,
    QZPREF_TYPE_DOUBLE,
    QZPREF_TYPE_BOOL
} QZPREF_TYPE;

typedef enum QZPREF_PRODUCTS {
    QZPREF_PRODUCT_FIRST_ = 0,
    QZPREF_PRODUCT_FORCE_SIGNED_ = -1
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

#ifdef __cplusplus
}
#endif

#endif
