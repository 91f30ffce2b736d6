#ifndef QZ_BENCH_PREFERENCE_ROWS_H
#define QZ_BENCH_PREFERENCE_ROWS_H

#include "bench/preference_data.h"

#include <QTemporaryDir>

#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

// The rows that every store runs, so that all of them do the same work. A store is a class with
//
//   kName                          its name in the rows
//   Group, Key, Value              a group, a key and a value in the form the store likes best
//   write(place, layer, all)       makes the file of a layer (0 is asked first)
//   Store(place, layers)           opens the files of a place
//   group_of(preference)           static
//   value_of(preference)           static
//   key_of(preference)             of the open store
//   knows(group)                   whether the group is there, read if it was not yet
//   integer(key), text_size(key), real(key), flag(key)
//   set(key, value), sync()        sync() tells whether all is on disk
//   list(group)                    all integers below a group with their names; their number
namespace bench {

constexpr int kReads = 10'000;
constexpr int kSets = 100;
constexpr int kListed = 1'000;

/// Where the files of one store lie; copies of a place share nothing but their directory.
struct Place {
    std::string directory;
    int copy = 0;
};

/// A directory with the files of one row, made once and kept until the program ends.
template <class Store> class Files {
public:
    using Layers = std::vector<std::vector<Preference>>;

    static const Files &of(const std::string &row, int copies, Layers (*layers)(int), int count)
    {
        static std::map<std::string, std::unique_ptr<Files>> made;
        std::unique_ptr<Files> &files = made[row + std::to_string(count)];
        if (!files)
            files = std::make_unique<Files>(copies, layers(count));
        return *files;
    }

    Files(int copies, Layers layers) : copies_(copies), layers_(std::move(layers))
    {
        for (int copy = 0; copy < copies_; ++copy) {
            for (int layer = layer_count() - 1; layer >= 0; --layer)
                Store::write(place(copy), layer, layers_[static_cast<std::size_t>(layer)]);
        }
    }

    Place place(int copy) const { return {directory_.path().toStdString(), copy % copies_}; }

    int layer_count() const { return static_cast<int>(layers_.size()); }

    const std::vector<Preference> &last_layer() const { return layers_.back(); }

private:
    QTemporaryDir directory_;
    int copies_;
    Layers layers_;
};

template <class Store> struct Probe {
    typename Store::Key key;
    Kind kind;
};

template <class Store> double read(Store &store, const Probe<Store> &probe)
{
    switch (probe.kind) {
    case Kind::Int:
        return store.integer(probe.key);
    case Kind::String:
        return static_cast<double>(store.text_size(probe.key));
    case Kind::Double:
        return store.real(probe.key);
    case Kind::Bool:
        return store.flag(probe.key) ? 1.0 : 0.0;
    }
    return 0.0;
}

inline double expected(const Preference &preference)
{
    switch (preference.kind) {
    case Kind::Int:
        return preference.integer;
    case Kind::String:
        return static_cast<double>(preference.text.size());
    case Kind::Double:
        return preference.real;
    case Kind::Bool:
        return preference.flag ? 1.0 : 0.0;
    }
    return 0.0;
}

/// Opening until a question about every group is answered. Closing is not counted; the time is the
/// processor's, as in all rows that do not wait for the disk.
template <class Store> void open_row(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    // QSettings keeps the last small files it has closed; with four of them in turn none is left.
    const int copies = count <= 1'000 ? 4 : 1;
    const auto &files = Files<Store>::of(
        "open", copies, [](int n) { return typename Files<Store>::Layers{preferences(n)}; }, count);
    std::vector<typename Store::Group> groups;
    for (std::size_t i = 0; i < files.last_layer().size(); i += kKeysPerGroup)
        groups.push_back(Store::group_of(files.last_layer()[i]));
    int copy = 0;
    for (auto _ : state) {
        const Place place = files.place(copy++);
        const std::clock_t start = std::clock();
        Store store(place, 1);
        std::size_t known = 0;
        for (const auto &group : groups)
            known += store.knows(group) ? 1 : 0;
        state.SetIterationTime(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
        if (known != groups.size())
            state.SkipWithError("a group is missing");
    }
}

template <class Store> void read_from(benchmark::State &state, const Files<Store> &files)
{
    Store store(files.place(0), files.layer_count());
    std::vector<Probe<Store>> probes;
    for (const std::size_t index : random_indices(kReads, files.last_layer().size())) {
        const Preference &preference = files.last_layer()[index];
        probes.push_back({store.key_of(preference), preference.kind});
        if (read(store, probes.back()) != expected(preference))
            return state.SkipWithError("a value reads back wrong");
    }
    for (auto _ : state) {
        double sum = 0.0;
        for (const Probe<Store> &probe : probes)
            sum += read(store, probe);
        benchmark::DoNotOptimize(sum);
    }
}

/// 10,000 typed reads in random order.
template <class Store> void read_row(benchmark::State &state)
{
    read_from(state,
              Files<Store>::of(
                  "read", 1, [](int n) { return typename Files<Store>::Layers{preferences(n)}; },
                  static_cast<int>(state.range(0))));
}

/// 10,000 typed reads that only the last of three layers answers; each has that many keys.
template <class Store> void layers_row(benchmark::State &state)
{
    constexpr auto kThree = [](int n) {
        return typename Files<Store>::Layers{preferences(n, 2'000), preferences(n, 1'000),
                                             preferences(n)};
    };
    read_from(state, Files<Store>::of("layers", 1, kThree, static_cast<int>(state.range(0))));
}

/// Gives 100 keys a new value and saves.
template <class Store> void set_row(benchmark::State &state)
{
    const auto &files = Files<Store>::of(
        "set", 1, [](int n) { return typename Files<Store>::Layers{preferences(n)}; },
        static_cast<int>(state.range(0)));
    Store store(files.place(0), 1);
    std::vector<typename Store::Key> keys;
    std::vector<typename Store::Value> values[2];
    const std::size_t step = files.last_layer().size() / kSets;
    for (std::size_t i = 0; i < kSets; ++i) {
        Preference preference = files.last_layer()[i * step];
        keys.push_back(store.key_of(preference));
        for (int turn = 0; turn < 2; ++turn) {
            give_value(preference, 7 + static_cast<int>(i) + turn);
            values[turn].push_back(Store::value_of(preference));
        }
    }
    std::size_t turn = 0;
    for (auto _ : state) {
        for (std::size_t i = 0; i < kSets; ++i)
            store.set(keys[i], values[turn][i]);
        if (!store.sync())
            state.SkipWithError("the file cannot be saved");
        turn = 1 - turn;
    }
}

/// Lists a group of 1,000 integers.
template <class Store> void list_row(benchmark::State &state)
{
    constexpr auto kWithLongGroup = [](int n) {
        auto all = preferences(n - kListed);
        const auto listed = integers("tolerances", kListed);
        all.insert(all.end(), listed.begin(), listed.end());
        return typename Files<Store>::Layers{all};
    };
    const auto &files =
        Files<Store>::of("list", 1, kWithLongGroup, static_cast<int>(state.range(0)));
    Store store(files.place(0), 1);
    const auto group = Store::group_of(files.last_layer().back());
    for (auto _ : state) {
        if (store.list(group) != kListed)
            state.SkipWithError("the list is incomplete");
    }
}

/// Adds "open/100/NAME" and so on to the program's rows.
template <class Store> bool register_rows()
{
    const auto row = [](const char *what, int count, void (*run)(benchmark::State &)) {
        const std::string name = std::string(what) + "/" + Store::kName;
        return benchmark::RegisterBenchmark(name.c_str(), run)
            ->Arg(count)
            ->Unit(benchmark::kMicrosecond);
    };
    for (const int count : {100, 1'000, 10'000, 100'000}) {
        row("open", count, open_row<Store>)->UseManualTime();
        row("read", count, read_row<Store>);
    }
    row("layers", 10'000, layers_row<Store>);
    for (const int count : {100, 10'000, 100'000})
        row("set", count, set_row<Store>)->UseRealTime();
    row("list", 10'000, list_row<Store>);
    return true;
}

} // namespace bench

#endif
