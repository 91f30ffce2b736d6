// Memory that runs out when it is told to, at every place where some is asked for.

#include "qzfile/fault_scene.h"

#include <utility>

using qz::test::new_fault;
using scene::kContents;
using scene::Messages;

namespace {

class MemoryFaults : public scene::Faults {
protected:
    /// Makes a call without its first allocation, without its second and so on until it succeeds.
    /// @return how many there are.
    template <typename Call, typename Check> static int fail_each_allocation(Call call, Check check)
    {
        for (int allocation = 1;; ++allocation) {
            SCOPED_TRACE(allocation);
            Messages messages;
            new_fault.calls = allocation;
            const int status = call();
            if (std::exchange(new_fault.calls, 0) > 0) {
                EXPECT_EQ(status, 0);
                return allocation - 1;
            }
            EXPECT_EQ(status, -1);
            check(messages.text());
        }
    }
};

} // namespace

TEST_F(MemoryFaults, AConversionWithoutMemoryChangesNothing)
{
    const auto check = [&](const std::string &said) {
        EXPECT_EQ(said, "FATAL qzfile_dos_to_unix():Failed to allocate memory for path "
                        "'a file with a name of some length'.\n");
        EXPECT_TRUE(read(kName) == kContents);
    };
    EXPECT_GT(fail_each_allocation([] { return qzfile_dos_to_unix(kName); }, check), 1);
    write(kName, kContents);
}

TEST_F(MemoryFaults, ARegistrationWithoutMemoryIsSaid)
{
    Messages messages;
    new_fault.calls = 1;
    EXPECT_EQ(qzfile_dos_to_unix_register(kName), -1);
    EXPECT_EQ(messages.text(), "FATAL qzfile_dos_to_unix_register():Failed to allocate memory for "
                               "path 'a file with a name of some length'.\n");
    EXPECT_EQ(qzfile_dos_to_unix_convert(), 0) << "nothing was registered";
}

TEST_F(MemoryFaults, AnOpenWithoutMemoryLeavesNoStream)
{
    FILE *stream = nullptr;
    const auto check = [&](const std::string &) { EXPECT_EQ(stream, nullptr); };
    EXPECT_GT(fail_each_allocation([&] { return qzfile_open(kName, &stream, "r"); }, check), 3);
    EXPECT_EQ(qzfile_close(stream), 0);
}
