#include "qzfile/qzpref/fallback_layers.h"

#include "qzfile/qzpref/error_text.h"
#include "qzfile/qzpref/preference_file.h"
#include "qzpref.hpp"

#include <QDebug>

namespace qz::pref {

namespace {

struct Library {
    std::recursive_mutex opening;
    bool scanned = false; // guarded by opening
    std::atomic<int> live_stores{0};

    std::mutex layers_mutex;
    FallbackLayers layers;                    // guarded by layers_mutex
    std::atomic<std::uint64_t> generation{1}; // raised with every change of layers
};

Library &library()
{
    // Never destroyed: a store that outlives the statics of its program still finds it.
    static Library *const instance = new Library;
    return *instance;
}

void publish(FallbackLayers layers)
{
    const std::lock_guard<std::mutex> guard(library().layers_mutex);
    library().layers = std::move(layers);
    ++library().generation;
}

std::shared_ptr<const Document> read_layer(const QString &path, const char *which)
{
    if (path.isEmpty() || !PreferenceFile(path).exists())
        return nullptr;
    auto document = std::make_shared<Document>();
    const QZpref_Err failure = read_document(path, *document);
    if (!failure)
        return document;
    qWarning().noquote().nospace() << "scan_profile: Loading " << which << " fallback  setting("
                                   << path << ") failed. " << error_text(failure);
    return nullptr;
}

} // namespace

std::recursive_mutex &library_mutex()
{
    return library().opening;
}

void scan_profile()
{
    if (library().scanned && !qEnvironmentVariableIsSet("HALCYRA_QZPREF_TEST"))
        return;
    using namespace halcyra::preferences::internal;
    publish({read_layer(get_machine_preferences_path(), "first level"),
             read_layer(get_suite_preferences_path(), "second level")});
    library().scanned = true;
}

void store_opened()
{
    ++library().live_stores;
}

void store_closed()
{
    --library().live_stores;
    const std::lock_guard<std::recursive_mutex> guard(library().opening);
    if (library().live_stores != 0 || !library().scanned)
        return;
    publish({});
    library().scanned = false;
}

const FallbackLayers &CurrentLayers::get()
{
    if (library().generation.load(std::memory_order_acquire) == generation_)
        return layers_;
    const std::lock_guard<std::mutex> guard(library().layers_mutex);
    layers_ = library().layers;
    generation_ = library().generation.load(std::memory_order_relaxed);
    return layers_;
}

} // namespace qz::pref
