#include "platform/directory_of_its_own.h"
#include "platform/replacement_file.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>
#include <vector>

namespace {

using qz::platform::file_stamp;
using qz::platform::ReplacementFile;

class Replacement : public qz::test::DirectoryOfItsOwn {
protected:
    int replace(const std::string &name, const std::string &bytes) const
    {
        ReplacementFile file;
        int cause = file.open(path(name));
        cause = cause ? cause : file.write(bytes);
        return cause ? cause : file.commit();
    }
};

TEST_F(Replacement, OfAFileThatIsThereOrNot)
{
    // The last name is one letter outside ASCII in every code page of the western systems.
    for (const std::string &name : {std::string("file"), std::string("a b.xml"),
                                    std::string(180, 'n'), std::string("\xE9.xml")}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(replace(name, "first, and longer"), 0);
        EXPECT_EQ(read(name), "first, and longer");
        EXPECT_EQ(replace(name, "second"), 0);
        EXPECT_EQ(read(name), "second");
        EXPECT_FALSE(is_there(name + ".new"));
    }
}

TEST_F(Replacement, GivenUpLeavesTheOldFile)
{
    write("file", "old");
    {
        ReplacementFile file;
        ASSERT_EQ(file.open(path("file")), 0);
        ASSERT_EQ(file.write("half of a docum"), 0);
        EXPECT_EQ(read("file"), "old");
    }
    EXPECT_EQ(read("file"), "old");
    EXPECT_FALSE(is_there("file.new"));
}

TEST_F(Replacement, UsesTheLeftoverOfAKilledWriter)
{
    write("file.new", std::string(1000, 'x'));
    EXPECT_EQ(replace("file", "whole"), 0);
    EXPECT_EQ(read("file"), "whole");
}

TEST_F(Replacement, FailsWithAReasonAndLosesNothing)
{
    write("file", "old");
    std::filesystem::create_directory(path("file.new"));
    EXPECT_NE(replace("file", "new"), 0) << "a directory in the way of the side file";
    EXPECT_EQ(read("file"), "old");
    std::filesystem::create_directory(path("directory"));
    EXPECT_NE(replace("directory", "new"), 0) << "a directory in the place of the file";
    EXPECT_FALSE(is_there("directory.new"));
    EXPECT_EQ(replace("none/file", "new"), ENOENT);
}

TEST_F(Replacement, RespectsAFileThatIsWriteProtected)
{
    namespace fs = std::filesystem;
    write("file", "old");
    constexpr fs::perms kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(path("file"), kWrite, fs::perm_options::remove);
    if (std::ofstream(path("file"), std::ios::app))
        GTEST_SKIP() << "this account may write every file";
    EXPECT_NE(replace("file", "new"), 0);
    EXPECT_EQ(read("file"), "old");
    EXPECT_FALSE(is_there("file.new"));
    fs::permissions(path("file"), kWrite, fs::perm_options::add);
}

// A system may refuse to replace a file that somebody reads. Readers are done soon; the writer
// waits.
TEST_F(Replacement, OfAFileThatIsBeingRead)
{
    write("file", "old");
    std::ifstream reader(path("file"));
    std::thread end_of_reading([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        reader.close();
    });
    EXPECT_EQ(replace("file", "new"), 0);
    end_of_reading.join();
    EXPECT_EQ(read("file"), "new");
}

TEST_F(Replacement, IsOneWritersAtATime)
{
    constexpr int kWriters = 4;
    constexpr int kTurns = 25;
    write("file", "0");
    std::atomic<int> failed{0};
    std::vector<std::thread> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.emplace_back([&] {
            for (int turn = 0; turn < kTurns; ++turn) {
                ReplacementFile file;
                failed += file.open(path("file")) != 0;
                const int count = std::stoi("0" + read("file"));
                failed += file.write(std::to_string(count + 1)) || file.commit();
            }
        });
    }
    for (std::thread &writer : writers)
        writer.join();
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(read("file"), std::to_string(kWriters * kTurns));
}

TEST_F(Replacement, OfEqualLengthIsSeenByItsStamp)
{
    ASSERT_EQ(replace("file", "000"), 0);
    for (int i = 1; i < 50; ++i) {
        const auto before = file_stamp(path("file"));
        ASSERT_EQ(replace("file", std::to_string(100 + i)), 0);
        const auto after = file_stamp(path("file"));
        EXPECT_GE(after.changed_ns - before.changed_ns, 1'000'000);
    }
}

} // namespace
