#ifndef QZ_ERRORS_HANDLER_TABLE_H
#define QZ_ERRORS_HANDLER_TABLE_H

#include "errors/handler.h"

#include <cstdint>
#include <vector>

namespace qz::errors {

/// Callers' general-purpose handler; deprecation warnings go there.
constexpr int kDefaultHandler = 0;
/// The handler on which the library itself reports.
constexpr int kLibraryHandler = -1;

/// A handler that writes to standard error, as both default handlers do at first.
QzerrHandler standard_error_handler();

inline QzerrHandler &default_handler()
{
    static QzerrHandler handler = standard_error_handler();
    return handler;
}

inline QzerrHandler &library_handler()
{
    static QzerrHandler handler = standard_error_handler();
    return handler;
}

/// The handlers made by qzerr_new; handler n is in slot n - 1. Never destroyed.
inline std::vector<QzerrHandler> &handler_slots()
{
    static auto &slots = *new std::vector<QzerrHandler>;
    return slots;
}

/// The handler with that id, or null. Borrowed until the next qzerr_new: the slots may move.
/// Inline because a message below its handler's level costs hardly more than this.
inline QzerrHandler *find_handler(int id)
{
    if (id == kLibraryHandler)
        return &library_handler();
    if (id == kDefaultHandler)
        return &default_handler();
    auto &slots = handler_slots();
    if (id < 1 || static_cast<std::size_t>(id) > slots.size())
        return nullptr;
    QzerrHandler &handler = slots[static_cast<std::size_t>(id) - 1];
    return handler.in_use ? &handler : nullptr;
}

/// Sends the output of a handler to a Fortran unit, or nowhere when @p unit is negative.
/// @return false when there is no such handler.
bool set_fortran_unit(int id, std::int32_t unit);

} // namespace qz::errors

#endif
