#ifndef QZ_TESTS_STRESS_STRESS_H
#define QZ_TESTS_STRESS_STRESS_H

#include "qzpref.hpp"

#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>
#include <string>
#include <vector>

namespace stress {

/// What a run has found; printed as one line. Everything but zero faults fails the program.
struct Outcome {
    QString summary;
    int faults = 0;
};

using Mode = Outcome (*)(const QStringList &arguments);

/// Modes that a caller asks for. Each runs in a sandbox of its own, in the current directory.
Outcome updates(const QStringList &arguments);
Outcome kills(const QStringList &arguments);
Outcome opens(const QStringList &arguments);
Outcome threads(const QStringList &arguments);

/// The other processes of these modes; a fault is their exit status.
Outcome update_child(const QStringList &arguments);
Outcome kill_child(const QStringList &arguments);
Outcome open_child(const QStringList &arguments);
Outcome threads_child(const QStringList &arguments);

/// Starts this program once more, in the same sandbox. Its standard error is ours.
/// Throws std::runtime_error when that is not possible.
std::unique_ptr<QProcess> start_child(const QStringList &arguments);
/// Whether @p child ends by itself and finds no fault.
bool ends_well(QProcess &child);

/// Argument @p index as a number of at least 1; @p otherwise without one.
int number(const QStringList &arguments, int index, int otherwise);

/// File of @p product for the current release.
QString preference_file(QZPREF_PRODUCTS product);

/// A process that nobody has ended or released by then was forgotten by one that died.
constexpr int kForgotten_ms = 100'000;
constexpr QZPREF_PRODUCTS kProduct = QZPREF_KORVEL;
constexpr int kKeys = 300;

/// "group3/key17": one of the keys of a middle-sized file.
std::string key_of(int index);
/// Gives every key the value @p value and saves.
QZpref_Err save_everywhere(QZPREF &store, const std::string &value);

} // namespace stress

#endif
