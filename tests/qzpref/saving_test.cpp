#include "platform/replacement_file.h"
#include "preference_scene.h"
#include "qzfile/qzpref/file_lock.h"
#include "qzfile/qzpref/preference_file.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>

#include <atomic>
#include <thread>

using namespace qz::pref;
using scene::kProduct;

namespace {

class Saving : public scene::PreferenceScene {
protected:
    Saving() { std::filesystem::create_directories(root_ / "tmp"); }

    /// Two objects on one path that know nothing of each other stand for two programs.
    QString path() const { return QString::fromStdString(text("p.xml")); }

    static void put(PreferenceFile &file, const std::string &key, const std::string &value)
    {
        file.update(key, [&](KeyRecord &record) {
            record.set_attribute("dt", "QString");
            record.set_value(value);
        });
    }

    static std::string value(PreferenceFile &file, const std::string &key)
    {
        return file.read([&](const Document &document) -> std::string {
            const KeyRecord *record = document.find(key);
            return record ? record->value() : "(none)";
        });
    }
};

TEST_F(Saving, MergesWhatOthersWrote)
{
    PreferenceFile one(path()), two(path());
    for (const char *key : {"both", "mine", "gone"})
        put(one, key, "1");
    ASSERT_EQ(one.save(), 0);
    ASSERT_EQ(two.refresh(), 0);
    put(one, "both", "one");
    put(two, "both", "two");
    put(two, "new", "two");
    two.remove({"gone"});
    for (PreferenceFile *file : {&two, &one, &two})
        ASSERT_EQ(file->save(), 0);
    for (PreferenceFile *file : {&one, &two}) {
        EXPECT_EQ(value(*file, "both"), "one") << "the later save wins";
        EXPECT_EQ(value(*file, "mine"), "1");
        EXPECT_EQ(value(*file, "new"), "two");
        EXPECT_EQ(value(*file, "gone"), "(none)");
    }
}

// A change that leaves the length as it is must be seen however fast it follows the one before.
TEST_F(Saving, NeverMistakesAnEqualSizeForAnUnchangedFile)
{
    PreferenceFile one(path()), two(path());
    put(one, "k1", "0000");
    put(one, "k2", "0000");
    ASSERT_EQ(one.save(), 0);
    for (int i = 1; i <= 100; ++i) {
        const std::string text = std::to_string(1000 + i);
        put(one, "k1", text);
        ASSERT_EQ(one.save(), 0);
        put(two, "k2", text);
        ASSERT_EQ(two.save(), 0);
        ASSERT_EQ(value(two, "k1"), text);
    }
}

TEST_F(Saving, TakenOverValuesYieldToSavedOnes)
{
    PreferenceFile early(path()), late(path());
    for (PreferenceFile *file : {&early, &late}) {
        KeyRecord old;
        old.set_value("old");
        file->adopt("a", old);
        file->adopt("b", old);
    }
    put(early, "a", "new");
    ASSERT_EQ(early.save(), 0);
    ASSERT_EQ(late.save(), 0);
    EXPECT_EQ(value(late, "a"), "new");
    EXPECT_EQ(value(late, "b"), "old");
}

TEST_F(Saving, FailsWholeAndRecovers)
{
    PreferenceFile file(path());
    put(file, "k", "old");
    ASSERT_EQ(file.save(), 0);
    const std::string before = read("p.xml");
    put(file, "k", "new");
    // A directory in the way of the side file: no bytes can be written.
    std::filesystem::create_directories(text("p.xml.new"));
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(file.save(), QZPREF_ACCESS_ERROR);
    EXPECT_EQ(read("p.xml"), before);
    std::filesystem::remove(text("p.xml.new"));
    EXPECT_EQ(file.save(), 0) << "an earlier failure does not stick";
    EXPECT_NE(read("p.xml").find(">new<"), std::string::npos);
    EXPECT_FALSE(is_there("p.xml.new"));
}

TEST_F(Saving, UnreadableContentsNeverReplaceWhatWasRead)
{
    const scene::QtLog log;
    PreferenceFile file(path());
    put(file, "a", "1");
    ASSERT_EQ(file.save(), 0);
    write("p.xml", "somebody's mistake");
    EXPECT_EQ(file.save(), QZPREF_FORMAT_ERROR) << "nothing to save: the file is left alone";
    EXPECT_EQ(read("p.xml"), "somebody's mistake");
    put(file, "b", "2");
    EXPECT_EQ(file.save(), QZPREF_FORMAT_ERROR);
    PreferenceFile other(path());
    EXPECT_EQ(other.refresh(), 0);
    EXPECT_EQ(value(other, "a") + value(other, "b"), "12");
}

TEST_F(Saving, KeepsLinksAndPermissions)
{
    namespace fs = std::filesystem;
    constexpr fs::perms kPrivate = fs::perms::owner_read | fs::perms::owner_write;
    const std::string file = text("real/file.xml");
    write(file, document("<k>1</k>"));
    fs::permissions(file, kPrivate);
    if (!link(file, "p.xml"))
        GTEST_SKIP() << "this system needs a privilege to make links";
    PreferenceFile linked(path());
    put(linked, "k", "2");
    ASSERT_EQ(linked.save(), 0);
    EXPECT_TRUE(fs::is_symlink("p.xml"));
    EXPECT_PRED_FORMAT2(testing::IsSubstring, ">2<", read(file));
    EXPECT_EQ(fs::status(file).permissions(), kPrivate);
}

TEST_F(Saving, StoresOfOneProgramShareWhatIsNotSaved)
{
    QZPREF one(kProduct, true), two(kProduct, true);
    ASSERT_EQ(one.set("k", 1, ""), 0);
    int value = 0;
    EXPECT_EQ(two.get("k", value), 0);
    EXPECT_EQ(value, 1);
    EXPECT_FALSE(is_there("sandbox"));
    one.beginGroup("g");
    EXPECT_EQ(two.getGroup(), "") << "each has its own groups";
    // A settings object of the caller's own on the same file.
    ASSERT_EQ(one.syncSettings(), 0);
    QVariantMap other;
    other["dt"] = "int";
    other["value"] = 12345;
    QSettings own(QString::fromStdString(user_file()), getQSettingsFormat());
    own.setValue("k", other);
    own.sync();
    EXPECT_EQ(two.get("k", value), 0);
    EXPECT_EQ(value, 12345);
}

TEST_F(Saving, EventLoopSavesUnsavedChanges)
{
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    QZPREF store(kProduct, true);
    ASSERT_EQ(store.set("k", 1, ""), 0);
    EXPECT_FALSE(is_there("sandbox"));
    QCoreApplication::processEvents();
    EXPECT_NE(read(user_file()).find("<k dt=\"int\">1</k>"), std::string::npos);
}

TEST_F(Saving, LockFilesAreNamedByDigestAndNeverTruncated)
{
    const std::string lock = FileLock::lock_path(path()).toStdString();
    const auto digest = QCryptographicHash::hash(path().toUtf8(), QCryptographicHash::Md5);
    EXPECT_EQ(std::filesystem::path(lock).filename().string(), digest.toHex().toStdString());
    write(lock, "theirs");
    EXPECT_EQ(FileLock(path(), FileLock::Mode::Exclusive).acquire(), 0);
    EXPECT_EQ(read(lock), "theirs");
    std::filesystem::remove(lock);
    if (!link("target", lock))
        return;
    FileLock refused(path(), FileLock::Mode::Shared);
    EXPECT_EQ(refused.acquire(), QZPREF_LOCK_ERROR);
    EXPECT_EQ(refused.error_text().find("Failed to aquire lock in '" + lock + "' : "), 0u);
    EXPECT_FALSE(is_there("target"));
    std::filesystem::remove(lock);
}

TEST_F(Saving, NoStoreWithoutItsLock)
{
    const QFileInfo file(halcyra::preferences::internal::get_qzpref_file(kProduct, "2025-3"));
    const std::string lock = FileLock::lock_path(file.absoluteFilePath()).toStdString();
    std::filesystem::create_directories(lock);
    EXPECT_EQ(scene::thrown<std::runtime_error>([] { QZPREF(kProduct, true); }),
              "Failure to set lock on given settings file.");
    std::filesystem::remove(lock);
}

TEST_F(Saving, MissingTemporaryDirectoryIsMade)
{
    set_temporary_directory(text("not/there"));
    QZPREF store(kProduct, true);
    EXPECT_TRUE(is_there("not/there"));
    EXPECT_EQ(std::filesystem::path(FileLock::lock_path(path()).toStdString()).parent_path(),
              root_ / "not/there");
}

TEST_F(Saving, LocksExcludeThreads)
{
    std::atomic<int> inside{0};
    std::atomic<bool> broken{false};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; ++i) {
                const bool writer = (i + t) % 4 == 0;
                FileLock lock(path(), writer ? FileLock::Mode::Exclusive : FileLock::Mode::Shared);
                if (lock.acquire())
                    broken = true;
                constexpr int kWriter = 1000;
                const int now = inside += writer ? kWriter : 1;
                if (now >= kWriter && now != kWriter)
                    broken = true;
                inside -= writer ? kWriter : 1;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_FALSE(broken);
}

} // namespace
