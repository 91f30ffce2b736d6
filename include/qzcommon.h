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

/**
 * Quotes a path or an argument in place, so that it survives a command shell.
 *
 * The opening quote stands behind the first character, each '"' gets a backslash before it, and a
 * backslash at the start is doubled:
 * @verbatim
   abc          a"bc"
   x"y          x"\"y"
   \share\dir   \\"share\dir"
   @endverbatim
 *
 * @param str   The text, NUL-terminated. With n characters, q of them '"', the result takes
 *              n + q + 2, one more where it begins with a backslash, and a NUL; the memory must
 *              hold all of it.
 * @param size  The capacity of @p str in bytes, as far as it is checked: n + 2 (n + 3 where the
 *              text begins with a backslash) and n + q are enough, so that the result may take up
 *              to 4 bytes more than @p size. Room for n + q + 4 bytes is always enough.
 *
 * @return  0  quoted;
 *         -1  @p str is NULL or empty, is one character other than '"', or ends with '/' or a
 *             backslash, or @p size is too small. @p str is unchanged; there is no message.
 *
 * It keeps no state and may run in any number of threads.
 */
QZ_API int qzcommon_prepare_str_for_shell(char *str, int size);

/**
 * Tells whether a product is installed: whether the installation root has a directory for it.
 *
 * @param product      The product's directory word, such as "plindra".
 * @param[out] status  Set to 0 whatever the outcome; it carries no information.
 *
 * @return  0  installed;
 *         -1  not installed, or the root cannot be listed. The messages are those of
 *             qzfile_find_product_dir().
 *
 * Call it from one thread at a time: it uses the directory table.
 */
QZ_API int qzcommon_check_installation(const char *product, int *status);

/**
 * Tells whether a product is installed, as qzcommon_check_installation() does.
 *
 * @param product  The product's directory word, such as "plindra".
 *
 * @return  true when its directory is found, false otherwise.
 *
 * Call it from one thread at a time: it uses the directory table.
 */
QZ_API bool _product_exists(const char *product);

/**
 * Tells whether the user has allowed the suite to reach the web: whether anything named
 * ".Tarvex_web_access_file" stands in the user data directory, which is created if it is missing.
 *
 * @return  1  allowed;
 *          0  not allowed, or the user data directory cannot be determined. The messages are those
 *             of qzfile_halcyra_userdata_dir().
 *
 * @throws boost::filesystem::filesystem_error  when it cannot be told whether the marker is there,
 *         for example for want of a permission. It is the one exception that leaves a function of
 *         this header; a C caller cannot catch it.
 *
 * Call it from one thread at a time: it reports on an error handler.
 */
QZ_API int qzcommon_web_access_allowed(void);

#ifdef __cplusplus
}
#endif

#endif
