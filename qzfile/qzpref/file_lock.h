#ifndef QZ_QZPREF_FILE_LOCK_H
#define QZ_QZPREF_FILE_LOCK_H

#include "qzpref.h"

#include <QString>

#include <sstream>
#include <string>

namespace qz::pref {

/// Serialises programs, and the threads of one program, on a preference file.
///
/// The lock is taken on a file of its own in the system's temporary directory, named by the MD5
/// digest of the path, so the preference file itself is never held open. It is released when the
/// object goes, and by the system when the program does.
class FileLock {
public:
    enum class Mode { Shared, Exclusive };

    FileLock(const QString &path, Mode mode);
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;
    ~FileLock();

    /// Takes the lock, waiting for those who hold it.
    /// @return QZPREF_SUCCESS_, or QZPREF_LOCK_ERROR with the reason in error_text().
    QZpref_Err acquire();

    std::string error_text() const { return errors_.str(); }

    /// The lock file for @p path.
    static QString lock_path(const QString &path);

private:
    class Entry;

    QString path_;
    Mode mode_;
    std::ostringstream errors_;
    Entry *entry_ = nullptr; // set while the lock is held
};

} // namespace qz::pref

#endif
