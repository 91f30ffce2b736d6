#include "qz/progress.h"

#include "platform/standard_streams.h"

#include <algorithm>
#include <cstdio>

namespace qz::cli {

namespace {

// Work that ends sooner needs no bar.
constexpr std::chrono::milliseconds kPatience{400};
constexpr std::chrono::milliseconds kBetweenLooks{100};
constexpr std::size_t kBarWidth = 40;

} // namespace

Progress::Progress(double total, std::function<double()> done)
    : total_(total), done_(std::move(done))
{
    if (total_ > 0 && qz::platform::is_terminal(stderr))
        watcher_ = std::thread(&Progress::watch, this);
}

Progress::~Progress()
{
    if (!watcher_.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        over_ = true;
    }
    wake_.notify_one();
    watcher_.join();
    if (drawn_)
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(kBarWidth) + 8, "");
}

void Progress::watch()
{
    std::unique_lock<std::mutex> lock(mutex_);
    for (auto pause = kPatience; !wake_.wait_for(lock, pause, [this] { return over_; });
         pause = kBetweenLooks)
        draw(std::clamp(done_() / total_, 0.0, 1.0));
}

void Progress::draw(double part)
{
    const auto full = static_cast<std::size_t>(part * static_cast<double>(kBarWidth));
    std::fprintf(stderr, "\r[%s%s] %3d%%", std::string(full, '#').c_str(),
                 std::string(kBarWidth - full, '.').c_str(), static_cast<int>(part * 100));
    std::fflush(stderr);
    drawn_ = true;
}

} // namespace qz::cli
