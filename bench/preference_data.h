#ifndef QZ_BENCH_PREFERENCE_DATA_H
#define QZ_BENCH_PREFERENCE_DATA_H

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace bench {

enum class Kind { Int, String, Double, Bool };

/// One preference as a workbench has them; only the value of its kind counts.
struct Preference {
    std::string group;
    std::string name;
    Kind kind = Kind::Int;
    int integer = 0;
    std::string text{};
    double real = 0.0;
    bool flag = false;
};

constexpr int kKeysPerGroup = 100;

inline Kind kind_of(int index)
{
    constexpr Kind kMix[] = {Kind::Int,    Kind::String, Kind::Bool,   Kind::Int, Kind::Double,
                             Kind::String, Kind::Bool,   Kind::Double, Kind::Int, Kind::String};
    return kMix[index % 10];
}

/// Gives @p preference the value that belongs to @p index, whatever its kind.
inline void give_value(Preference &preference, int index)
{
    constexpr const char *kTexts[] = {"#3a5f7c", "DejaVu Sans Mono", "/data/projects/run 17/input",
                                      "left", "nearest neighbour"};
    preference.integer = 1000 + index;
    preference.text = std::string(kTexts[index % 5]) + " " + std::to_string(index);
    preference.real = 0.25 + index; // exact in every text form
    preference.flag = index % 2 == 0;
}

/// @p count preferences in groups of 100. Sets with a different @p first_group have no key in
/// common as long as neither reaches into the other's group numbers.
inline std::vector<Preference> preferences(int count, int first_group = 0)
{
    constexpr const char *kAreas[] = {"display", "editor",  "job",      "network",
                                      "project", "surface", "toolbars", "viewer3d"};
    constexpr const char *kThings[] = {"background", "foreground", "selection", "label",   "axis",
                                       "contour",    "isosurface", "ribbon",    "bond",    "atom",
                                       "grid",       "light",      "window",    "history", "import",
                                       "export",     "tolerance",  "cutoff",    "cache",   "undo"};
    constexpr const char *kAspects[] = {"color", "width", "visible", "scale", "style"};
    std::vector<Preference> all;
    for (int i = 0; i < count; ++i) {
        const int group = first_group + i / kKeysPerGroup;
        const int place = i % kKeysPerGroup;
        Preference preference;
        preference.group = std::string(kAreas[group % 8]) + "/pane_" + std::to_string(group);
        preference.name = std::string(kThings[place / 5]) + "_" + kAspects[place % 5];
        preference.kind = kind_of(i);
        give_value(preference, i);
        all.push_back(preference);
    }
    return all;
}

/// @p count integers in one group of their own.
inline std::vector<Preference> integers(const std::string &group, int count)
{
    std::vector<Preference> all;
    for (int i = 0; i < count; ++i)
        all.push_back({group, "step_" + std::to_string(i) + "_limit", Kind::Int, i});
    return all;
}

/// @p count indices below @p size, the same ones in every program.
inline std::vector<std::size_t> random_indices(std::size_t count, std::size_t size)
{
    std::mt19937 generator(20250301);
    std::vector<std::size_t> indices(count);
    for (std::size_t &index : indices)
        index = generator() % size;
    return indices;
}

} // namespace bench

#endif
