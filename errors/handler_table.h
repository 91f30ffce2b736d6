#ifndef QZ_ERRORS_HANDLER_TABLE_H
#define QZ_ERRORS_HANDLER_TABLE_H

#include "errors/handler.h"
#include "platform/compiler.h"

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

/// Where the filter in front of qzerr_throw finds a handler without a call, a lock or a guard.
struct FilterTable {
    std::atomic<const QzerrHandler *> defaults[2]; ///< -1, then 0; null until their first use
    const QzerrHandler *slots;                     ///< those of qzerr_new; 1 is the first
    std::size_t slot_count;
};

extern FilterTable filter_table;

/// The level below which a message on that handler changes nothing; 0 when there is no such handler
/// or it has not been used yet. The library's own handler is the one that must be fast.
inline std::uint32_t idle_below(int id)
{
    const unsigned from_library_handler = static_cast<unsigned>(id) + 1;
    if (QZ_LIKELY(from_library_handler <= 1)) {
        const auto *handler =
            filter_table.defaults[from_library_handler].load(std::memory_order_acquire);
        return QZ_LIKELY(handler != nullptr) ? handler->idle_below : 0;
    }
    const std::size_t index = from_library_handler - 2; // of a negative id beyond any count
    return index < filter_table.slot_count ? filter_table.slots[index].idle_below : 0;
}

/// Sends the output of a handler to a Fortran unit, or nowhere when @p unit is negative.
/// @return false when there is no such handler.
bool set_fortran_unit(int id, std::int32_t unit);

} // namespace qz::errors

#endif
