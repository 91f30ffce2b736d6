/** @file
 *  Error handlers, throwing and the deprecation log.
 */
#ifndef QZFILESHARED_QZERR_H
#define QZFILESHARED_QZERR_H

#include "qzexport.h"

#include <stdarg.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    QZERR_BUMMER = 0,
    QZERR_OK = 1,
    QZERR_DEBUG = 2,
    QZERR_INFO = 3,
    QZERR_WARNING = 4,
    QZERR_FATAL = 5,
    QZERR_OFF = 6
};

QZ_API int qzerr_new(int *id);
QZ_API void qzerr_delete(int id);
QZ_API int qzerr_level(int id, unsigned level);
QZ_API int qzerr_get_level(int id, unsigned *level);
QZ_API int qzerr_maxlevel(int id, unsigned *level);
QZ_API int qzerr_errclear(int id);
QZ_API int qzerr_prefix(int id, const char *prefix);
QZ_API int qzerr_file(int id, FILE *stream);
QZ_API int qzerr_window(int id, int (*callback)(const char *message));
QZ_API int qzerr_suppress_print(int id);
QZ_API int qzerr_restore_print(int id);
QZ_API int qzerr_print_state(int id, int *on);
QZ_API const char *qzerr_return_code(unsigned level);
QZ_API void qzerr_assert(int condition, const char *file, int line);
QZ_API void qzerr_set_qzlibs(void);
QZ_API int qzerr_throw(int id, unsigned level, const char *format, ...);
QZ_API int qzerr_vthrow(int id, unsigned level, const char *format, va_list arguments);
QZ_API int qzlog_deprecation_warning(const char *file, int line, const char *function,
                                     const char *format, ...);

#ifdef __cplusplus
}
#endif

#endif
