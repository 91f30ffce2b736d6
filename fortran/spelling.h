#ifndef QZ_FORTRAN_SPELLING_H
#define QZ_FORTRAN_SPELLING_H

#include "platform/compiler.h"
#include "qzexport.h"

/// Exports an entry point of this source under the name that gfortran looks for as well: lower case
/// with an underscore behind it.
#define QZ_GFORTRAN_SPELLING(name, lower_case_name) QZ_SECOND_NAME(name, lower_case_name)

#endif
