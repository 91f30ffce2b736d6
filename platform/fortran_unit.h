#ifndef QZ_PLATFORM_FORTRAN_UNIT_H
#define QZ_PLATFORM_FORTRAN_UNIT_H

extern "C" {

/// Writes a text as one sequential formatted record to a unit of the Fortran run-time, in order
/// with what the program itself writes there. A negative length counts as 0.
/// @return the run-time's status of the write, 0 when the record was written. A failure never ends
///         the process.
int qz_write_fortran_unit(int unit, const char *text, int length);
}

#endif
