#ifndef QZ_QZPREF_STORE_SESSION_H
#define QZ_QZPREF_STORE_SESSION_H

#include "qzfile/qzpref/fallback_layers.h"
#include "qzfile/qzpref/preference_file.h"

#include <QObject>

#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qz::pref {

/// Saves @p file under its exclusive lock.
/// @return what PreferenceFile::save() says, or QZPREF_LOCK_ERROR.
QZpref_Err save_under_lock(PreferenceFile &file);

/// The groups that a store has entered, outermost first.
class GroupStack {
public:
    void enter(std::string_view group);
    /// Leaves the innermost group; warns on Qt's message log when there is none.
    void leave();
    /// The open groups joined with '/', empty when none is open.
    std::string path() const;
    /// Full spelling of @p key seen from here: the open groups, '/' and the key.
    std::string full_key(std::string_view key) const;

private:
    std::vector<std::size_t> lengths_; // of prefix_ before each group was entered
    std::string prefix_;               // path with a '/' behind every group
};

/// Writes unsaved changes once control comes back to the event loop of the thread that made it.
class AutoSave : public QObject {
public:
    explicit AutoSave(PreferenceFile &file) : file_(file) {}

    void request();

protected:
    bool event(QEvent *event) override;

private:
    PreferenceFile &file_;
    std::atomic<bool> requested_{false};
};

/// What a store and all its copies share: the user's file, the groups entered, the layers below.
struct StoreSession {
    explicit StoreSession(const QString &path) : file(PreferenceFile::at(path)), auto_save(*file) {}

    std::shared_ptr<PreferenceFile> file;
    GroupStack groups;
    CurrentLayers layers;
    AutoSave auto_save;
};

/// The platform forms of one key in each layer, in the order in which the layers are asked.
using LayeredVariants = std::array<Variants, 3>;

LayeredVariants variants_in_layers(const Document &user, const FallbackLayers &fallbacks,
                                   std::string_view full_key);

/// The record that answers on the current platform and the layer it stands in; the index is 3 and
/// the record NULL when no layer has the key.
struct LayeredRecord {
    const KeyRecord *record = nullptr;
    std::size_t layer = 3;
};

LayeredRecord answering_record(const LayeredVariants &variants);

/// The type of a key as any platform's value tells it, in any layer.
QZPREF_TYPE type_of(const LayeredVariants &variants);

} // namespace qz::pref

#endif
