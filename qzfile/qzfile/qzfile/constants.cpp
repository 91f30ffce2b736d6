#include "qzfile.h"
#include "qzfile/qzfile/qzfile/search_templates.h"

#include <iterator>

namespace {

/// The constants by the numbers that callers know. A separator at the end of a list is harmless.
constexpr const char *kConstants[] = {
    "\\",
    ":",
    qz::file::kSharedComponentsTemplate,
    "$USERDATA/atelio:$ATELIO_EXEC/../../data:$ATELIO_EXEC/../../data/res",
    "$USERDATA/korvel:$KRVL_EXEC/../../data",
    "$BREVIX_EXEC/../../data:$BREVIX_EXEC/../../uff:",
    "$USERDATA/hesprin:$HESPRIN_EXEC/../../data:",
    "$USERDATA/lumetra:$LUMETRA_EXEC:$LUMETRA_EXEC/../../data",
    "$USERDATA/ostrine:$SEVRANE_EXEC/../../data:$OSTRINE_EXEC/../../data",
    "$USERDATA/dolmire:$DOLMIRE_EXEC/../../data:$PLINDRA_EXEC/../../data/dolmire",
};

} // namespace

const char *qzfile_get_constant(int index)
{
    return index >= 0 && index < static_cast<int>(std::size(kConstants)) ? kConstants[index]
                                                                         : nullptr;
}
