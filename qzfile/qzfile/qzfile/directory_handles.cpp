#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/directory_listing.h"

#include <cstring>
#include <optional>
#include <utility>
#include <vector>

using namespace qz::file;

namespace {

/// The listings by handle; a closed handle is an empty place that a later open takes.
std::vector<std::optional<DirectoryListing>> &listings()
{
    static std::vector<std::optional<DirectoryListing>> table;
    return table;
}

/// The open listing behind a handle, or null.
DirectoryListing *find_listing(int handle)
{
    auto &table = listings();
    if (handle < 0 || static_cast<std::size_t>(handle) >= table.size())
        return nullptr;
    auto &place = table[static_cast<std::size_t>(handle)];
    return place ? &*place : nullptr;
}

/// The free place with the highest number; a new one when all are taken.
std::size_t take_free_place()
{
    auto &table = listings();
    for (std::size_t place = table.size(); place-- > 0;) {
        if (!table[place])
            return place;
    }
    table.emplace_back();
    return table.size() - 1;
}

int open_listing(int *handle, const char *path)
{
    const std::size_t place = take_free_place();
    DirectoryListing listing;
    if (!listing.open(path))
        return -1;
    listings()[place] = std::move(listing);
    *handle = static_cast<int>(place);
    return 0;
}

} // namespace

int qzfile_open_directory(int *handle, const char *path)
{
    if (!handle)
        return -1;
    *handle = -1;
    return guarded(-1, [&] { return open_listing(handle, or_empty(path)); });
}

int qzfile_set_dir_filter(int handle, const char *pattern)
{
    DirectoryListing *listing = find_listing(handle);
    return listing && listing->set_filter(or_empty(pattern)) ? 0 : -1;
}

int qzfile_get_next_file(int handle, char *name, int size)
{
    DirectoryListing *listing = find_listing(handle);
    const std::string_view entry = listing ? listing->next() : std::string_view();
    if (entry.empty())
        return -2;
    if (!name || size < 0 || entry.size() > static_cast<std::size_t>(size))
        return -1;
    std::memcpy(name, entry.data(), entry.size());
    if (entry.size() < static_cast<std::size_t>(size))
        name[entry.size()] = '\0';
    return 0;
}

int qzfile_close_directory(int handle)
{
    if (!find_listing(handle))
        return -1;
    listings()[static_cast<std::size_t>(handle)].reset();
    return 0;
}
