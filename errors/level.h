#ifndef QZ_ERRORS_LEVEL_H
#define QZ_ERRORS_LEVEL_H

#include <string_view>

namespace qz::errors {

/// The first number past the levels: it names none, and no message counts towards the maximum
/// level of a handler from here on.
constexpr unsigned kLevelUndefined = 7;

/// What stands in front of a message of that level; "LEVEL UNDEFINED" from kLevelUndefined on.
std::string_view level_name(unsigned level);

} // namespace qz::errors

#endif
