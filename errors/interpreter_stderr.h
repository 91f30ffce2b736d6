#ifndef QZ_ERRORS_INTERPRETER_STDERR_H
#define QZ_ERRORS_INTERPRETER_STDERR_H

#include <string_view>

namespace qz::errors {

/// Writes a message to the standard error of the interpreter embedded in this process, in as many
/// pieces as the interpreter's writer needs.
/// @return false when no interpreter is initialised; nothing is written then.
bool write_to_interpreter(std::string_view message, bool newline);

} // namespace qz::errors

#endif
