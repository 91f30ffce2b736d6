// Puts the preference store under load from many processes and threads at once.
//
//   preference_stress [--dir DIRECTORY] MODE [NUMBERS]
//
//   updates N P         P processes make N updates of counters in one file; none may be lost
//   updates N P reopen  the same, with the store opened anew for every update
//   kills N             a process that saves is killed N times; the file is whole each time and the
//                       next save works
//   opens N             N processes open for the first time at once and migrate an earlier release
//   threads N [P]       N threads in each of P processes, 1 by default, open, use and close stores;
//                       one process is for the thread sanitizer
//
// The files lie in a directory of their own below DIRECTORY, the temporary directory by default.
// The exit status is 0 when no fault was found, 1 otherwise, 2 for a call that makes no sense.
//
// The suite runs short forms. By hand, about an hour in memory; updates on a disk take many times
// as long, for every one of them waits until it is written:
//
//   for p in 2 4 8 32; do preference_stress --dir /dev/shm updates 250000 $p; done
//   preference_stress --dir /dev/shm updates 100000 4 reopen
//   preference_stress kills 10000
//   preference_stress opens 500
//   preference_stress threads 16            (built with the tsan preset)

#include "stress.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <map>
#include <stdexcept>

namespace stress {

std::unique_ptr<QProcess> start_child(const QStringList &arguments)
{
    auto child = std::make_unique<QProcess>();
    child->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child->setStandardInputFile(QProcess::nullDevice());
    child->start(QCoreApplication::applicationFilePath(), arguments);
    if (!child->waitForStarted(-1))
        throw std::runtime_error("a process cannot be started");
    return child;
}

bool ends_well(QProcess &child)
{
    child.waitForFinished(-1);
    return child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0;
}

int number(const QStringList &arguments, int index, int otherwise)
{
    const int given = arguments.value(index).toInt();
    return given > 0 ? given : otherwise;
}

QString preference_file(QZPREF_PRODUCTS product)
{
    return halcyra::preferences::internal::get_qzpref_file(product, "2025-3");
}

std::string key_of(int index)
{
    return "group" + std::to_string(index / 30) + "/key" + std::to_string(index % 30);
}

QZpref_Err save_everywhere(QZPREF &store, const std::string &value)
{
    for (int i = 0; i < kKeys; ++i) {
        if (const QZpref_Err failure = store.set(key_of(i), QString::fromStdString(value), {}))
            return failure;
    }
    return store.syncSettings();
}

} // namespace stress

namespace {

const std::map<QString, stress::Mode> kModes = {
    {"updates", stress::updates},
    {"kills",   stress::kills  },
    {"opens",   stress::opens  },
    {"threads", stress::threads},
};
const std::map<QString, stress::Mode> kChildren = {
    {"update-child",  stress::update_child },
    {"kill-child",    stress::kill_child   },
    {"open-child",    stress::open_child   },
    {"threads-child", stress::threads_child},
};

/// Everything the store may touch lies below the current directory from here on.
void enter_sandbox(const QString &directory)
{
    QDir(directory).mkpath("tmp");
    QDir::setCurrent(directory);
    for (const char *variable : {"HALCYRA_QZPREF_SANDBOX", "HALCYRA", "HOME"})
        qputenv(variable, QFile::encodeName(directory));
    for (const char *variable : {"TMPDIR", "TMP", "TEMP"})
        qputenv(variable, QFile::encodeName(directory + "/tmp"));
    qputenv("HALCYRA_MACHINE_PREFERENCE", QFile::encodeName(directory + "/machine.xml"));
    qputenv("HALCYRA_SITE_PREFERENCE", QFile::encodeName(directory + "/site.xml"));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments().mid(1);
    QString parent = QDir::tempPath();
    if (arguments.value(0) == "--dir") {
        parent = arguments.value(1);
        arguments = arguments.mid(2);
    }
    const QString name = arguments.value(0);
    const auto child = kChildren.find(name);
    if (child != kChildren.end())
        return child->second(arguments).faults ? 1 : 0;

    const auto mode = kModes.find(name);
    QTemporaryDir directory(parent + "/qzpref-stress-XXXXXX");
    if (mode == kModes.end() || !directory.isValid()) {
        std::fprintf(stderr, "usage: preference_stress [--dir DIRECTORY] "
                             "updates N P [reopen] | kills N | opens N | threads N [P]\n");
        return 2;
    }
    enter_sandbox(directory.path());
    stress::Outcome outcome;
    try {
        outcome = mode->second(arguments);
    } catch (const std::exception &error) {
        outcome = {error.what(), 1};
    }
    std::printf("%s: %s\n", qPrintable(arguments.join(' ')), qPrintable(outcome.summary));
    QDir::setCurrent(parent);
    return outcome.faults ? 1 : 0;
}
