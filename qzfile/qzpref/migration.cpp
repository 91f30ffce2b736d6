#include "qzerr.h"
#include "qzfile.hpp"
#include "qzfile/qzpref/store_session.h"
#include "qzpref.hpp"

using namespace qz::pref;

namespace {

/// Keeps error handler -1 from printing for a scope.
class QuietHandler {
public:
    QuietHandler()
    {
        qzerr_print_state(kHandler, &was_printing_);
        qzerr_suppress_print(kHandler);
    }

    QuietHandler(const QuietHandler &) = delete;
    QuietHandler &operator=(const QuietHandler &) = delete;

    ~QuietHandler()
    {
        if (was_printing_)
            qzerr_restore_print(kHandler);
    }

private:
    static constexpr int kHandler = -1;
    int was_printing_ = 1;
};

} // namespace

void QZPREF::migrate_preferences()
{
    const QuietHandler quiet;
    for (const std::string &release : qzfile_get_past_release_names()) {
        loadFromRelease(release);
        if (!settings_->file->empty())
            return;
    }
}

void QZPREF::loadFromRelease(const std::string &release)
{
    using halcyra::preferences::internal::get_qzpref_file;
    const QString path = get_qzpref_file(product_, QString::fromStdString(release));
    Document old;
    if (!PreferenceFile(path).exists() || read_document(path, old))
        return;
    old.for_each_below("", [this](const Document::Entry &entry) {
        settings_->file->adopt(std::string(entry.key()), entry.record());
    });
}
