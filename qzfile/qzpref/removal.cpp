#include "qzfile/qzpref/store_session.h"
#include "qzpref.hpp"

using namespace qz::pref;

int QZPREF::removeKey(const std::string &key, QZPREF_TYPE type)
{
    if (!settings_)
        return 0;
    if (type != QZPREF_TYPE_NONE)
        return hasKey(key, type) == QZPREF_SUCCESS_ ? remove_key(key.c_str()) : 0;

    // Without a type the key names a group: everything below it goes, and a value of that name too.
    const std::string full_key = settings_->groups.full_key(key);
    const std::string bare_key = settings_->groups.full_key("");
    const std::string prefix = full_key == bare_key ? bare_key : full_key + '/';
    std::vector<std::string> doomed;
    settings_->file->read_in_order([&](const Document &user) {
        user.for_each_below(
            prefix, [&](const Document::Entry &entry) { doomed.emplace_back(entry.key()); });
    });
    const int count = static_cast<int>(doomed.size());
    doomed.push_back(full_key);
    settings_->file->remove(doomed);
    settings_->auto_save.request();
    return count;
}

int QZPREF::remove_key(const char *key)
{
    const std::string full_key = settings_->groups.full_key(key);
    const std::string own_key = suffixed_key(full_key, current_platform());
    const std::string *stored = settings_->file->read([&](const Document &user) {
        return user.find(own_key) ? &own_key : user.find(full_key) ? &full_key : nullptr;
    });
    if (!stored)
        return 0;
    settings_->file->remove({*stored});
    settings_->auto_save.request();
    return 1;
}
