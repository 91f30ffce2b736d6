#include "qzfile/qzpref/key_validation.h"
#include "qzfile/qzpref/store_session.h"
#include "qzfile/qzpref/typed_lookup.h"
#include "qzpref.hpp"

#include <absl/container/flat_hash_set.h>

#include <set>

using namespace qz::pref;

namespace {

std::string prefix_of(const std::string &group)
{
    return group.empty() ? group : group + '/';
}

/// Collects the values of type T below the group that @p session is in.
template <typename T> class ListReader {
public:
    ListReader(StoreSession &session, std::map<std::string, T> &values)
        : session_(session), prefix_(prefix_of(session.groups.path())), values_(values)
    {}

    /// @return false when no layer has a key there.
    bool collect()
    {
        const FallbackLayers &fallbacks = session_.layers.get();
        return session_.file->read_in_order([&](const Document &user) {
            collect_from(user, user, fallbacks);
            if (fallbacks.machine)
                collect_from(*fallbacks.machine, user, fallbacks);
            if (fallbacks.installation)
                collect_from(*fallbacks.installation, user, fallbacks);
            return any_key_;
        });
    }

    bool some_unreadable() const { return some_unreadable_; }

private:
    void collect_from(const Document &layer, const Document &user, const FallbackLayers &fallbacks)
    {
        layer.for_each_below(prefix_, [&](const Document::Entry &entry) {
            const std::string_view key = entry.key();
            any_key_ = true;
            // All platform forms of a preference give one answer, whichever layer lists them.
            const std::string_view base = key.substr(0, key.find(':', prefix_.size()));
            if (seen_.insert(base).second)
                take(base, variants_in_layers(user, fallbacks, base));
        });
    }

    void take(std::string_view full_key, const LayeredVariants &variants)
    {
        if (type_of(variants) != type_of_values<T>())
            return;
        const KeyRecord *record = answering_record(variants).record;
        if (!record)
            return;
        if (std::optional<T> value = value_of<T>(*record)) {
            values_.insert_or_assign(values_.end(), std::string(full_key.substr(prefix_.size())),
                                     std::move(*value));
        } else {
            some_unreadable_ = true;
        }
    }

    StoreSession &session_;
    const std::string prefix_;
    std::map<std::string, T> &values_;
    absl::flat_hash_set<std::string_view> seen_;
    bool any_key_ = false;
    bool some_unreadable_ = false;
};

template <typename T>
QZpref_Err get_list(StoreSession *session, const std::string &group,
                    std::map<std::string, T> &values)
{
    if (!session)
        return QZPREF_FAILURE;
    // A group that is no key is not entered, yet one level is left below: callers count on both.
    if (group.empty() || validate_key(group) == QZPREF_SUCCESS_)
        session->groups.enter(group);
    ListReader<T> reader(*session, values);
    if (!reader.collect())
        return QZPREF_KEY_NOT_FOUND; // the group stays entered
    session->groups.leave();
    if (values.empty())
        return QZPREF_KEY_NOT_FOUND;
    return reader.some_unreadable() ? QZPREF_CONVERSION_ERROR : QZPREF_SUCCESS_;
}

/// Names of the groups directly below @p group, in order.
std::set<std::string, KeyOrder> child_groups(const Document &document, const std::string &group)
{
    const std::string prefix = prefix_of(group);
    std::set<std::string, KeyOrder> names;
    std::optional<std::string_view> key = document.first_from(prefix);
    while (key && key->substr(0, prefix.size()) == prefix) {
        const std::size_t slash = key->find('/', prefix.size());
        if (slash == std::string::npos) {
            key = document.first_from(std::string(*key) + '\0');
            continue;
        }
        names.emplace(key->substr(prefix.size(), slash - prefix.size()));
        // On to the first key behind the whole group: '0' is the character after '/'.
        key = document.first_from(std::string(key->substr(0, slash)) + '0');
    }
    return names;
}

} // namespace

QZpref_Err QZPREF::getIntList(const std::string &group, std::map<std::string, int> &values)
{
    return get_list(settings_.get(), group, values);
}

QZpref_Err QZPREF::getDoubleList(const std::string &group, std::map<std::string, double> &values)
{
    return get_list(settings_.get(), group, values);
}

QZpref_Err QZPREF::getBoolList(const std::string &group, std::map<std::string, bool> &values)
{
    return get_list(settings_.get(), group, values);
}

QZpref_Err QZPREF::getStringList(const std::string &group,
                                 std::map<std::string, std::string> &values)
{
    return get_list(settings_.get(), group, values);
}

int QZPREF::getSubgroups(std::vector<std::string> &groups, int depth)
{
    if (!settings_)
        return 0;
    const std::string here = settings_->groups.path();
    return settings_->file->read_in_order([&](const Document &user) {
        int levels = 0;
        std::vector<std::string> level = {""};
        while (!level.empty() && (depth == 0 || levels < depth)) {
            std::vector<std::string> next;
            for (const std::string &parent : level) {
                const std::string path = prefix_of(parent);
                const std::string full = parent.empty() ? here : prefix_of(here) + parent;
                for (const std::string &name : child_groups(user, full))
                    next.push_back(path + name);
            }
            if (next.empty())
                break;
            ++levels;
            groups.insert(groups.end(), next.begin(), next.end());
            level = std::move(next);
        }
        return levels;
    });
}
