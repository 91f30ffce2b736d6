// Calls that fail when they are told to. The linker puts the functions below in the place of the
// runtime's for the library's objects and for the test.

#include "qzfile/scene.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

using scene::Messages;

namespace {

/// The call that fails, counted down: 1 is the next one, 0 none.
struct Countdown {
    int calls = 0;

    bool is_over() { return calls > 0 && --calls == 0; }
};

Countdown fopen_fault, fdopen_fault, fchmod_fault, fwrite_fault, ferror_fault, fclose_fault,
    rename_fault, new_fault;

} // namespace

extern "C" {

FILE *__real_fopen(const char *path, const char *mode);
FILE *__real_fdopen(int fd, const char *mode);
int __real_fchmod(int fd, mode_t mode);
std::size_t __real_fwrite(const void *data, std::size_t size, std::size_t count, FILE *stream);
int __real_ferror(FILE *stream);
int __real_fclose(FILE *stream);
int __real_rename(const char *from, const char *to);

static int failed(int reason)
{
    errno = reason;
    return -1;
}

FILE *__wrap_fopen(const char *path, const char *mode)
{
    return fopen_fault.is_over() ? (failed(EMFILE), nullptr) : __real_fopen(path, mode);
}

FILE *__wrap_fdopen(int fd, const char *mode)
{
    return fdopen_fault.is_over() ? (failed(ENOMEM), nullptr) : __real_fdopen(fd, mode);
}

int __wrap_fchmod(int fd, mode_t mode)
{
    return fchmod_fault.is_over() ? failed(EPERM) : __real_fchmod(fd, mode);
}

std::size_t __wrap_fwrite(const void *data, std::size_t size, std::size_t count, FILE *stream)
{
    const bool is_full = fwrite_fault.is_over();
    return __real_fwrite(data, size, is_full ? count / 2 : count, stream);
}

int __wrap_ferror(FILE *stream)
{
    return ferror_fault.is_over() ? failed(EIO) : __real_ferror(stream);
}

int __wrap_fclose(FILE *stream)
{
    const int result = __real_fclose(stream);
    return fclose_fault.is_over() ? failed(EIO) : result;
}

int __wrap_rename(const char *from, const char *to)
{
    return rename_fault.is_over() ? failed(EBUSY) : __real_rename(from, to);
}
}

// Every form is replaced: a sanitizer brings forms of its own for those that are not.
void *operator new(std::size_t size)
{
    void *memory = new_fault.is_over() ? nullptr : std::malloc(size != 0 ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void *operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

/// The number that the next file gets: it grows when a stream is left open.
int next_descriptor()
{
    const int fd = ::open("/dev/null", O_RDONLY);
    ::close(fd);
    return fd;
}

const std::string kContents = "first\r\n" + std::string(300'000, 'x') + "\r\nlast";

class Faults : public scene::Scene {
protected:
    Faults()
    {
        qzfile_path_set(".");
        write(kName, kContents);
        descriptor_ = next_descriptor();
    }

    ~Faults() override
    {
        EXPECT_EQ(read(kName), kContents);
        EXPECT_FALSE(is_there(std::string(kName) + ".tmp"));
        EXPECT_EQ(next_descriptor(), descriptor_);
    }

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

    // Too long for a text that needs no memory.
    static constexpr char kName[] = "a file with a name of some length";

private:
    int descriptor_ = 0;
};

constexpr char kReading[] = "FATAL qzfile_dos_to_unix():Failed to open 'a file with a name of some "
                            "length' for reading.\n";
constexpr char kWriting[] = "FATAL qzfile_dos_to_unix():Failed to open 'a file with a name of some "
                            "length.tmp' for writing.\n";
constexpr char kRenaming[] =
    "FATAL qzfile_dos_to_unix():Failed to rename the converted file 'a file with a name of some "
    "length.tmp' to 'a file with a name of some length'.\n";

struct FaultCase {
    const char *why;
    Countdown *fault;
    int call;
    const char *message;
};

const FaultCase kFaultCases[] = {
    {"gone after the first look",    &fopen_fault,  2, kReading },
    {"no stream for the result",     &fdopen_fault, 1, kWriting },
    {"no right to set permissions",  &fchmod_fault, 1, kWriting },
    {"the device is full",           &fwrite_fault, 1, kRenaming},
    {"it becomes full",              &fwrite_fault, 2, kRenaming},
    {"a read fails",                 &ferror_fault, 1, kRenaming},
    {"a read in the middle fails",   &ferror_fault, 2, kRenaming},
    {"the result cannot be closed",  &fclose_fault, 3, kRenaming},
    {"the result cannot be renamed", &rename_fault, 1, kRenaming},
};

} // namespace

TEST_F(Faults, AConversionThatFailsChangesNothing)
{
    for (const FaultCase &c : kFaultCases) {
        SCOPED_TRACE(c.why);
        Messages messages;
        c.fault->calls = c.call;
        EXPECT_EQ(qzfile_dos_to_unix(kName), -1);
        EXPECT_EQ(c.fault->calls, 0);
        EXPECT_EQ(messages.text(), c.message);
        EXPECT_FALSE(is_there(std::string(kName) + ".tmp"));
    }
}

TEST_F(Faults, AConversionWithoutMemoryChangesNothing)
{
    const auto check = [&](const std::string &said) {
        EXPECT_EQ(said, "FATAL qzfile_dos_to_unix():Failed to allocate memory for path "
                        "'a file with a name of some length'.\n");
        EXPECT_TRUE(read(kName) == kContents);
    };
    EXPECT_GT(fail_each_allocation([] { return qzfile_dos_to_unix(kName); }, check), 4);
    write(kName, kContents);
}

TEST_F(Faults, ARegistrationWithoutMemoryIsSaid)
{
    Messages messages;
    new_fault.calls = 1;
    EXPECT_EQ(qzfile_dos_to_unix_register(kName), -1);
    EXPECT_EQ(messages.text(), "FATAL qzfile_dos_to_unix_register():Failed to allocate memory for "
                               "path 'a file with a name of some length'.\n");
    EXPECT_EQ(qzfile_dos_to_unix_convert(), 0) << "nothing was registered";
}

TEST_F(Faults, AnOpenWithoutMemoryLeavesNoStream)
{
    FILE *stream = nullptr;
    const auto check = [&](const std::string &) { EXPECT_EQ(stream, nullptr); };
    EXPECT_GT(fail_each_allocation([&] { return qzfile_open(kName, &stream, "r"); }, check), 3);
    EXPECT_EQ(qzfile_close(stream), 0);
}
