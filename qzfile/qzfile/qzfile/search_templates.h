#ifndef QZ_QZFILE_SEARCH_TEMPLATES_H
#define QZ_QZFILE_SEARCH_TEMPLATES_H

namespace qz::file {

/// Where the data of the shared components lies: the user's own, then the installation's.
constexpr char kSharedComponentsTemplate[] =
    "$USERDATA/plindra:$PLINDRA_EXEC/../../data:$PLINDRA_EXEC/../../data/res:"
    "$PLINDRA_EXEC/../../data/xres";

} // namespace qz::file

#endif
