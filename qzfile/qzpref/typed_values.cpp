#include "qzerr.h"
#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/store_session.h"
#include "qzfile/qzpref/typed_lookup.h"
#include "qzpref.hpp"

using namespace qz::pref;

namespace {

/// Hands back what a getter without a default gives: the layered value, or the type's empty value.
template <typename T>
QZpref_Err get_layered(StoreSession *session, const std::string &key, T &value)
{
    value = T();
    if (!session)
        return QZPREF_FAILURE;
    Found<T> found = look_up<T>(*session, key);
    if (found.layer == kNoLayer)
        return QZPREF_KEY_NOT_FOUND;
    if (!found.value)
        return QZPREF_CONVERSION_ERROR;
    value = std::move(*found.value);
    return QZPREF_SUCCESS_;
}

/// Hands back what a getter with a default gives: a value of the user's own file, or the default. A
/// value that only a lower layer has is announced, never handed back.
template <typename T>
QZpref_Err get_users_own(StoreSession *session, const std::string &key, T &value, const T &fallback)
{
    T result = fallback;
    QZpref_Err code = QZPREF_FAILURE;
    if (session) {
        Found<T> found = look_up<T>(*session, key);
        if (found.layer != 0) {
            code = found.value ? QZPREF_LOWER_LAYER : QZPREF_KEY_NOT_FOUND;
        } else if (!found.value) {
            code = QZPREF_CONVERSION_ERROR;
        } else {
            result = std::move(*found.value);
            code = QZPREF_SUCCESS_;
        }
    }
    value = std::move(result);
    return code;
}

/// The text under which @p value is stored; false when a preference file cannot hold it.
bool storable_text(const QVariant &value, std::string &text)
{
    const QString string = value.toString();
    text = string.toStdString();
    return value.isValid() && value.canConvert<QString>() && string.isValidUtf16() &&
           is_xml_text(text);
}

} // namespace

QZpref_Err QZPREF::get(const std::string &key, int &value)
{
    return get_layered(settings_.get(), key, value);
}

QZpref_Err QZPREF::get(const std::string &key, double &value)
{
    return get_layered(settings_.get(), key, value);
}

QZpref_Err QZPREF::get(const std::string &key, bool &value)
{
    return get_layered(settings_.get(), key, value);
}

QZpref_Err QZPREF::get(const std::string &key, std::string &value)
{
    return get_layered(settings_.get(), key, value);
}

QZpref_Err QZPREF::getInt(const std::string &key, int *out, int fallback)
{
    return get_users_own(settings_.get(), key, *out, fallback);
}

QZpref_Err QZPREF::getDouble(const std::string &key, double *out, double fallback)
{
    return get_users_own(settings_.get(), key, *out, fallback);
}

QZpref_Err QZPREF::getBool(const std::string &key, bool *out, bool fallback)
{
    return get_users_own(settings_.get(), key, *out, fallback);
}

QZpref_Err QZPREF::getString(const std::string &key, std::string &out, const std::string &fallback)
{
    return get_users_own(settings_.get(), key, out, fallback);
}

QZpref_Err QZPREF::getString(const std::string &key, std::string &out)
{
    return get_layered(settings_.get(), key, out);
}

QZPREF_TYPE QZPREF::getType(const std::string &key)
{
    if (!settings_)
        return QZPREF_TYPE_NONE;
    const std::string full_key = settings_->groups.full_key(key);
    const FallbackLayers &fallbacks = settings_->layers.get();
    return settings_->file->read([&](const Document &user) {
        return type_of(variants_in_layers(user, fallbacks, full_key));
    });
}

QZpref_Err QZPREF::hasKey(const std::string &key)
{
    if (!settings_)
        return QZPREF_FAILURE;
    const std::string full_key = settings_->groups.full_key(key);
    return settings_->file->read([&](const Document &user) {
        return user.variants(full_key).answer(current_platform()) ? QZPREF_SUCCESS_
                                                                  : QZPREF_KEY_NOT_FOUND;
    });
}

QZpref_Err QZPREF::hasKey(const std::string &key, QZPREF_TYPE type)
{
    if (!settings_ || type == QZPREF_TYPE_NONE)
        return QZPREF_FAILURE;
    const std::string full_key = settings_->groups.full_key(key);
    return settings_->file->read([&](const Document &user) {
        const KeyRecord *record = user.variants(full_key).answer(current_platform());
        return record && record->type() == type ? QZPREF_SUCCESS_ : QZPREF_KEY_NOT_FOUND;
    });
}

QZpref_Err QZPREF::set(const std::string &key, QVariant value, const std::string &comment)
{
    if (!settings_)
        return QZPREF_FAILURE;
    if (const QZpref_Err failure = validate_key(key))
        return failure;
    const std::string new_type = value.isValid() ? value.typeName() : "";
    const QZPREF_TYPE type = getType(key);
    if (type != QZPREF_TYPE_NONE && new_type != type_name(type)) {
        const std::string existing(type_name(type));
        qzerr_throw(-1, QZERR_WARNING,
                    "%s: Incorrect value of type '%s' is being set for existing '%s' type "
                    "key('%s')\n",
                    "QZPREF::set", new_type.c_str(), existing.c_str(), key.c_str());
        return QZPREF_FAILURE;
    }
    std::string text;
    if (!storable_text(value, text) || !is_xml_text(comment)) {
        qzerr_throw(-1, QZERR_WARNING,
                    "%s: The value or the comment of key('%s') holds what an XML 1.0 file cannot "
                    "store.\n",
                    "QZPREF::set", key.c_str());
        return QZPREF_FAILURE;
    }

    std::string full_key = settings_->groups.full_key(key);
    if (os_attribute_ != QZPREF_PLATFORM_NONE)
        full_key = suffixed_key(full_key, os_attribute_);
    settings_->file->update(full_key, [&](KeyRecord &record) {
        record.set_attribute(KeyRecord::kTypeAttribute, new_type);
        record.set_value(std::move(text));
        if (!comment.empty())
            record.set_comment(comment);
    });
    settings_->auto_save.request();
    return QZPREF_SUCCESS_;
}
