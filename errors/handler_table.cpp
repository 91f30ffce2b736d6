#include "errors/handler_table.h"

#include "qzerr.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace qz::errors {

FilterTable filter_table;

namespace {

/// One of the default handlers, set up on first use to write to standard error. Never destroyed.
template <int id> QzerrHandler &default_record()
{
    static QzerrHandler handler = [] {
        QzerrHandler made;
        made.stream = stderr;
        made.kind = DestinationKind::kStream;
        return made;
    }();
    filter_table.defaults[id - kLibraryHandler].store(&handler, std::memory_order_release);
    return handler;
}

/// The handlers made by qzerr_new. Never destroyed: the last static object may still report.
std::vector<QzerrHandler> &made_handlers()
{
    static auto &slots = *new std::vector<QzerrHandler>;
    return slots;
}

/// The slots in front of it are all in use: the search for a free one starts here.
std::size_t first_candidate = 0;

} // namespace

QzerrHandler &default_handler()
{
    return default_record<kDefaultHandler>();
}

QzerrHandler *find_handler(int id)
{
    if (id == kLibraryHandler)
        return &default_record<kLibraryHandler>();
    if (id == kDefaultHandler)
        return &default_record<kDefaultHandler>();
    auto &slots = made_handlers();
    if (id < 1 || static_cast<std::size_t>(id) > slots.size())
        return nullptr;
    QzerrHandler &handler = slots[static_cast<std::size_t>(id) - 1];
    return handler.in_use ? &handler : nullptr;
}

} // namespace qz::errors

using namespace qz::errors;

int qzerr_new(int *id)
{
    if (id == nullptr)
        return 0;
    *id = -1;
    auto &slots = made_handlers();
    auto slot =
        std::find_if(slots.begin() + static_cast<std::ptrdiff_t>(first_candidate), slots.end(),
                     [](const QzerrHandler &handler) { return !handler.in_use; });
    if (slot != slots.end())
        *slot = QzerrHandler();
    else
        slot = slots.insert(slots.end(), QzerrHandler());
    filter_table.slots = slots.data();
    filter_table.slot_count = slots.size();
    *id = static_cast<int>(slot - slots.begin()) + 1;
    first_candidate = static_cast<std::size_t>(*id);
    return 1;
}

void qzerr_delete(int id)
{
    if (id == kDefaultHandler || id == kLibraryHandler) {
        qzerr_throw(kLibraryHandler, QZERR_WARNING, "Default handler can not be deleted.\n");
        return;
    }
    QzerrHandler *handler = find_handler(id);
    if (handler == nullptr)
        return;
    release(handler->captured);
    std::free(handler->prefix);
    handler->prefix = nullptr;
    handler->in_use = false;
    handler->idle_below = 0;
    first_candidate = std::min(first_candidate, static_cast<std::size_t>(id) - 1);
}
