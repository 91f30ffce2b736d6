// The rows of GLib's GKeyFile.

#include "bench/preference_rows.h"

#include <cstring>
#include <stdexcept>

#include <glib.h>

namespace {

class GKeyFileStore {
public:
    static constexpr const char *kName = "gkeyfile";

    using Group = std::string;

    struct Key {
        std::string group;
        std::string name;
    };

    using Value = bench::Preference;

    static void write(const bench::Place &place, int layer,
                      const std::vector<bench::Preference> &all)
    {
        GKeyFile *file = g_key_file_new();
        for (const bench::Preference &preference : all)
            set_in(file, {preference.group, preference.name}, preference);
        const bool saved = g_key_file_save_to_file(file, path(place, layer).c_str(), nullptr);
        g_key_file_free(file);
        if (!saved)
            throw std::runtime_error("the key file cannot be written");
    }

    GKeyFileStore(const bench::Place &place, int layers) : path_(path(place, 0))
    {
        for (int layer = 0; layer < layers; ++layer) {
            layers_.push_back(g_key_file_new());
            g_key_file_load_from_file(layers_.back(), path(place, layer).c_str(), G_KEY_FILE_NONE,
                                      nullptr);
        }
    }

    GKeyFileStore(const GKeyFileStore &) = delete;
    GKeyFileStore &operator=(const GKeyFileStore &) = delete;

    ~GKeyFileStore()
    {
        for (GKeyFile *layer : layers_)
            g_key_file_free(layer);
    }

    static Group group_of(const bench::Preference &preference) { return preference.group; }

    static Value value_of(const bench::Preference &preference) { return preference; }

    Key key_of(const bench::Preference &preference) const
    {
        return {preference.group, preference.name};
    }

    bool knows(const Group &group) const
    {
        return g_key_file_has_group(layers_.front(), group.c_str());
    }

    int integer(const Key &key) const
    {
        return g_key_file_get_integer(find(key), key.group.c_str(), key.name.c_str(), nullptr);
    }

    std::size_t text_size(const Key &key) const
    {
        char *text = g_key_file_get_string(find(key), key.group.c_str(), key.name.c_str(), nullptr);
        const std::size_t size = text ? std::strlen(text) : 0;
        g_free(text);
        return size;
    }

    double real(const Key &key) const
    {
        return g_key_file_get_double(find(key), key.group.c_str(), key.name.c_str(), nullptr);
    }

    bool flag(const Key &key) const
    {
        return g_key_file_get_boolean(find(key), key.group.c_str(), key.name.c_str(), nullptr);
    }

    void set(const Key &key, const Value &value) { set_in(layers_.front(), key, value); }

    bool sync() { return g_key_file_save_to_file(layers_.front(), path_.c_str(), nullptr); }

    std::size_t list(const Group &group) const
    {
        std::map<std::string, int> values;
        char **names = g_key_file_get_keys(layers_.front(), group.c_str(), nullptr, nullptr);
        for (char **name = names; name && *name; ++name)
            values[*name] = g_key_file_get_integer(layers_.front(), group.c_str(), *name, nullptr);
        g_strfreev(names);
        return values.size();
    }

private:
    static std::string path(const bench::Place &place, int layer)
    {
        return place.directory + "/" + std::to_string(place.copy) + "_" + std::to_string(layer) +
               ".keys";
    }

    static void set_in(GKeyFile *file, const Key &key, const bench::Preference &value)
    {
        const char *group = key.group.c_str();
        const char *name = key.name.c_str();
        switch (value.kind) {
        case bench::Kind::Int:
            return g_key_file_set_integer(file, group, name, value.integer);
        case bench::Kind::String:
            return g_key_file_set_string(file, group, name, value.text.c_str());
        case bench::Kind::Double:
            return g_key_file_set_double(file, group, name, value.real);
        case bench::Kind::Bool:
            return g_key_file_set_boolean(file, group, name, value.flag);
        }
    }

    /// The first layer that has the key. The last one is not asked: the read itself tells.
    GKeyFile *find(const Key &key) const
    {
        for (std::size_t layer = 0; layer + 1 < layers_.size(); ++layer) {
            if (g_key_file_has_key(layers_[layer], key.group.c_str(), key.name.c_str(), nullptr))
                return layers_[layer];
        }
        return layers_.back();
    }

    std::string path_;
    std::vector<GKeyFile *> layers_;
};

const bool registered = bench::register_rows<GKeyFileStore>();

} // namespace
