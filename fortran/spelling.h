#ifndef QZ_FORTRAN_SPELLING_H
#define QZ_FORTRAN_SPELLING_H

#include "qzexport.h"

/// Exports an entry point of this source under the name that gfortran looks for as well: lower case
/// with an underscore behind it.
#define QZ_GFORTRAN_SPELLING(name, lower_case_name)                                                \
    extern "C" QZ_API decltype(name) lower_case_name __attribute__((alias(#name)))

#endif
