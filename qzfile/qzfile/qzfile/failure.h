#ifndef QZ_QZFILE_FAILURE_H
#define QZ_QZFILE_FAILURE_H

#include "qzexport.h"

namespace qz::file {

/// Bytes of a formatted message with its end; longer text is cut.
constexpr int kMessageBytes = 1024;

/// Reports a warning on the module's error handler and leaves errno as it was. A null format is a
/// fault of ours, reported by this function's own old name.
/// @return -1, the code of a failed call.
int fail(const char *format, ...) QZ_PRINTF_FORMAT(1, 2);

/// The same for a failure of another level than a warning.
int fail_at(unsigned level, const char *format, ...) QZ_PRINTF_FORMAT(2, 3);

} // namespace qz::file

#endif
