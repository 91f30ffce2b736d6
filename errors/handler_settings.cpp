#include "errors/handler_table.h"
#include "qzerr.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace qz::errors;

namespace {

constexpr std::size_t kLongestPrefix = 511;

/// Kept for callers that still set it; nothing reads it.
bool qzlibs_flag = false;

/// Changes the handler with that id.
/// @return 1, or 0 when there is none.
template <typename Change> int change(int id, Change apply)
{
    QzerrHandler *handler = find_handler(id);
    if (handler == nullptr)
        return 0;
    apply(*handler);
    return 1;
}

/// Stores something about the handler with that id.
/// @return 1, or 0 when there is none or nowhere to store it.
template <typename Value, typename Query> int store(int id, Value *value, Query query)
{
    const QzerrHandler *handler = find_handler(id);
    if (handler == nullptr || value == nullptr)
        return 0;
    *value = query(*handler);
    return 1;
}

} // namespace

int qzerr_level(int id, unsigned level)
{
    return change(id, [=](QzerrHandler &handler) { handler.set_level(level); });
}

int qzerr_get_level(int id, unsigned *level)
{
    return store(id, level, [](const QzerrHandler &handler) { return handler.level; });
}

int qzerr_maxlevel(int id, unsigned *level)
{
    return store(id, level, [](const QzerrHandler &handler) { return handler.max_level; });
}

int qzerr_errclear(int id)
{
    return change(id, [](QzerrHandler &handler) {
        handler.set_max_level(QZERR_OK);
        release(handler.captured);
    });
}

int qzerr_prefix(int id, const char *prefix)
{
    QzerrHandler *handler = find_handler(id);
    if (handler == nullptr || prefix == nullptr)
        return 0;
    std::free(handler->prefix);
    handler->prefix = nullptr;
    const void *end = std::memchr(prefix, '\0', kLongestPrefix + 1);
    if (end == nullptr)
        return 0;
    const auto bytes = static_cast<std::size_t>(static_cast<const char *>(end) - prefix) + 1;
    handler->prefix = static_cast<char *>(std::malloc(bytes));
    if (handler->prefix == nullptr)
        return 0;
    std::memcpy(handler->prefix, prefix, bytes);
    return 1;
}

int qzerr_file(int id, FILE *stream)
{
    return change(id, [=](QzerrHandler &handler) {
        handler.stream = stream;
        handler.kind = stream != nullptr ? DestinationKind::kStream : DestinationKind::kNone;
    });
}

bool qz::errors::set_fortran_unit(int id, std::int32_t unit)
{
    return change(id, [=](QzerrHandler &handler) {
               handler.unit = unit;
               handler.kind = unit >= 0 ? DestinationKind::kFortranUnit : DestinationKind::kNone;
           }) == 1;
}

int qzerr_window(int id, int (*callback)(const char *message))
{
    return change(id, [=](QzerrHandler &handler) { handler.window = callback; });
}

int qzerr_suppress_print(int id)
{
    return change(id, [](QzerrHandler &handler) { handler.printing_suppressed = true; });
}

int qzerr_restore_print(int id)
{
    return change(id, [](QzerrHandler &handler) { handler.printing_suppressed = false; });
}

int qzerr_print_state(int id, int *on)
{
    return store(id, on,
                 [](const QzerrHandler &handler) { return handler.printing_suppressed ? 0 : 1; });
}

void qzerr_assert(int condition, const char *file, int line)
{
    if (condition == 0) {
        std::fprintf(stderr, "Assert failed.  File: %s  Line: %d\n",
                     file != nullptr ? file : "(null)", line);
    }
}

void qzerr_set_qzlibs(void)
{
    qzlibs_flag = true;
}
