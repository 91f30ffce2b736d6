/** @file
 *  Scratch-project names.
 */
#ifndef QZFILESHARED_QZCOMMON_HPP
#define QZFILESHARED_QZCOMMON_HPP

#include "qzcommon.h"
#include "qzexport.h"

#include <string>

QZ_API std::string qzcommon_get_scratch_project_path();
QZ_API std::string qzcommon_get_scratch_project_regular_expression();

#endif
