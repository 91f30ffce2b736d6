/** @file
 *  Scratch-project names.
 */
#ifndef QZFILESHARED_QZCOMMON_HPP
#define QZFILESHARED_QZCOMMON_HPP

#include "qzcommon.h"
#include "qzexport.h"

#include <string>

/**
 * Names a fresh scratch project: "Tmp_", the local date and time with the month in English, for
 * example "Tmp_14Nov2026_1736_06123", in the directory named by HALCYRA_TEMP_PROJECT.
 *
 * Nothing is created and nothing is looked at on disk. Two calls in the same millisecond return the
 * same name.
 *
 * @return  the full path with the separators of the system, in the narrow encoding of its paths.
 *
 * @throws std::runtime_error  "HALCYRA_TEMP_PROJECT environment variable is not set."
 *
 * It may run in any number of threads while none changes the environment.
 */
QZ_API std::string qzcommon_get_scratch_project_path();

/**
 * The regular expression that recognises the names of scratch projects.
 *
 * Its groups are day, year, hour, minute, and seconds with milliseconds. It is not anchored, and
 * its month is deliberately loose: one to four letters or characters between 'Z' and 'a'.
 *
 * @return  the pattern, 102 characters.
 */
QZ_API std::string qzcommon_get_scratch_project_regular_expression();

#endif
