#include "qzfile/qzpref/store_session.h"
#include "qzpref.hpp"

using namespace qz::pref;

QZPrefSource QZPREF::getKeySource(const char *key)
{
    if (!settings_ || !key)
        return QZPrefSource_NotFound;
    const std::string full_key = settings_->groups.full_key(key);
    const FallbackLayers &fallbacks = settings_->layers.get();
    return settings_->file->read([&](const Document &user) {
        return static_cast<QZPrefSource>(
            answering_record(variants_in_layers(user, fallbacks, full_key)).layer);
    });
}

std::string qzpref_source_to_string(QZPrefSource source)
{
    switch (source) {
    case QZPrefSource_User:
        return "user";
    case QZPrefSource_Machine:
        return "machine";
    case QZPrefSource_Installation:
        return "installation";
    case QZPrefSource_NotFound:
        return "not found";
    }
    return "unknown";
}
