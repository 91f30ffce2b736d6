/** @file
 *  Shell quoting, installation and web-access checks.
 */
#ifndef QZFILESHARED_QZCOMMON_H
#define QZFILESHARED_QZCOMMON_H

#include "qzexport.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

QZ_API int qzcommon_prepare_str_for_shell(char *str, int size);
QZ_API int qzcommon_check_installation(const char *product, int *status);
QZ_API bool _product_exists(const char *product);
QZ_API int qzcommon_web_access_allowed(void);

#ifdef __cplusplus
}
#endif

#endif
