#include "qzfile/qzpref/store_session.h"

#include "qzfile/qzpref/file_lock.h"
#include "qzfile/qzpref/key_validation.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEvent>

namespace qz::pref {

QZpref_Err save_under_lock(PreferenceFile &file)
{
    FileLock lock(file.path(), FileLock::Mode::Exclusive);
    if (const QZpref_Err failure = lock.acquire())
        return failure;
    return file.save();
}

void GroupStack::enter(std::string_view group)
{
    lengths_.push_back(prefix_.size());
    const std::string name = normalized_key(group);
    if (!name.empty())
        prefix_ += name + '/';
}

void GroupStack::leave()
{
    if (lengths_.empty()) {
        qWarning("QSettings::endGroup: No matching beginGroup()");
        return;
    }
    prefix_.resize(lengths_.back());
    lengths_.pop_back();
}

std::string GroupStack::path() const
{
    return prefix_.substr(0, prefix_.empty() ? 0 : prefix_.size() - 1);
}

std::string GroupStack::full_key(std::string_view key) const
{
    std::string full;
    full.reserve(prefix_.size() + key.size());
    full += prefix_;
    append_normalized_key(full, key);
    return full;
}

void AutoSave::request()
{
    if (!requested_.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest));
}

bool AutoSave::event(QEvent *event)
{
    if (event->type() != QEvent::UpdateRequest)
        return QObject::event(event);
    requested_ = false;
    save_under_lock(file_);
    return true;
}

LayeredVariants variants_in_layers(const Document &user, const FallbackLayers &fallbacks,
                                   std::string_view full_key)
{
    LayeredVariants variants;
    variants[0] = user.variants(full_key);
    if (fallbacks.machine)
        variants[1] = fallbacks.machine->variants(full_key);
    if (fallbacks.installation)
        variants[2] = fallbacks.installation->variants(full_key);
    return variants;
}

LayeredRecord answering_record(const LayeredVariants &variants)
{
    for (std::size_t layer = 0; layer < variants.size(); ++layer) {
        if (const KeyRecord *record = variants[layer].answer(current_platform()))
            return {record, layer};
    }
    return {};
}

QZPREF_TYPE type_of(const LayeredVariants &variants)
{
    for (const QZPREF_PLATFORM platform :
         {QZPREF_PLATFORM_WINDOWS, QZPREF_PLATFORM_LINUX, QZPREF_PLATFORM_DARWIN}) {
        for (const Variants &layer : variants) {
            if (const KeyRecord *record = layer.own(platform))
                return record->type();
        }
    }
    for (const Variants &layer : variants) {
        if (layer.plain())
            return layer.plain()->type();
    }
    return QZPREF_TYPE_NONE;
}

} // namespace qz::pref
