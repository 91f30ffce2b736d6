// Many processes count in one file. Each has counters of its own, so nothing but the merge of a
// save can lose an update; their texts keep their length, so the file's size never tells that
// somebody else has written.

#include "stress.h"

#include <QElapsedTimer>

namespace stress {

namespace {

constexpr int kCounters = 3;
constexpr int kWidth = 10;

std::string counter(int process, int index)
{
    return "process" + std::to_string(process) + "/counter" + std::to_string(index);
}

QString text_of(int value)
{
    return QString("%1").arg(value, kWidth, 10, QChar('0'));
}

int value_of(QZPREF &store, const std::string &key)
{
    std::string text;
    if (store.get(key, text))
        return -1;
    return QString::fromStdString(text).toInt();
}

int share_of(int updates, int processes, int process)
{
    return updates / processes + (process < updates % processes ? 1 : 0);
}

bool count(QZPREF &store, const std::string &key)
{
    const int value = value_of(store, key);
    return value >= 0 && store.set(key, text_of(value + 1), {}) == QZPREF_SUCCESS_ &&
           store.syncSettings() == QZPREF_SUCCESS_;
}

} // namespace

Outcome update_child(const QStringList &arguments)
{
    const int process = arguments.value(1).toInt();
    const int share = arguments.value(2).toInt();
    const bool reopen = arguments.value(3) == "reopen";
    Outcome outcome;
    auto store = std::make_unique<QZPREF>(kProduct, false);
    for (int i = 0; i < share; ++i) {
        if (reopen) {
            store.reset();
            store = std::make_unique<QZPREF>(kProduct, false);
        }
        outcome.faults += count(*store, counter(process, i % kCounters)) ? 0 : 1;
    }
    return outcome;
}

Outcome updates(const QStringList &arguments)
{
    const int wanted = number(arguments, 1, 1000);
    const int processes = number(arguments, 2, 4);
    {
        QZPREF store(kProduct, false);
        for (int i = 0; i < processes * kCounters; ++i)
            store.set(counter(i / kCounters, i % kCounters), text_of(0), {});
    }
    QElapsedTimer timer;
    timer.start();
    std::vector<std::unique_ptr<QProcess>> children;
    for (int i = 0; i < processes; ++i) {
        children.push_back(
            start_child({"update-child", QString::number(i),
                         QString::number(share_of(wanted, processes, i)), arguments.value(3)}));
    }
    int failed = 0;
    for (const auto &child : children)
        failed += ends_well(*child) ? 0 : 1;
    const qint64 spent_ms = timer.elapsed();

    // Counted one by one, so that a value that came back cannot make up for a lost one.
    int wrong = 0;
    QZPREF store(kProduct, false);
    for (int i = 0; i < processes * kCounters; ++i) {
        const int process = i / kCounters;
        const int index = i % kCounters;
        const int expected = share_of(share_of(wanted, processes, process), kCounters, index);
        wrong += std::abs(value_of(store, counter(process, index)) - expected);
    }
    return {QString("%1 of %2 updates lost by %3 processes in %4 s, %5 processes failed")
                .arg(wrong)
                .arg(wanted)
                .arg(processes)
                .arg(static_cast<double>(spent_ms) / 1000)
                .arg(failed),
            wrong + failed};
}

} // namespace stress
