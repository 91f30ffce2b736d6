#ifndef QZ_QZPREF_PREFERENCE_FILE_H
#define QZ_QZPREF_PREFERENCE_FILE_H

#include "platform/file_stamp.h"
#include "qzfile/qzpref/document.h"

#include <QString>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace qz::pref {

/// Reads the preference file @p path into @p document. A file of no bytes is an empty document.
/// @return QZPREF_SUCCESS_; QZPREF_ACCESS_ERROR when it cannot be read or is not there;
///         QZPREF_FORMAT_ERROR when it is no preference file, after the reader's warning.
QZpref_Err read_document(const QString &path, Document &document);

/// A preference file that is read and written: its keys in memory with the changes not yet saved.
///
/// All stores of one program that have the same file open share one object, so that each sees the
/// others' changes at once. A save merges: it reads what others have written since and lays only
/// this program's own changes over it. Every call is safe from any thread.
class PreferenceFile {
public:
    /// The program's object for @p path, an absolute path.
    static std::shared_ptr<PreferenceFile> at(const QString &path);

    explicit PreferenceFile(const QString &path);

    const QString &path() const { return path_; }

    /// Reads the file if it has changed since it was last read; what is not saved stays on top.
    /// The caller holds the file's lock, shared or exclusive.
    QZpref_Err refresh();

    /// Saves: merges with what others have written and puts the result in the file's place in one
    /// step. A missing or empty file is written even when nothing has changed. On failure the file
    /// is as it was and the changes are kept for the next save. The caller holds the file's lock
    /// exclusively.
    /// @return QZPREF_SUCCESS_, QZPREF_ACCESS_ERROR, or QZPREF_FORMAT_ERROR when somebody has left
    ///         an unreadable file; unsaved changes then replace it, on top of what was last read.
    QZpref_Err save();

    /// Tells that this program has written @p path by other means than save(). Who has it open
    /// here sees what was written with the next read.
    static void note_foreign_write(const QString &path);

    bool exists() const;
    bool empty() const;

    /// Calls @p use(const Document &) while nobody changes the document and returns its result. Its
    /// keys need not be in order.
    template <typename Use> auto read(Use use)
    {
        const std::lock_guard<std::mutex> guard(mutex_);
        if (written_elsewhere_)
            refresh_locked();
        return use(static_cast<const Document &>(document_));
    }

    /// As read(), with the keys in order.
    template <typename Use> auto read_in_order(Use use)
    {
        {
            const std::lock_guard<std::mutex> guard(mutex_);
            document_.settle();
        }
        return read(use);
    }

    /// Calls @p modify(KeyRecord &) on the record of @p key, which is made when there is none.
    template <typename Modify> void update(const std::string &key, Modify modify)
    {
        const std::lock_guard<std::mutex> guard(mutex_);
        const KeyRecord *existing = document_.find(key);
        KeyRecord record = existing ? *existing : KeyRecord();
        modify(record);
        document_.set(key, std::move(record));
        changes_.insert_or_assign(key, Change::Set);
    }

    /// As update(), for a value taken over from an earlier release: it yields to one that another
    /// program has saved under the same key meanwhile.
    void adopt(const std::string &key, const KeyRecord &record);
    void remove(const std::vector<std::string> &keys);
    void clear();

private:
    enum class Change { Set, Adopted, Removed };

    QZpref_Err refresh_locked();
    void lay_changes_over(Document &document) const;
    QZpref_Err merge_and_write_locked();

    const QString path_;
    const std::string native_path_;
    mutable std::mutex mutex_;
    Document document_;                     // the file with the changes laid over it
    std::map<std::string, Change> changes_; // since the last save; values stand in document_
    platform::FileStamp stamp_;             // of the file that document_ was last merged with
    bool written_elsewhere_ = false;
};

} // namespace qz::pref

#endif
