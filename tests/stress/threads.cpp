// Threads of one program or of several open, use and close stores of the same product and of
// others, with layers below that go whenever the last store is closed.

#include "stress.h"

#include <QFile>

#include <atomic>
#include <thread>

namespace stress {

namespace {

constexpr int kRounds = 40;
constexpr int kProducts = 3;

QZPREF_PRODUCTS product_of(int index)
{
    return static_cast<QZPREF_PRODUCTS>(index % kProducts);
}

/// Every kind of use once. Returns the number of wrong answers.
int use(QZPREF &store, const std::string &own, int round)
{
    int value = 0;
    int wrong = round > 0 && (store.get(own + "/count", value) || value != round) ? 1 : 0;
    wrong += store.set(own + "/count", round + 1, "how often") ? 1 : 0;
    wrong += store.set(own + "/name", QString::fromStdString(own), {}) ? 1 : 0;
    wrong += store.getType(own + "/name") == QZPREF_TYPE_STRING ? 0 : 1;
    wrong += store.getKeySource(key_of(1).c_str()) == QZPrefSource_Machine ? 0 : 1;

    std::string text;
    wrong += store.get(key_of(2), text) || text != "from below" ? 1 : 0;
    std::map<std::string, std::string> listed;
    wrong += store.getStringList("group1", listed) || listed.size() != 30 ? 1 : 0;
    std::vector<std::string> groups;
    store.getSubgroups(groups, 0);
    wrong += groups.empty() ? 1 : 0;
    store.removeKey(own + "/name", QZPREF_TYPE_STRING);
    wrong += store.syncSettings() ? 1 : 0;
    return wrong;
}

std::string group_of(int process, int thread)
{
    return "process" + std::to_string(process) + "/thread" + std::to_string(thread);
}

int work(int process, int thread)
{
    int wrong = 0;
    for (int round = 0; round < kRounds; ++round) {
        QZPREF store(product_of(thread), round % 2 == 0);
        wrong += use(store, group_of(process, thread), round);
        if (round % 4 == 0) {
            const QZPREF copy(store);
            QZPREF other(product_of(thread + round), true);
            wrong += copy.getGroup().empty() && other.getGroup().empty() ? 0 : 1;
        }
    }
    return wrong;
}

int work_in_threads(int process, int wanted)
{
    std::atomic<int> wrong{0};
    std::vector<std::thread> running;
    for (int i = 0; i < wanted; ++i)
        running.emplace_back([=, &wrong] { wrong += work(process, i); });
    for (std::thread &thread : running)
        thread.join();
    return wrong;
}

/// Makes the machine's file from a user's.
bool make_machine_layer()
{
    {
        QZPREF store(kProduct, false);
        save_everywhere(store, "from below");
    }
    return QFile::rename(preference_file(kProduct),
                         halcyra::preferences::internal::get_machine_preferences_path());
}

} // namespace

Outcome threads_child(const QStringList &arguments)
{
    Outcome outcome;
    outcome.faults = work_in_threads(arguments.value(1).toInt(), arguments.value(2).toInt());
    return outcome;
}

Outcome threads(const QStringList &arguments)
{
    const int wanted = number(arguments, 1, 8);
    const int processes = number(arguments, 2, 1);
    if (!make_machine_layer())
        return {"the sandbox cannot be made", 1};
    std::vector<std::unique_ptr<QProcess>> children;
    for (int i = 1; i < processes; ++i) {
        children.push_back(
            start_child({"threads-child", QString::number(i), QString::number(wanted)}));
    }
    int wrong = work_in_threads(0, wanted);
    for (const auto &child : children)
        wrong += ends_well(*child) ? 0 : 1;
    for (int i = 0; i < wanted * processes; ++i) {
        const int thread = i % wanted;
        QZPREF store(product_of(thread), false);
        int value = 0;
        store.get(group_of(i / wanted, thread) + "/count", value);
        wrong += value == kRounds ? 0 : 1;
    }
    return {QString("%1 wrong answers to %2 threads in each of %3 processes")
                .arg(wrong)
                .arg(wanted)
                .arg(processes),
            wrong};
}

} // namespace stress
