// A new release is started by everybody at once: no file of it is there yet, each process finds the
// one of an earlier release and migrates it, and all of them see the same values.

#include "stress.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <exception>

namespace stress {

namespace {

constexpr char kValue[] = "as it was";
constexpr char kGo[] = "go";
constexpr char kReady[] = "ready";

template <typename Condition> bool wait_until(Condition condition)
{
    QElapsedTimer waiting;
    waiting.start();
    while (!condition()) {
        if (waiting.elapsed() > kForgotten_ms)
            return false;
        QThread::msleep(5);
    }
    return true;
}

int wrong_values()
{
    QZPREF store(kProduct, true);
    int wrong = 0;
    for (int i = 0; i < kKeys; ++i) {
        std::string value;
        wrong += store.get(key_of(i), value) || value != kValue ? 1 : 0;
    }
    return wrong;
}

/// Moves what the current release has saved to where an earlier one had it.
bool make_earlier_release()
{
    using halcyra::preferences::internal::get_qzpref_file;
    {
        QZPREF store(kProduct, false);
        save_everywhere(store, kValue);
    }
    const QString earlier = get_qzpref_file(kProduct, "2024-4");
    return QDir().mkpath(QFileInfo(earlier).path()) &&
           QFile::rename(preference_file(kProduct), earlier);
}

} // namespace

Outcome open_child(const QStringList &arguments)
{
    QFile ready(QString(kReady) + "/" + arguments.value(1));
    if (!ready.open(QIODevice::WriteOnly))
        return {{}, 1};
    if (!wait_until([] { return QFile::exists(kGo); }))
        return {{}, 1};
    try {
        return {{}, wrong_values()};
    } catch (const std::exception &error) {
        qWarning("open-child: %s", error.what());
        return {{}, 1};
    }
}

Outcome opens(const QStringList &arguments)
{
    const int wanted = number(arguments, 1, 100);
    if (!QDir().mkpath(kReady) || !make_earlier_release())
        return {"the sandbox cannot be made", 1};
    std::vector<std::unique_ptr<QProcess>> children;
    for (int i = 0; i < wanted; ++i)
        children.push_back(start_child({"open-child", QString::number(i)}));
    const bool all_wait =
        wait_until([wanted] { return QDir(kReady).entryList(QDir::Files).size() == wanted; });
    if (!all_wait || !QFile(kGo).open(QIODevice::WriteOnly))
        return {"not all processes have come to the start", 1};

    int failed = 0;
    for (const auto &child : children)
        failed += ends_well(*child) ? 0 : 1;
    failed += wrong_values() ? 1 : 0;
    return {QString("%1 of %2 processes failed or saw other values").arg(failed).arg(wanted),
            failed};
}

} // namespace stress
