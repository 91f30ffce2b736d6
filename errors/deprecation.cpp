#include "errors/handler_table.h"
#include "qzerr.h"
#include "qzerr.hpp"

#include <absl/container/flat_hash_set.h>

#include <cstdarg>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

using namespace qz::errors;

namespace {

bool warnings_wanted()
{
    static const bool wanted = std::getenv("HALCYRA_DEPRECATION_WARNING") != nullptr;
    return wanted;
}

/// Notes a call site. The pointer stands for the file: equal names at two addresses are two sites.
/// @return whether it is new.
bool note_call_site(const char *file, int line)
{
    static auto &sites = *new absl::flat_hash_set<std::pair<const void *, int>>;
    return sites.emplace(file, line).second;
}

/// The text as a part of a format that prints it: names of files may hold a '%'.
std::string quoted_for_format(const char *text)
{
    std::string quoted;
    for (; text != nullptr && *text != '\0'; ++text)
        quoted.append(*text == '%' ? 2 : 1, *text);
    return quoted;
}

} // namespace

int qzlog_deprecation_warning(const char *file, int line, const char *function, const char *format,
                              ...)
{
    if (!warnings_wanted() || default_handler().kind == DestinationKind::kNone)
        return 1;
    va_list arguments;
    va_start(arguments, format);
    try {
        if (note_call_site(file, line)) {
            const std::string text = "DEPRECATION for " + quoted_for_format(function) + " (" +
                                     quoted_for_format(file) + ":" + std::to_string(line) +
                                     "): " + (format != nullptr ? format : "");
            qzerr_vthrow(kDefaultHandler, QZERR_WARNING, text.c_str(), arguments);
        }
    } catch (const std::bad_alloc &) {
        // Without memory the warning is dropped, as is every other failure of this log.
    }
    va_end(arguments);
    return 1;
}

QzerrSuppressDeprecation::QzerrSuppressDeprecation()
    : saved_kind_(static_cast<int>(default_handler().kind))
{
    default_handler().kind = DestinationKind::kNone;
}

QzerrSuppressDeprecation::~QzerrSuppressDeprecation()
{
    default_handler().kind = static_cast<DestinationKind>(saved_kind_);
}
