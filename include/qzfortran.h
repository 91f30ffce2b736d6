/** @file
 *  The Fortran entry points, for C callers and tests.
 */
#ifndef QZFILESHARED_QZFORTRAN_H
#define QZFILESHARED_QZFORTRAN_H

#include "qzexport.h"

#ifdef __cplusplus
extern "C" {
#endif

QZ_API void QZERRF_NEW(int *id, int *status);
QZ_API void QZERRF_DELETE(int *id);
QZ_API void QZERRF_LEVEL(int *id, int *level, int *status);
QZ_API void QZERRF_MAXLEVEL(int *id, int *maxlevel, int *status);
QZ_API void QZERRF_FILE(int *id, int *unit, int *status);
QZ_API void QZERRF_PREFIX(int *id, char *prefix, int *status, int prefix_len);
QZ_API void QZERRF_RETURN_CODE(int *level, char *code, int code_len);
QZ_API void QZERRF_THROW(int *id, int *level, char *message, int *status, int message_len);
QZ_API int QZTOKENF_NEW(int *handle, const char *text, const char *separators, const char *pairs,
                        const char *comments, const char *escapes, const char *singles);
QZ_API int QZTOKENF_ADD(const int *handle, const char *text);
QZ_API int QZTOKENF_ADDN(int handle, const char *text, int width, int left, int offset);
QZ_API int QZTOKENF_CLEAR(const int *handle);
QZ_API int QZTOKENF_COPY(const int *destination, const int *source);
QZ_API int QZTOKENF_COPYN(const int *destination, const int *source, const int *width,
                          const int *left, const int *offset);
QZ_API int QZTOKENF_DELETE(const int *handle);
QZ_API int QZTOKENF_DELETE_TOKEN(const int *handle, const int *index);
QZ_API int QZTOKENF_FIND_TYPE(const int *handle, const int *index);
QZ_API int QZTOKENF_GET_DOUBLE(const int *handle, const int *index, double *value);
QZ_API int QZTOKENF_GET_INT(const int *handle, const int *index, int *value);
QZ_API char *QZTOKENF_GET_STRING(const int *handle);
QZ_API int QZTOKENF_GET_TOKEN(const int *handle, const int *index, char *token);
QZ_API int QZTOKENF_INDEX(const int *handle, const char *text);
QZ_API int QZTOKENF_INDEXN(const int *handle, const char *text, const int *n);
QZ_API int QZTOKENF_MERGE(const int *destination, const int *source);
QZ_API int QZTOKENF_MERGEN(const int *destination, const int *source, const int *width,
                           const int *left, const int *offset);
QZ_API int QZTOKENF_NUM(const int *handle);
QZ_API int QZTOKENF_REGEX_COMPILE(const int *handle);
QZ_API int QZTOKENF_REGEX_INDEX(const int *handle, const char *text);
QZ_API int QZTOKENF_REPLACE(const int *handle, const int *index, const char *text);
QZ_API int QZTOKENF_TOLOWER_TOKEN(const int *handle, const int *index);
QZ_API int QZTOKENF_TOUPPER(const int *handle);
QZ_API void QZFILEF_INITIALIZE(void *ignored, int *status);
QZ_API void QZFILEF_DIR_EXPAND(const char *name, char *path, int *status, int name_len,
                               int path_len);
QZ_API void QZFILEF_DOS_TO_UNIX(const char *name, int *status, int name_len);
QZ_API void QZFILEF_DOS_TO_UNIX_REGISTER(const char *name, int *status, int name_len);
QZ_API void QZFILEF_DOS_TO_UNIX_CONVERT(int *status);
QZ_API void QZFILEF_EXISTS(const char *name, const int *type, int *status, int name_len);
QZ_API void QZFILEF_FIND(const char *name, const int *type, char *path, int *status, int name_len,
                         int path_len);
QZ_API void QZFILEF_PATH_ADD(const char *path, int *status, int path_len);
QZ_API void QZFILEF_PATH_ADD_CWD(int *status);
QZ_API void QZFILEF_PATH_ADD_HOME(int *status);
QZ_API void QZFILEF_PATH_CLEAR(int *status);
QZ_API void QZFILEF_PATH_GET(char *path, int *status, int path_len);
QZ_API void QZFILEF_PATH_IS_ABSOLUTE(const char *path, int *status, int path_len);
QZ_API void QZFILEF_PATH_LOCALIZE(char *path, int *status, int path_len);
QZ_API void QZFILEF_PATH_SET(const char *path, int *status, int path_len);

#ifdef __cplusplus
}
#endif

#endif
