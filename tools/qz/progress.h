#ifndef QZ_TOOLS_PROGRESS_H
#define QZ_TOOLS_PROGRESS_H

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace qz::cli {

/// A bar on standard error while work is going on, when that is a terminal and the work takes long.
///
/// It looks at the work from a thread of its own, so that a library call that does all of it can be
/// followed too.
class Progress {
public:
    /// @param total  Amount of work.
    /// @param done   Tells how much of it is done; called from another thread.
    Progress(double total, std::function<double()> done);
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    /// Takes the bar away.
    ~Progress();

private:
    void watch();
    void draw(double part);

    const double total_;
    const std::function<double()> done_;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool over_ = false;
    bool drawn_ = false;
    std::thread watcher_;
};

} // namespace qz::cli

#endif
