#include "qzfile.hpp"

#include <algorithm>
#include <iterator>

namespace {

/// How far a release is from the newest. A name that is not listed stands behind the oldest.
std::ptrdiff_t age(const std::string &release)
{
    const std::list<std::string> &names = qzfile_get_past_release_names();
    return std::distance(names.begin(), std::find(names.begin(), names.end(), release));
}

} // namespace

int compare_releases(std::string a, std::string b)
{
    const std::ptrdiff_t lead = age(b) - age(a);
    return (lead > 0) - (lead < 0);
}
