#include "qzfile/qzpref/key_record.h"

#include "platform/system_name.h"

#include <array>

namespace qz::pref {

namespace {

constexpr std::array<std::string_view, 5> kTypeNames = {"", "int", "QString", "double", "bool"};
constexpr std::array<std::string_view, 4> kPlatformNames = {"none", "windows", "linux", "darwin"};

} // namespace

std::string_view type_name(QZPREF_TYPE type)
{
    const auto index = static_cast<std::size_t>(type);
    return index < kTypeNames.size() ? kTypeNames[index] : std::string_view();
}

QZPREF_TYPE type_from_name(std::string_view name)
{
    for (std::size_t i = 1; i < kTypeNames.size(); ++i) {
        if (kTypeNames[i] == name)
            return static_cast<QZPREF_TYPE>(i);
    }
    return QZPREF_TYPE_NONE;
}

std::string_view platform_name(QZPREF_PLATFORM platform)
{
    const auto index = static_cast<std::size_t>(platform);
    return index < kPlatformNames.size() ? kPlatformNames[index] : kPlatformNames[0];
}

QZPREF_PLATFORM current_platform()
{
    static const QZPREF_PLATFORM platform = [] {
        for (std::size_t i = 1; i < kPlatformNames.size(); ++i) {
            if (kPlatformNames[i] == platform::system_name())
                return static_cast<QZPREF_PLATFORM>(i);
        }
        return QZPREF_PLATFORM_NONE;
    }();
    return platform;
}

KeyRecord::KeyRecord(const KeyRecord &other)
    : value_(other.value_), type_(other.type_),
      rare_(other.rare_ ? std::make_unique<Rare>(*other.rare_) : nullptr)
{}

KeyRecord &KeyRecord::operator=(const KeyRecord &other)
{
    return *this = KeyRecord(other);
}

KeyRecord::Rare &KeyRecord::rare()
{
    if (!rare_)
        rare_ = std::make_unique<Rare>();
    return *rare_;
}

std::string_view KeyRecord::type_text() const
{
    if (type_ != QZPREF_TYPE_NONE || !rare_)
        return type_name(type_);
    const auto found = rare_->attributes.find(kTypeAttribute);
    return found == rare_->attributes.end() ? std::string_view() : found->second;
}

void KeyRecord::set_attribute(std::string_view name, std::string value)
{
    if (name == "value") {
        value_ = std::move(value);
    } else if (name == "comment") {
        set_comment(std::move(value));
    } else if (name != kTypeAttribute) {
        rare().attributes.insert_or_assign(std::string(name), std::move(value));
    } else {
        type_ = type_from_name(value);
        if (type_ == QZPREF_TYPE_NONE)
            rare().attributes.insert_or_assign(std::string(name), std::move(value));
        else if (rare_)
            rare_->attributes.erase(std::string(name));
    }
}

const std::string &KeyRecord::comment() const
{
    static const std::string none;
    return rare_ ? rare_->comment : none;
}

void KeyRecord::set_comment(std::string comment)
{
    if (rare_ || !comment.empty())
        rare().comment = std::move(comment);
}

} // namespace qz::pref
