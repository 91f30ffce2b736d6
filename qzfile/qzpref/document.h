#ifndef QZ_QZPREF_DOCUMENT_H
#define QZ_QZPREF_DOCUMENT_H

#include "qzfile/qzpref/key_record.h"

#include <absl/container/flat_hash_map.h>

#include <array>
#include <map>
#include <string>
#include <string_view>

namespace qz::pref {

/// Orders keys as files list them: by UTF-16 code units. That is the order of the bytes except
/// where a character beyond U+FFFF meets one from U+E000 on.
struct KeyOrder {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

/// The same preference for all platforms and for each one, as far as a document has them.
class Variants {
public:
    /// The record for all platforms, NULL when there is none.
    const KeyRecord *plain() const { return records_[0]; }

    /// The record for @p platform only, NULL when there is none.
    const KeyRecord *own(QZPREF_PLATFORM platform) const
    {
        return records_[static_cast<std::size_t>(platform) + 1];
    }

    /// The record that answers on @p platform: its own before the one for all.
    const KeyRecord *answer(QZPREF_PLATFORM platform) const
    {
        const KeyRecord *record = own(platform);
        return record ? record : plain();
    }

private:
    friend class Document;
    std::array<const KeyRecord *, 5> records_{}; ///< for all, then indexed by QZPREF_PLATFORM
};

/// All keys of one preference file, in order, with their records.
///
/// Keys are full paths in UTF-8, a platform suffix included. A lookup costs the same at 100 and at
/// 100,000 keys. Not locked: whoever shares a document guards it.
class Document {
public:
    using Entries = std::map<std::string, KeyRecord, KeyOrder>;

    Document() = default;
    Document(Document &&) = default;
    Document &operator=(Document &&) = default;
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    const Entries &entries() const { return entries_; }

    bool empty() const { return entries_.empty(); }

    /// The record stored under exactly @p key, NULL when there is none.
    const KeyRecord *find(std::string_view key) const;
    /// All platform forms of @p key, which carries no suffix itself. A key that has a ':' of its
    /// own stands for itself only.
    Variants variants(std::string_view key) const;

    /// First entry below the group @p prefix ("display/"); the rest follows while keys begin so.
    Entries::const_iterator lower_bound(std::string_view prefix) const
    {
        return entries_.lower_bound(prefix);
    }

    KeyRecord &set(std::string_view key, KeyRecord record);
    /// As set() for a key that is likely to come after all others, as in a file.
    void append(std::string_view key, KeyRecord record);
    bool remove(std::string_view key);

private:
    void index(Entries::const_iterator entry);
    void unindex(Entries::const_iterator entry);

    Entries entries_;
    // The names are borrowed from the entries, whose nodes never move.
    absl::flat_hash_map<std::string_view, Variants> variants_;
};

/// A key without its platform suffix: the text before the first ':'.
inline std::string_view base_key(std::string_view key)
{
    return key.substr(0, key.find(':'));
}

/// The key of the value for one platform: @p key with ":os=" and the platform's name.
std::string suffixed_key(std::string_view key, QZPREF_PLATFORM platform);

} // namespace qz::pref

#endif
