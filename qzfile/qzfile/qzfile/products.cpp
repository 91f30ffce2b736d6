#include "qzfile/qzfile/qzfile/products.h"

#include "qzfile.hpp"

#include <algorithm>
#include <array>
#include <cstring>

namespace qz::file {

namespace {

constexpr int kPlindraVersion = 71131;

/// Every product of the suite, sorted by word. All versions of one release end alike.
constexpr std::array<Product, 20> kProducts = {{
    {"aldune", 68131},
    {"atelio", 136131},
    {"brevix", 101131},
    {"cantrel", 53131},
    {"docs_data", kPlindraVersion},
    {"dolmire", 94131},
    {"fenquist", 77131},
    {"gravelle", 62131},
    {"hesprin", 118131},
    {"ilvane", 85131},
    {"jorvessa", 59131},
    {"korvel", 149131},
    {"lumetra", 107131},
    {"mirvost", 73131},
    {"nordeval", 66131},
    {"ostrine", 112131},
    {"plindra", kPlindraVersion},
    {"qa_checks", 80131},
    {"sevrane", 123131},
    {"vendrith", 91131},
}};

/// Accepted where a product is asked for, but without a version of their own.
constexpr std::string_view kDirectoriesBesideProducts[] = {"sample_data", "site_scripts"};

constexpr bool comes_before(const Product &product, std::string_view word)
{
    return product.word < word;
}

constexpr bool is_sorted_by_word()
{
    for (std::size_t i = 1; i < kProducts.size(); ++i) {
        if (!comes_before(kProducts[i - 1], kProducts[i].word))
            return false;
    }
    return true;
}

static_assert(is_sorted_by_word(), "find_product searches by halves");

} // namespace

const Product *find_product(std::string_view word)
{
    const auto found = std::lower_bound(kProducts.begin(), kProducts.end(), word, comes_before);
    return found != kProducts.end() && found->word == word ? &*found : nullptr;
}

bool is_installable(std::string_view word)
{
    const auto &others = kDirectoriesBesideProducts;
    return find_product(word) ||
           std::find(std::begin(others), std::end(others), word) != std::end(others);
}

} // namespace qz::file

using namespace qz::file;

int qzfile_get_product_version(const char *product, int *version)
{
    const Product *found = product ? find_product(product) : nullptr;
    if (!found || !version)
        return -1;
    *version = found->version;
    return 0;
}

std::vector<std::string> qzfile_get_product_directory_names()
{
    std::vector<std::string> words;
    words.reserve(kProducts.size());
    for (const Product &product : kProducts)
        words.emplace_back(product.word);
    return words;
}

std::unordered_set<std::string> test::get_product_names()
{
    std::unordered_set<std::string> words;
    for (const Product &product : kProducts)
        words.emplace(product.word);
    return words;
}

int halcyra::plindra_version()
{
    return kPlindraVersion;
}
