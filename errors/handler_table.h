#ifndef QZ_ERRORS_HANDLER_TABLE_H
#define QZ_ERRORS_HANDLER_TABLE_H

#include "errors/handler.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace qz::errors {

/// Callers' general-purpose handler; deprecation warnings go there.
constexpr int kDefaultHandler = 0;
/// The handler on which the library itself reports.
constexpr int kLibraryHandler = -1;

/// The handler with that id, or null. Borrowed until the next qzerr_new: the slots may move.
QzerrHandler *find_handler(int id);

QzerrHandler &default_handler();

/// The handlers that are set up already, for the filter in front of qzerr_throw.
struct ReadyHandlers {
    std::atomic<const QzerrHandler *> defaults[2]; ///< -1, then 0; null until their first use
    const QzerrHandler *slots;                     ///< those of qzerr_new; 1 is the first
    std::size_t slot_count;
};

extern ReadyHandlers ready_handlers;

/// The handler that find_handler() gives, or null when it has not been used yet. Inline and without
/// a call: a message below its handler's level costs hardly more than this.
inline const QzerrHandler *find_ready_handler(int id)
{
    const unsigned from_library_handler = static_cast<unsigned>(id) + 1;
    if (__builtin_expect(from_library_handler <= 1, 1))
        return ready_handlers.defaults[from_library_handler].load(std::memory_order_acquire);
    const std::size_t index = from_library_handler - 2; // of a negative id beyond any count
    if (index >= ready_handlers.slot_count)
        return nullptr;
    const QzerrHandler &handler = ready_handlers.slots[index];
    return handler.in_use ? &handler : nullptr;
}

/// Sends the output of a handler to a Fortran unit, or nowhere when @p unit is negative.
/// @return false when there is no such handler.
bool set_fortran_unit(int id, std::int32_t unit);

} // namespace qz::errors

#endif
