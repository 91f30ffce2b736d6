#include "qzfile/qzpref/document.h"

#include <absl/hash/hash.h>

#include <algorithm>

namespace qz::pref {

namespace {

constexpr std::uint32_t kNoEntry = 0;
constexpr std::string_view kSuffixStart = ":os=";
constexpr unsigned char kFirstAboveSurrogates = 0xEE; // lead byte of U+E000 in UTF-8
constexpr unsigned char kFirstSupplementary = 0xF0;   // lead byte of U+10000

/// Place of a spelling among the variants: 0 without a suffix, then by platform; -1 for a suffix
/// that no lookup asks for.
int variant_index(std::string_view suffix)
{
    if (suffix.empty())
        return 0;
    if (suffix.substr(0, kSuffixStart.size()) != kSuffixStart)
        return -1;
    suffix.remove_prefix(kSuffixStart.size());
    for (int i = QZPREF_PLATFORM_NONE; i <= QZPREF_PLATFORM_DARWIN; ++i) {
        if (suffix == platform_name(static_cast<QZPREF_PLATFORM>(i)))
            return i + 1;
    }
    return -1;
}

} // namespace

bool KeyOrder::operator()(std::string_view a, std::string_view b) const
{
    const std::size_t common = std::min(a.size(), b.size());
    const auto [pa, pb] =
        std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(common), b.begin());
    if (pa == a.begin() + static_cast<std::ptrdiff_t>(common))
        return a.size() < b.size();
    const auto ca = static_cast<unsigned char>(*pa);
    const auto cb = static_cast<unsigned char>(*pb);
    const bool both_high = ca >= kFirstAboveSurrogates && cb >= kFirstAboveSurrogates;
    if (both_high && (ca >= kFirstSupplementary) != (cb >= kFirstSupplementary))
        return ca >= kFirstSupplementary;
    return ca < cb;
}

Document::Wanted::Wanted(std::string_view full_key)
    : key(full_key), base(base_key(key)),
      hash(static_cast<std::uint32_t>(absl::Hash<std::string_view>()(base)))
{}

Document::Document()
    : entries_(std::make_unique<Entries>(1)),
      preferences_(0, Hash{entries_.get()}, Equal{entries_.get()})
{}

std::uint32_t Document::first_of(const Wanted &wanted) const
{
    const auto found = preferences_.find(wanted);
    return found == preferences_.end() ? kNoEntry : *found;
}

std::uint32_t Document::id_of(const Wanted &wanted) const
{
    std::uint32_t id = first_of(wanted);
    while (id != kNoEntry && (*entries_)[id].key() != wanted.key)
        id = (*entries_)[id].next_variant_;
    return id;
}

const KeyRecord *Document::find(std::string_view key) const
{
    const std::uint32_t id = id_of(Wanted(key));
    return id == kNoEntry ? nullptr : &(*entries_)[id].record_;
}

Variants Document::variants(std::string_view key) const
{
    Variants result;
    const Wanted wanted(key);
    if (wanted.base.size() == key.size()) {
        for (std::uint32_t id = first_of(wanted); id != kNoEntry;) {
            const Entry &entry = (*entries_)[id];
            if (entry.variant_ >= 0)
                result.records_[static_cast<std::size_t>(entry.variant_)] = &entry.record_;
            id = entry.next_variant_;
        }
        return result;
    }
    result.records_[0] = find(key);
    for (int i = QZPREF_PLATFORM_NONE; i <= QZPREF_PLATFORM_DARWIN; ++i) {
        result.records_[static_cast<std::size_t>(i) + 1] =
            find(suffixed_key(key, static_cast<QZPREF_PLATFORM>(i)));
    }
    return result;
}

std::uint32_t Document::make_entry(const Wanted &wanted)
{
    std::uint32_t id = 0;
    if (free_.empty()) {
        id = static_cast<std::uint32_t>(entries_->size());
        entries_->emplace_back();
    } else {
        id = free_.back();
        free_.pop_back();
    }
    Entry &entry = (*entries_)[id];
    entry.key_.assign(wanted.key.begin(), wanted.key.end());
    entry.base_bytes_ = static_cast<std::uint32_t>(wanted.base.size());
    entry.base_hash_ = wanted.hash;
    entry.variant_ = static_cast<std::int8_t>(variant_index(wanted.key.substr(wanted.base.size())));
    const auto [first, is_new] = preferences_.insert(id);
    if (!is_new) {
        Entry &head = (*entries_)[*first];
        entry.next_variant_ = head.next_variant_;
        head.next_variant_ = id;
    }
    return id;
}

void Document::set(std::string_view key, KeyRecord record)
{
    const Wanted wanted(key);
    std::uint32_t id = id_of(wanted);
    if (id == kNoEntry) {
        id = make_entry(wanted);
        // A file comes in order, so most keys go behind all others.
        if (unordered_.empty() && (order_.empty() || comes_before(order_.back(), id)))
            order_.push_back(id);
        else
            unordered_.push_back(id);
    }
    (*entries_)[id].record_ = std::move(record);
}

void Document::unlink(std::uint32_t id)
{
    Entry &entry = (*entries_)[id];
    const std::uint32_t first = first_of(Wanted(entry.key()));
    if (first == id) {
        preferences_.erase(id);
        if (entry.next_variant_ != kNoEntry)
            preferences_.insert(entry.next_variant_);
    } else {
        std::uint32_t before = first;
        while ((*entries_)[before].next_variant_ != id)
            before = (*entries_)[before].next_variant_;
        (*entries_)[before].next_variant_ = entry.next_variant_;
    }
    entry = Entry();
    free_.push_back(id);
}

std::size_t Document::remove(const std::vector<std::string> &keys)
{
    settle();
    std::vector<std::uint32_t> doomed;
    for (const std::string &key : keys) {
        if (const std::uint32_t id = id_of(Wanted(key)))
            doomed.push_back(id);
    }
    if (doomed.size() == 1) {
        const std::size_t place = lower_bound((*entries_)[doomed[0]].key());
        order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(place));
    } else if (!doomed.empty()) {
        std::sort(doomed.begin(), doomed.end());
        doomed.erase(std::unique(doomed.begin(), doomed.end()), doomed.end());
        order_.erase(std::remove_if(order_.begin(), order_.end(),
                                    [&](std::uint32_t id) {
                                        return std::binary_search(doomed.begin(), doomed.end(), id);
                                    }),
                     order_.end());
    }
    for (const std::uint32_t id : doomed)
        unlink(id);
    return doomed.size();
}

bool Document::comes_before(std::uint32_t a, std::uint32_t b) const
{
    return KeyOrder()((*entries_)[a].key(), (*entries_)[b].key());
}

void Document::settle()
{
    const auto before = [this](std::uint32_t a, std::uint32_t b) { return comes_before(a, b); };
    // A handful finds its places one by one; for more it pays to look at every key once.
    constexpr std::size_t kHandful = 16;
    if (unordered_.size() <= kHandful) {
        for (const std::uint32_t id : unordered_)
            order_.insert(std::lower_bound(order_.begin(), order_.end(), id, before), id);
    } else {
        std::sort(unordered_.begin(), unordered_.end(), before);
        const auto middle = static_cast<std::ptrdiff_t>(order_.size());
        order_.insert(order_.end(), unordered_.begin(), unordered_.end());
        std::inplace_merge(order_.begin(), order_.begin() + middle, order_.end(), before);
    }
    unordered_.clear();
}

std::size_t Document::lower_bound(std::string_view key) const
{
    const auto found = std::lower_bound(order_.begin(), order_.end(), key,
                                        [this](std::uint32_t id, std::string_view wanted) {
                                            return KeyOrder()((*entries_)[id].key(), wanted);
                                        });
    return static_cast<std::size_t>(found - order_.begin());
}

std::optional<std::string_view> Document::first_from(std::string_view key) const
{
    const std::size_t place = lower_bound(key);
    if (place == order_.size())
        return std::nullopt;
    return (*entries_)[order_[place]].key();
}

std::string suffixed_key(std::string_view key, QZPREF_PLATFORM platform)
{
    std::string suffixed(key);
    suffixed += kSuffixStart;
    suffixed += platform_name(platform);
    return suffixed;
}

} // namespace qz::pref
