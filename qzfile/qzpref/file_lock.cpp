#include "qzfile/qzpref/file_lock.h"

#include "platform/lock_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <boost/filesystem/operations.hpp>
#include <boost/interprocess/sync/file_lock.hpp>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

namespace qz::pref {

namespace {

// A save of a small file takes about as long.
constexpr std::chrono::milliseconds kPause{1};

/// The system's temporary directory. QDir finds none when its variable names a directory that is
/// not there; it is made then, rather than put lock files into the root.
QString lock_directory()
{
    const QString found = QDir::tempPath();
    if (!found.isEmpty())
        return found;
    return QDir::cleanPath(QDir::current().absoluteFilePath(qEnvironmentVariable("TMPDIR")));
}

} // namespace

// A lock of the system excludes programs, not threads, and closing any handle of its file drops it
// for the whole program. So each lock file is open once in the program, shared by all who hold or
// wait for it, and a mutex in front excludes the threads.
class FileLock::Entry {
public:
    /// The one entry for @p lock_path, opened when nobody has it yet.
    static Entry &borrow(const std::string &lock_path)
    {
        const std::lock_guard<std::mutex> guard(table_mutex());
        std::unique_ptr<Entry> &entry = table()[lock_path];
        try {
            if (!entry)
                entry = std::make_unique<Entry>(lock_path);
        } catch (...) {
            table().erase(lock_path);
            throw;
        }
        ++entry->borrowers_;
        return *entry;
    }

    /// Closes the file when nobody else has it, before anybody can open it anew.
    static void give_back(Entry &entry)
    {
        const std::lock_guard<std::mutex> guard(table_mutex());
        if (--entry.borrowers_ == 0)
            table().erase(std::string(entry.path_));
    }

    explicit Entry(const std::string &lock_path) : path_(lock_path)
    {
        if (const int cause = platform::make_lock_file(lock_path))
            throw std::system_error(cause, std::generic_category());
        file_ = boost::interprocess::file_lock(lock_path.c_str());
    }

    void lock(Mode mode)
    {
        std::unique_lock<std::mutex> guard(threads_mutex_);
        if (mode == Mode::Exclusive) {
            released_.wait(guard, [this] { return !has_writer_ && readers_ == 0; });
            has_writer_ = true;
            guard.unlock();
            try {
                patiently([this] { file_.lock(); });
            } catch (...) {
                end_writing();
                throw;
            }
            return;
        }
        released_.wait(guard, [this] { return !has_writer_; });
        // The program holds one shared lock for all its threads.
        if (readers_ == 0)
            patiently([this] { file_.lock_sharable(); });
        ++readers_;
    }

    void unlock(Mode mode)
    {
        if (mode == Mode::Exclusive) {
            file_.unlock();
            end_writing();
            return;
        }
        const std::lock_guard<std::mutex> guard(threads_mutex_);
        if (--readers_ == 0) {
            file_.unlock_sharable();
            released_.notify_all();
        }
    }

private:
    // Neither is ever destroyed: a store that outlives the statics of its program saves at exit.
    static std::mutex &table_mutex()
    {
        static auto *const mutex = new std::mutex;
        return *mutex;
    }

    static std::map<std::string, std::unique_ptr<Entry>> &table()
    {
        static auto *const entries = new std::map<std::string, std::unique_ptr<Entry>>;
        return *entries;
    }

    void end_writing()
    {
        const std::lock_guard<std::mutex> guard(threads_mutex_);
        has_writer_ = false;
        released_.notify_all();
    }

    /// Calls again after a signal, and after a deadlock that is none: the system takes all threads
    /// of a program for one, so two programs with two files each seem to wait for each other. A
    /// thread that holds a lock waits at most for that of a corrupt file, and that one's holder for
    /// none.
    template <typename Call> static void patiently(Call call)
    {
        for (;;) {
            try {
                call();
                return;
            } catch (const boost::interprocess::interprocess_exception &error) {
                if (error.get_native_error() == EDEADLK)
                    std::this_thread::sleep_for(kPause);
                else if (error.get_native_error() != EINTR)
                    throw;
            }
        }
    }

    std::string path_;
    int borrowers_ = 0; // guarded by the table's mutex
    boost::interprocess::file_lock file_;
    // The threads of this program; std::shared_mutex of mingw-w64 lets readers in beside a writer.
    std::mutex threads_mutex_;
    std::condition_variable released_;
    int readers_ = 0;
    bool has_writer_ = false;
};

FileLock::FileLock(const QString &path, Mode mode) : path_(path), mode_(mode) {}

FileLock::~FileLock()
{
    if (!entry_)
        return;
    entry_->unlock(mode_);
    Entry::give_back(*entry_);
}

QString FileLock::lock_path(const QString &path)
{
    const QByteArray digest =
        QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Md5).toHex();
    return QDir(lock_directory()).filePath(QString::fromLatin1(digest));
}

QZpref_Err FileLock::acquire()
{
    const QString lock_path = FileLock::lock_path(path_);
    const std::string native = QFile::encodeName(lock_path).toStdString();
    try {
        boost::filesystem::create_directories(boost::filesystem::path(native).parent_path());
        Entry &entry = Entry::borrow(native);
        try {
            entry.lock(mode_);
        } catch (...) {
            Entry::give_back(entry);
            throw;
        }
        entry_ = &entry;
        return QZPREF_SUCCESS_;
    } catch (const std::exception &error) {
        errors_ << "Failed to aquire lock in '" << native << "' : " << error.what() << std::endl;
        return QZPREF_LOCK_ERROR;
    }
}

} // namespace qz::pref
