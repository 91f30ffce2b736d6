/** @file
 *  Token lists, token access and number classification.
 */
#ifndef QZFILESHARED_QZTOKEN_H
#define QZFILESHARED_QZTOKEN_H

#include "qzexport.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

QZ_API int qztoken_initialize(void);
QZ_API int qztoken_terminate(void);
QZ_API int qztoken_new(int *handle, const char *text, const char *separators, const char *pairs,
                       const char *comments, const char *escapes, const char *singles);
QZ_API int qztoken_add(int handle, const char *text);
QZ_API int qztoken_addn(int handle, const char *text, int width, int left, int offset);
QZ_API int qztoken_clear(int handle);
QZ_API int qztoken_delete(int handle);
QZ_API int qztoken_delete_token(int handle, int index);
QZ_API int qztoken_num(int handle);
QZ_API bool qztoken_in_use(int handle);
QZ_API int qztoken_set_quoted_characters(int handle, const char *text);
QZ_API int qztoken_copy(int destination, int source);
QZ_API int qztoken_copyn(int destination, int source, int width, int left, int offset);
QZ_API int qz_number_type(const char *text);
QZ_API int qztoken_find_type(int handle, int index);
QZ_API const char *qztoken_get_token(int handle, int index);
QZ_API int qztoken_get_int(int handle, int index, int *value);
QZ_API int qztoken_get_double(int handle, int index, double *value);
QZ_API int qztoken_index(int handle, const char *text);
QZ_API int qztoken_indexn(int handle, const char *text, int n);
QZ_API int qztoken_merge(int destination, int source);
QZ_API int qztoken_mergen(int destination, int source, int width, int left, int offset);
QZ_API int qztoken_replace(int handle, int index, const char *text);
QZ_API int qztoken_tolower_token(int handle, int index);
QZ_API int qztoken_toupper(int handle);
QZ_API int qztoken_regex_compile(int handle);
QZ_API int qztoken_regex_index(int handle, const char *text);
QZ_API char *qztoken_get_string(int handle);

#ifdef __cplusplus
}
#endif

#endif
