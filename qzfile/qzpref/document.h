#ifndef QZ_QZPREF_DOCUMENT_H
#define QZ_QZPREF_DOCUMENT_H

#include "qzfile/qzpref/key_record.h"

#include <absl/container/flat_hash_set.h>
#include <absl/container/inlined_vector.h>
#include <boost/container/deque.hpp>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// All keys of one preference file with their records.
///
/// Keys are full paths in UTF-8, a platform suffix included. A lookup costs the same at 100 and at
/// 100,000 keys, and so does a change; the order is made good by settle() when a listing wants it.
/// Not locked: whoever shares a document guards it. A settled one may be read by all.
class Document {
public:
    class alignas(64) Entry {
    public:
        std::string_view key() const { return {key_.data(), key_.size()}; }

        const KeyRecord &record() const { return record_; }

    private:
        friend class Document;

        std::string_view base() const { return {key_.data(), base_bytes_}; }

        // Most keys lie in the entry itself, and it fills two lines of the cache: among 100,000 of
        // them a lookup is as slow as the number of lines it touches.
        absl::InlinedVector<char, 56> key_;
        KeyRecord record_;
        std::uint32_t base_bytes_ = 0;   // length of the key without its platform suffix
        std::uint32_t base_hash_ = 0;    // kept, so that the index grows without the keys
        std::uint32_t next_variant_ = 0; // next entry of the same preference, 0 for none
        std::int8_t variant_ = -1;       // place among its Variants, -1 when no lookup asks for it
    };

    Document();
    Document(Document &&) = default;
    Document &operator=(Document &&) = default;
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;
    ~Document() = default;

    bool empty() const { return size() == 0; }

    std::size_t size() const { return order_.size() + unordered_.size(); }

    /// The record stored under exactly @p key, NULL when there is none.
    const KeyRecord *find(std::string_view key) const;
    /// All platform forms of @p key, which carries no suffix itself. A key that has a ':' of its
    /// own stands for itself only.
    Variants variants(std::string_view key) const;

    void set(std::string_view key, KeyRecord record);
    /// Removes those of @p keys that are there. @return how many.
    std::size_t remove(const std::vector<std::string> &keys);

    /// Puts the keys in order; without it the next two may not be called after a change.
    void settle();

    /// Calls @p visit(entry) for every key that begins with @p prefix, in order.
    template <typename Visit> void for_each_below(std::string_view prefix, Visit visit) const
    {
        for (std::size_t i = lower_bound(prefix); i < order_.size(); ++i) {
            const Entry &entry = (*entries_)[order_[i]];
            if (entry.key().substr(0, prefix.size()) != prefix)
                return;
            visit(entry);
        }
    }

    /// The first key that is not before @p key in order; nothing behind the last.
    std::optional<std::string_view> first_from(std::string_view key) const;

private:
    // Entries stay where they are; the blocks are large, so that finding one costs nothing.
    using Entries = boost::container::deque<
        Entry, std::allocator<Entry>,
        boost::container::deque_options_t<boost::container::block_size<64u>>>;

    /// A key with what its preference is found by: the base and the hash of that.
    struct Wanted {
        explicit Wanted(std::string_view full_key);
        std::string_view key;
        std::string_view base;
        std::uint32_t hash;
    };

    struct Hash {
        using is_transparent = void;
        const Entries *entries;

        std::size_t operator()(const Wanted &wanted) const { return wanted.hash; }

        std::size_t operator()(std::uint32_t id) const { return (*entries)[id].base_hash_; }
    };

    struct Equal {
        using is_transparent = void;
        const Entries *entries;

        bool operator()(std::uint32_t a, std::uint32_t b) const
        {
            return a == b || (*entries)[a].base() == (*entries)[b].base();
        }

        bool operator()(std::uint32_t id, const Wanted &wanted) const
        {
            return (*entries)[id].base() == wanted.base;
        }
    };

    std::uint32_t id_of(const Wanted &wanted) const;
    std::uint32_t first_of(const Wanted &wanted) const;
    std::uint32_t make_entry(const Wanted &wanted);
    void unlink(std::uint32_t id);
    std::size_t lower_bound(std::string_view key) const;
    bool comes_before(std::uint32_t a, std::uint32_t b) const;

    std::unique_ptr<Entries> entries_;     // by id; the place of id 0 stays unused
    std::vector<std::uint32_t> free_;      // ids of entries that were removed
    std::vector<std::uint32_t> order_;     // ids in the order of their keys
    std::vector<std::uint32_t> unordered_; // ids that have come since
    absl::flat_hash_set<std::uint32_t, Hash, Equal> preferences_; // first entry of each
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
