#include "errors/handler_table.h"

#include "qzerr.h"

#include <algorithm>
#include <cstdlib>

namespace qz::errors {

QzerrHandler standard_error_handler()
{
    QzerrHandler handler;
    handler.destination.stream = stderr;
    handler.kind = DestinationKind::kStream;
    return handler;
}

} // namespace qz::errors

using namespace qz::errors;

int qzerr_new(int *id)
{
    if (id == nullptr)
        return 0;
    *id = -1;
    auto &slots = handler_slots();
    auto slot = std::find_if(slots.begin(), slots.end(),
                             [](const QzerrHandler &handler) { return !handler.in_use; });
    if (slot != slots.end())
        *slot = QzerrHandler();
    else
        slot = slots.insert(slots.end(), QzerrHandler());
    *id = static_cast<int>(slot - slots.begin()) + 1;
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
}
