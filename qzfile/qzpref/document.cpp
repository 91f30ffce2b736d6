#include "qzfile/qzpref/document.h"

#include <algorithm>

namespace qz::pref {

namespace {

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

const KeyRecord *Document::find(std::string_view key) const
{
    const auto found = entries_.find(key);
    return found == entries_.end() ? nullptr : &found->second;
}

Variants Document::variants(std::string_view key) const
{
    if (key.find(':') == std::string_view::npos) {
        const auto found = variants_.find(key);
        return found == variants_.end() ? Variants() : found->second;
    }
    Variants result;
    result.records_[0] = find(key);
    for (int i = QZPREF_PLATFORM_NONE; i <= QZPREF_PLATFORM_DARWIN; ++i) {
        result.records_[static_cast<std::size_t>(i) + 1] =
            find(suffixed_key(key, static_cast<QZPREF_PLATFORM>(i)));
    }
    return result;
}

void Document::index(Entries::const_iterator entry)
{
    const std::string_view base = base_key(entry->first);
    const int place = variant_index(std::string_view(entry->first).substr(base.size()));
    if (place >= 0)
        variants_[base].records_[static_cast<std::size_t>(place)] = &entry->second;
}

void Document::unindex(Entries::const_iterator entry)
{
    const std::string_view base = base_key(entry->first);
    const int place = variant_index(std::string_view(entry->first).substr(base.size()));
    if (place < 0)
        return;
    // The index may have borrowed its name from this entry, so the others lend it theirs.
    const auto indexed = variants_.find(base);
    Variants rest = indexed->second;
    rest.records_[static_cast<std::size_t>(place)] = nullptr;
    variants_.erase(indexed);
    for (std::size_t i = 0; i < rest.records_.size(); ++i) {
        if (!rest.records_[i])
            continue;
        const auto lender =
            i == 0 ? entries_.find(base)
                   : entries_.find(suffixed_key(base, static_cast<QZPREF_PLATFORM>(i - 1)));
        variants_.emplace(base_key(lender->first), rest);
        return;
    }
}

KeyRecord &Document::set(std::string_view key, KeyRecord record)
{
    const auto found = entries_.lower_bound(key);
    if (found != entries_.end() && found->first == key) {
        found->second = std::move(record);
        return found->second;
    }
    const auto added = entries_.emplace_hint(found, key, std::move(record));
    index(added);
    return added->second;
}

void Document::append(std::string_view key, KeyRecord record)
{
    if (!entries_.empty() && !KeyOrder()(std::prev(entries_.end())->first, key)) {
        set(key, std::move(record));
        return;
    }
    index(entries_.emplace_hint(entries_.end(), key, std::move(record)));
}

bool Document::remove(std::string_view key)
{
    const auto entry = entries_.find(key);
    if (entry == entries_.end())
        return false;
    unindex(entry);
    entries_.erase(entry);
    return true;
}

std::string suffixed_key(std::string_view key, QZPREF_PLATFORM platform)
{
    std::string suffixed(key);
    suffixed += kSuffixStart;
    suffixed += platform_name(platform);
    return suffixed;
}

} // namespace qz::pref
