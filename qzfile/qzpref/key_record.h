#ifndef QZ_QZPREF_KEY_RECORD_H
#define QZ_QZPREF_KEY_RECORD_H

#include "qzpref.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace qz::pref {

/// Name of a value type as files and messages spell it; empty for QZPREF_TYPE_NONE.
std::string_view type_name(QZPREF_TYPE type);
/// The type that @p name spells, QZPREF_TYPE_NONE when there is none.
QZPREF_TYPE type_from_name(std::string_view name);
/// Name of a platform as keys spell it: "none", "windows", "linux", "darwin".
std::string_view platform_name(QZPREF_PLATFORM platform);
/// The platform this library is built for.
QZPREF_PLATFORM current_platform();

/// What a file holds under one key. All texts are UTF-8.
class KeyRecord {
public:
    KeyRecord() = default;
    KeyRecord(const KeyRecord &other);
    KeyRecord &operator=(const KeyRecord &other);
    KeyRecord(KeyRecord &&) noexcept = default;
    KeyRecord &operator=(KeyRecord &&) noexcept = default;
    ~KeyRecord() = default;

    const std::string &value() const { return value_; }

    void set_value(std::string value) { value_ = std::move(value); }

    /// Type named by the "dt" attribute; QZPREF_TYPE_NONE without one or with an unknown name.
    QZPREF_TYPE type() const { return type_; }

    /// The "dt" attribute as it is written, known or not.
    std::string_view type_text() const;

    /// Sets an attribute of the element, "dt" included; "comment" and "value" set those.
    void set_attribute(std::string_view name, std::string value);
    const std::string &comment() const;
    void set_comment(std::string comment);

    /// Calls @p visit(name, value) for every attribute of the element in ascending order of names.
    template <typename Visit> void for_each_attribute(Visit visit) const
    {
        bool type_due = type_ != QZPREF_TYPE_NONE;
        if (rare_) {
            for (const auto &[name, value] : rare_->attributes) {
                if (type_due && name > kTypeAttribute) {
                    visit(kTypeAttribute, type_name(type_));
                    type_due = false;
                }
                visit(std::string_view(name), std::string_view(value));
            }
        }
        if (type_due)
            visit(kTypeAttribute, type_name(type_));
    }

    static constexpr std::string_view kTypeAttribute = "dt";

private:
    // Most keys have a value and a known type and nothing else; the rest lives apart so that
    // 100,000 keys stay small.
    struct Rare {
        std::string comment;
        std::map<std::string, std::string, std::less<>> attributes;
    };

    Rare &rare();

    std::string value_;
    QZPREF_TYPE type_ = QZPREF_TYPE_NONE;
    std::unique_ptr<Rare> rare_;
};

} // namespace qz::pref

#endif
