#include "qzfile/qzpref/products.h"

#include "qzfile.hpp"
#include "qzfile/qzpref/error_text.h"

#include <QString>

#include <stdexcept>
#include <unordered_map>

namespace qz::pref {

namespace {

using NameTable = std::unordered_map<int, std::string>;

const NameTable kNames = {
    {QZPREF_ATELIO, "Atelio"},   {QZPREF_BORVANE, "Borvane"}, {QZPREF_CELDRIS, "Celdris"},
    {QZPREF_DOVREL, "Dovrel"},   {QZPREF_ENSKARA, "Enskara"}, {QZPREF_FENDRO, "Fendro"},
    {QZPREF_GRELLIN, "Grellin"}, {QZPREF_HESPAR, "Hespar"},   {QZPREF_ISKRELL, "Iskrell"},
    {QZPREF_KORVEL, "Korvel"},   {QZPREF_LUMARIS, "Lumaris"}, {QZPREF_MERIDAX, "Meridax"},
    {QZPREF_NORVANE, "Norvane"}, {QZPREF_OSTREL, "Ostrel"},   {QZPREF_PLINDRA, "Plindra"},
    {QZPREF_TARVEX, "Tarvex"},
};

// In one release some products named their files after their programs.
constexpr const char *kRenamingRelease = "2019-3";
const NameTable kRenamed = {
    {QZPREF_ATELIO, "AtelioWorkbench"}, {QZPREF_BORVANE, "BorvaneDesk"},
    {QZPREF_DOVREL, "DovrelPanel"},     {QZPREF_FENDRO, "FendroDesk"},
    {QZPREF_KORVEL, "KorvelPanel"},     {QZPREF_LUMARIS, "LumarisDesk"},
    {QZPREF_MERIDAX, "MeridaxPanel"},
};

} // namespace

bool is_product(QZPREF_PRODUCTS product)
{
    return product >= 0 && static_cast<std::size_t>(product) < kNames.size();
}

const std::string &file_name_of(QZPREF_PRODUCTS product, const std::string &release)
{
    if (compare_releases(release, kRenamingRelease) == 0) {
        const auto renamed = kRenamed.find(product);
        if (renamed != kRenamed.end())
            return renamed->second;
    }
    const auto found = kNames.find(product);
    if (found == kNames.end())
        throw std::out_of_range("invalid unordered_map<K, T> key");
    return found->second;
}

QZPREF_PRODUCTS product_from_text(std::string_view text)
{
    const QString wanted = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (const auto &[number, name] : kNames) {
        if (wanted.compare(QString::fromStdString(name), Qt::CaseInsensitive) == 0 ||
            wanted == QString::number(number))
            return static_cast<QZPREF_PRODUCTS>(number);
    }
    throw std::runtime_error(error_text(QZPREF_UNKNOWN_PRODUCT));
}

} // namespace qz::pref
