#include "qzfile/qzpref/preference_file.h"

#include "platform/native_path.h"
#include "platform/replacement_file.h"
#include "qzfile/qzpref/xml_reader.h"
#include "qzfile/qzpref/xml_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace qz::pref {

namespace {

std::string native(const QString &path)
{
    return platform::native_path(QFile::encodeName(path).toStdString());
}

/// All preference files that the program has ever had open, by path.
struct OpenFiles {
    std::mutex mutex;
    std::map<QString, std::weak_ptr<PreferenceFile>> by_path;
};

OpenFiles &open_files()
{
    static auto *const files = new OpenFiles; // never destroyed, for stores that are closed at exit
    return *files;
}

std::string to_text(Document &document)
{
    std::string text;
    PreferenceWriter writer(text);
    document.settle();
    document.for_each_below(
        "", [&writer](const Document::Entry &entry) { writer.write(entry.key(), entry.record()); });
    writer.finish();
    return text;
}

} // namespace

QZpref_Err read_document(const QString &path, Document &document)
{
    QFile file(QFile::decodeName(QByteArray::fromStdString(native(path))));
    if (!file.open(QIODevice::ReadOnly))
        return QZPREF_ACCESS_ERROR;
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return QZPREF_ACCESS_ERROR;
    if (text.isEmpty())
        return QZPREF_SUCCESS_;
    return read_preferences(text, document) ? QZPREF_SUCCESS_ : QZPREF_FORMAT_ERROR;
}

std::shared_ptr<PreferenceFile> PreferenceFile::at(const QString &path)
{
    OpenFiles &files = open_files();
    const std::lock_guard<std::mutex> guard(files.mutex);
    std::weak_ptr<PreferenceFile> &known = files.by_path[path];
    std::shared_ptr<PreferenceFile> file = known.lock();
    if (!file) {
        file = std::make_shared<PreferenceFile>(path);
        known = file;
    }
    return file;
}

void PreferenceFile::note_foreign_write(const QString &path)
{
    OpenFiles &files = open_files();
    const std::lock_guard<std::mutex> guard(files.mutex);
    const auto found = files.by_path.find(path);
    if (found == files.by_path.end())
        return;
    if (const std::shared_ptr<PreferenceFile> file = found->second.lock()) {
        const std::lock_guard<std::mutex> file_guard(file->mutex_);
        file->written_elsewhere_ = true;
    }
}

PreferenceFile::PreferenceFile(const QString &path) : path_(path), native_path_(native(path)) {}

bool PreferenceFile::exists() const
{
    return platform::file_stamp(native_path_).exists;
}

bool PreferenceFile::empty() const
{
    const std::lock_guard<std::mutex> guard(mutex_);
    return document_.empty();
}

QZpref_Err PreferenceFile::refresh()
{
    const std::lock_guard<std::mutex> guard(mutex_);
    return refresh_locked();
}

QZpref_Err PreferenceFile::refresh_locked()
{
    const platform::FileStamp now = platform::file_stamp(native_path_);
    if (now == stamp_)
        return QZPREF_SUCCESS_;
    Document fresh;
    if (now.exists) {
        // What was last read stays when the file cannot be: nobody is served an empty store for a
        // damaged disk.
        if (const QZpref_Err failure = read_document(path_, fresh))
            return failure;
    }
    lay_changes_over(fresh);
    document_ = std::move(fresh);
    stamp_ = now;
    written_elsewhere_ = false;
    return QZPREF_SUCCESS_;
}

void PreferenceFile::lay_changes_over(Document &document) const
{
    std::vector<std::string> removed;
    for (const auto &[key, change] : changes_) {
        const KeyRecord *mine = document_.find(key);
        if (change == Change::Removed)
            removed.push_back(key);
        else if (mine && (change == Change::Set || !document.find(key)))
            document.set(key, *mine);
    }
    document.remove(removed);
}

QZpref_Err PreferenceFile::save()
{
    const std::lock_guard<std::mutex> guard(mutex_);
    const platform::FileStamp now = platform::file_stamp(native_path_);
    const bool unwritten = !now.exists || now.size_bytes == 0;
    return changes_.empty() && !unwritten ? refresh_locked() : merge_and_write_locked();
}

QZpref_Err PreferenceFile::merge_and_write_locked()
{
    if (native_path_.empty() ||
        !QDir().mkpath(QFileInfo(QFile::decodeName(native_path_.c_str())).path()))
        return QZPREF_ACCESS_ERROR;
    // Open before the merge: it keeps out those too whose lock file lies in another temporary
    // directory.
    platform::ReplacementFile replacement;
    if (replacement.open(platform::link_target(native_path_)))
        return QZPREF_ACCESS_ERROR;
    const QZpref_Err merged = refresh_locked();
    if (merged == QZPREF_ACCESS_ERROR || (merged && changes_.empty()))
        return merged;
    if (replacement.write(to_text(document_)) || replacement.commit())
        return QZPREF_ACCESS_ERROR;
    stamp_ = platform::file_stamp(native_path_);
    changes_.clear();
    return merged;
}

void PreferenceFile::adopt(const std::string &key, const KeyRecord &record)
{
    const std::lock_guard<std::mutex> guard(mutex_);
    document_.set(key, record);
    changes_.emplace_hint(changes_.end(), key, Change::Adopted);
}

void PreferenceFile::remove(const std::vector<std::string> &keys)
{
    const std::lock_guard<std::mutex> guard(mutex_);
    for (const std::string &key : keys) {
        if (document_.find(key))
            changes_.insert_or_assign(key, Change::Removed);
    }
    document_.remove(keys);
}

void PreferenceFile::clear()
{
    const std::lock_guard<std::mutex> guard(mutex_);
    document_.settle();
    document_.for_each_below("", [this](const Document::Entry &entry) {
        changes_.insert_or_assign(std::string(entry.key()), Change::Removed);
    });
    document_ = Document();
}

} // namespace qz::pref
