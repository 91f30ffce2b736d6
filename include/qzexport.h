/** @file
 *  The macro that marks the exported interface. The library hides every other symbol.
 */
#ifndef QZFILESHARED_QZEXPORT_H
#define QZFILESHARED_QZEXPORT_H

#if defined(_WIN32) && defined(QZFILESHARED_STATIC)
/** Marks what the library exports; of the static library nothing is. */
#define QZ_API
#elif defined(_WIN32) && defined(QZFILESHARED_BUILD)
#define QZ_API __declspec(dllexport)
#elif defined(_WIN32)
#define QZ_API __declspec(dllimport)
#else
/** Marks what the library exports. */
#define QZ_API __attribute__((visibility("default")))
#endif

#if defined(__GNUC__)
/** Lets the compiler compare a printf-style format with its arguments. */
#define QZ_PRINTF_FORMAT(format_index, first_argument)                                             \
    __attribute__((format(printf, format_index, first_argument)))
#else
#define QZ_PRINTF_FORMAT(format_index, first_argument)
#endif

#if defined(_MSC_VER)
#define QZ_OUT_OF_REACH __pragma(warning(suppress : 4251))
#else
/** In front of a member that no caller can reach, which makes its type no part of the interface. */
#define QZ_OUT_OF_REACH
#endif

#endif
