#ifndef QZ_QZPREF_FALLBACK_LAYERS_H
#define QZ_QZPREF_FALLBACK_LAYERS_H

#include "qzfile/qzpref/document.h"

#include <QString>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

namespace qz::pref {

/// The two preference files that are only read, as they were when the first store was opened.
struct FallbackLayers {
    std::shared_ptr<const Document> machine;      ///< NULL when the layer is left out
    std::shared_ptr<const Document> installation; ///< NULL when the layer is left out
};

/// Held while a store is opened or the layers are dropped.
std::recursive_mutex &library_mutex();

/// Reads the layers if no store has done so, or always while HALCYRA_QZPREF_TEST is set. The caller
/// holds the library's mutex.
void scan_profile();

/// Counts a live store, a copy included.
void store_opened();
/// Counts it off. The last one to go drops the layers, so that the next store sees the files
/// afresh.
void store_closed();

/// The layers in force. A reader keeps its own copy and asks again only after they were read anew.
class CurrentLayers {
public:
    const FallbackLayers &get();

private:
    FallbackLayers layers_;
    std::uint64_t generation_ = 0;
};

} // namespace qz::pref

#endif
