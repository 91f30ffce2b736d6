// A process that does nothing but save is killed at any moment. The file is always what one of its
// saves has made, and whoever saves next neither fails nor waits.

#include "stress.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <QXmlStreamReader>

#include <cstdio>
#include <random>

namespace stress {

namespace {

constexpr int kLongSave_ms = 1000;
constexpr int kLongestLife_us = 20'000;

/// Whether the file is complete and all its keys have one value. The store is not asked: it would
/// put a damaged file out of the way.
bool is_whole(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader reader(&file);
    QString value;
    int keys = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isCharacters() || reader.isWhitespace())
            continue;
        if (++keys > 1 && reader.text() != value)
            return false;
        value = reader.text().toString();
    }
    return !reader.hasError() && keys == kKeys;
}

} // namespace

Outcome kill_child(const QStringList &)
{
    QZPREF store(kProduct, false);
    QElapsedTimer alive;
    alive.start();
    for (int turn = 0; alive.elapsed() < kForgotten_ms; ++turn) {
        if (save_everywhere(store, turn % 2 ? "odd and even" : "even"))
            return {{}, 1};
        if (turn == 0) {
            std::puts("saving");
            std::fflush(stdout);
        }
    }
    return {};
}

Outcome kills(const QStringList &arguments)
{
    const int wanted = number(arguments, 1, 1000);
    std::mt19937 generator(20250301);
    std::uniform_int_distribution<unsigned long> life_us(0, kLongestLife_us);
    const QString path = preference_file(kProduct);
    int torn = 0;
    int failed = 0;
    int interrupted = 0;
    int long_saves = 0;
    int left_behind = 0;
    qint64 longest_ms = 0;
    for (int i = 0; i < wanted; ++i) {
        const auto child = start_child({"kill-child"});
        if (!child->waitForReadyRead()) {
            ++failed;
            continue;
        }
        QThread::usleep(life_us(generator));
        child->kill();
        child->waitForFinished(-1);
        torn += is_whole(path) ? 0 : 1;
        const QDir directory = QFileInfo(path).dir();
        interrupted += directory.entryList(QDir::Files).size() > 1 ? 1 : 0;

        QElapsedTimer timer;
        timer.start();
        {
            QZPREF store(kProduct, false);
            failed += save_everywhere(store, "saved afterwards") ? 1 : 0;
        }
        longest_ms = std::max(longest_ms, timer.elapsed());
        long_saves += timer.elapsed() > kLongSave_ms ? 1 : 0;
        failed += is_whole(path) ? 0 : 1;
        left_behind += static_cast<int>(directory.entryList(QDir::Files).size()) - 1;
    }
    // How long a save takes says something about the machine too, so it is told and not judged.
    return {QString("%1 torn files, %2 later saves failed, %3 files left behind; %4 kills hit a "
                    "save, %5 later saves over %6 ms, the longest %7 ms")
                .arg(torn)
                .arg(failed)
                .arg(left_behind)
                .arg(interrupted)
                .arg(long_saves)
                .arg(kLongSave_ms)
                .arg(longest_ms),
            torn + failed + left_behind};
}

} // namespace stress
