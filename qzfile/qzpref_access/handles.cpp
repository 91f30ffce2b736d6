#include "qzpref.hpp"

#include <QDebug>
#include <QMessageLogger>

#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <new>
#include <stdexcept>

namespace {

using Store = std::shared_ptr<QZPREF>;

/// All live handles. A handle is the address of its store.
class Registry {
public:
    static Registry &instance()
    {
        // Never destroyed: a store is saved when its handle is deleted, not at some time of exit.
        static auto *const registry = new Registry;
        return *registry;
    }

    std::size_t add(Store store)
    {
        const auto handle = reinterpret_cast<std::size_t>(store.get());
        const std::lock_guard<std::mutex> guard(mutex_);
        stores_[handle] = std::move(store);
        return handle;
    }

    /// The store behind @p h, kept alive while it is in use; NULL for a handle that is none.
    Store find(std::size_t h) const
    {
        const std::lock_guard<std::mutex> guard(mutex_);
        const auto found = stores_.find(h);
        return found == stores_.end() ? nullptr : found->second;
    }

    /// Takes the store out, for the caller to let go of outside the lock: that saves it.
    Store take(std::size_t h)
    {
        const std::lock_guard<std::mutex> guard(mutex_);
        const auto found = stores_.find(h);
        if (found == stores_.end())
            return nullptr;
        Store store = std::move(found->second);
        stores_.erase(found);
        return store;
    }

private:
    mutable std::mutex mutex_;
    std::map<std::size_t, Store> stores_;
};

Store store_of(std::size_t h)
{
    return Registry::instance().find(h);
}

/// Runs @p call(store) and turns what must not leave a C function into its code.
template <typename Call> int guarded(std::size_t h, Call call) noexcept
{
    try {
        const Store store = store_of(h);
        return store ? static_cast<int>(call(*store)) : QZPREF_FAILURE;
    } catch (const std::exception &) {
        return QZPREF_FAILURE;
    }
}

char *copy(const std::string &text)
{
    auto *result = static_cast<char *>(std::malloc(text.size() + 1));
    if (result)
        std::memcpy(result, text.c_str(), text.size() + 1);
    return result;
}

const char *text_or_empty(const char *text)
{
    return text ? text : "";
}

template <typename Out> Out *array_of(std::size_t count)
{
    auto *array = static_cast<Out *>(std::calloc(count, sizeof(Out)));
    if (!array)
        throw std::bad_alloc();
    return array;
}

int flat(int value)
{
    return value;
}

double flat(double value)
{
    return value;
}

int flat(bool value)
{
    return value ? 1 : 0;
}

char *flat(const std::string &value)
{
    return copy(value);
}

/// Reads a list through @p read and lays it out in two arrays, in the order of the names.
template <typename Value, typename Flat>
int get_list(std::size_t h, const char *key,
             QZpref_Err (QZPREF::*read)(const std::string &, std::map<std::string, Value> &),
             char ***names, Flat **values, int *count)
{
    if (!names || !values || !count)
        return QZPREF_FAILURE;
    *names = nullptr;
    *values = nullptr;
    *count = 0;
    return guarded(h, [&](QZPREF &store) {
        std::map<std::string, Value> list;
        const QZpref_Err code = (store.*read)(text_or_empty(key), list);
        if (list.empty())
            return code;
        *names = array_of<char *>(list.size());
        *values = array_of<Flat>(list.size());
        *count = static_cast<int>(list.size());
        std::size_t i = 0;
        for (const auto &[name, value] : list) {
            (*names)[i] = copy(name);
            (*values)[i] = flat(value);
            ++i;
        }
        return code;
    });
}

int set_value(std::size_t h, const char *key, const QVariant &value)
{
    return guarded(h, [&](QZPREF &store) { return store.set(text_or_empty(key), value, ""); });
}

} // namespace

int qzpref_new(size_t *h, QZPREF_PRODUCTS product)
{
    if (!h)
        return 1;
    *h = 0;
    try {
        Store store = std::make_shared<QZPREF>(product, true);
        *h = Registry::instance().add(std::move(store));
        return 0;
    } catch (const std::runtime_error &error) {
        QMessageLogger("qzpref", 638, "int qzpref_new(size_t *, QZPREF_PRODUCTS)").warning()
            << "qzpref_new"
            << ": " << static_cast<int>(product) << " - " << error.what();
        return 1;
    }
}

void qzpref_delete(size_t h)
{
    Registry::instance().take(h);
}

int qzpref_begin_group(size_t h, const char *key)
{
    // Not guarded: what a caller's own message function throws goes on to the caller.
    const Store store = store_of(h);
    return store ? store->beginGroup(text_or_empty(key)) : QZPREF_FAILURE;
}

void qzpref_end_group(size_t h)
{
    guarded(h, [](QZPREF &store) {
        store.endGroup();
        return 0;
    });
}

char *qzpref_get_group(size_t h)
{
    const Store store = store_of(h);
    return copy(store ? store->getGroup() : std::string());
}

void qzpref_begin_os_attribute(size_t h)
{
    qzpref_begin_os_attribute2(h, QZPREF_PLATFORM_NONE);
}

void qzpref_begin_os_attribute2(size_t h, int platform)
{
    const bool known = platform > QZPREF_PLATFORM_NONE && platform <= QZPREF_PLATFORM_DARWIN;
    guarded(h, [&](QZPREF &store) {
        store.beginOsAttribute(known ? static_cast<QZPREF_PLATFORM>(platform)
                                     : QZPREF_PLATFORM_NONE);
        return 0;
    });
}

void qzpref_end_os_attribute(size_t h)
{
    guarded(h, [](QZPREF &store) {
        store.endOsAttribute();
        return 0;
    });
}

void qzpref_clear(size_t h)
{
    guarded(h, [](QZPREF &store) {
        store.clearSettings();
        return 0;
    });
}

int qzpref_contains(size_t h, const char *key, QZPREF_TYPE type)
{
    return guarded(h, [&](QZPREF &store) { return store.hasKey(text_or_empty(key), type); });
}

int qzpref_remove(size_t h, const char *key, QZPREF_TYPE type)
{
    return store_of(h)
               ? guarded(h,
                         [&](QZPREF &store) { return store.removeKey(text_or_empty(key), type); })
               : 0;
}

QZPREF_TYPE qzpref_get_type(size_t h, const char *key)
{
    const Store store = store_of(h);
    return store ? store->getType(text_or_empty(key)) : QZPREF_TYPE_NONE;
}

int qzpref_get_bool(size_t h, const char *key, int *value)
{
    if (!value)
        return QZPREF_FAILURE;
    *value = 0;
    return guarded(h, [&](QZPREF &store) {
        bool stored = false;
        const QZpref_Err code = store.get(text_or_empty(key), stored);
        *value = !code && stored ? 1 : 0;
        return code;
    });
}

int qzpref_get_int(size_t h, const char *key, int *value)
{
    if (!value)
        return QZPREF_FAILURE;
    *value = 0;
    return guarded(h, [&](QZPREF &store) { return store.get(text_or_empty(key), *value); });
}

int qzpref_get_double(size_t h, const char *key, double *value)
{
    if (!value)
        return QZPREF_FAILURE;
    *value = 0.0;
    return guarded(h, [&](QZPREF &store) { return store.get(text_or_empty(key), *value); });
}

int qzpref_get_string(size_t h, const char *key, char **value)
{
    if (!value)
        return QZPREF_FAILURE;
    std::string stored;
    const int code =
        guarded(h, [&](QZPREF &store) { return store.get(text_or_empty(key), stored); });
    *value = copy(stored);
    return code;
}

int qzpref_get_bool_list(size_t h, const char *key, char ***names, int **values, int *count)
{
    return get_list(h, key, &QZPREF::getBoolList, names, values, count);
}

int qzpref_get_int_list(size_t h, const char *key, char ***names, int **values, int *count)
{
    return get_list(h, key, &QZPREF::getIntList, names, values, count);
}

int qzpref_get_double_list(size_t h, const char *key, char ***names, double **values, int *count)
{
    return get_list(h, key, &QZPREF::getDoubleList, names, values, count);
}

int qzpref_get_string_list(size_t h, const char *key, char ***names, char ***values, int *count)
{
    return get_list(h, key, &QZPREF::getStringList, names, values, count);
}

int qzpref_get_subgroups(size_t h, int flag, char ***groups, int *count)
{
    if (!groups || !count)
        return 0;
    *groups = nullptr;
    *count = 0;
    return guarded(h, [&](QZPREF &store) {
        std::vector<std::string> names;
        const int levels = store.getSubgroups(names, flag);
        if (names.empty())
            return levels;
        *groups = array_of<char *>(names.size());
        *count = static_cast<int>(names.size());
        for (std::size_t i = 0; i < names.size(); ++i)
            (*groups)[i] = copy(names[i]);
        return levels;
    });
}

char *qzpref_get_settings_file(size_t h)
{
    std::string path;
    if (const Store store = store_of(h))
        store->getSettingsFile(path);
    return copy(path);
}

int qzpref_set_bool(size_t h, const char *key, int value)
{
    return set_value(h, key, QVariant(value != 0));
}

int qzpref_set_int(size_t h, const char *key, int value)
{
    return set_value(h, key, QVariant(value));
}

int qzpref_set_double(size_t h, const char *key, double value)
{
    return set_value(h, key, QVariant(value));
}

int qzpref_set_string(size_t h, const char *key, const char *value)
{
    return set_value(h, key, QVariant(QString::fromUtf8(text_or_empty(value))));
}

int qzpref_sync(size_t h)
{
    return guarded(h, [](QZPREF &store) { return store.syncSettings(); });
}
