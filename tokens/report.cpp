#include "tokens/report.h"

#include "qzerr.h"

namespace qz::tokens {

int report_bad_handle(const char *call, int handle)
{
    return report_bad_handle(call, "tok", handle);
}

int report_bad_handle(const char *call, const char *role, int handle)
{
    return qzerr_throw(kLibraryHandler, QZERR_WARNING, "%s(): bad %s index = %d \n", call, role,
                       handle);
}

int report_bad_index(const char *call, int index, int count, int indent)
{
    qzerr_throw(kLibraryHandler, QZERR_WARNING, "%s(): bad index = %d \n", call, index);
    return qzerr_throw(kLibraryHandler, QZERR_WARNING, "%*s:  only %d tokens in list\n", indent, "",
                       count);
}

int report_full_list()
{
    return qzerr_throw(kLibraryHandler, QZERR_FATAL, "qztoken_add(): can't expand list \n");
}

} // namespace qz::tokens
