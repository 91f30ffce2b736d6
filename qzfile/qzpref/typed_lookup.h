#ifndef QZ_QZPREF_TYPED_LOOKUP_H
#define QZ_QZPREF_TYPED_LOOKUP_H

#include "qzfile/qzpref/store_session.h"
#include "qzfile/qzpref/value_text.h"

#include <optional>
#include <type_traits>

namespace qz::pref {

/// The preference type that holds values of type T.
template <typename T> constexpr QZPREF_TYPE type_of_values()
{
    if constexpr (std::is_same_v<T, int>)
        return QZPREF_TYPE_INT;
    else if constexpr (std::is_same_v<T, double>)
        return QZPREF_TYPE_DOUBLE;
    else if constexpr (std::is_same_v<T, bool>)
        return QZPREF_TYPE_BOOL;
    else
        return QZPREF_TYPE_STRING;
}

/// The value of @p record as a T: only when the record is of exactly that type and its text spells
/// one.
template <typename T> std::optional<T> value_of(const KeyRecord &record)
{
    if (record.type() != type_of_values<T>())
        return std::nullopt;
    return from_text<T>(record.value());
}

constexpr std::size_t kNoLayer = 3;

/// Where a key was found and what it holds there; no value when it is of another type.
template <typename T> struct Found {
    std::size_t layer = kNoLayer;
    std::optional<T> value;
};

template <typename T> Found<T> look_up(StoreSession &session, std::string_view key)
{
    const std::string full_key = session.groups.full_key(key);
    const FallbackLayers &fallbacks = session.layers.get();
    return session.file->read([&](const Document &user) -> Found<T> {
        const LayeredRecord answer =
            answering_record(variants_in_layers(user, fallbacks, full_key));
        if (!answer.record)
            return {};
        return {answer.layer, value_of<T>(*answer.record)};
    });
}

} // namespace qz::pref

#endif
