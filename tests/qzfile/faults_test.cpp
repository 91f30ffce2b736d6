// Calls that fail when they are told to. The linker puts the functions below in the place of the
// runtime's, for the library's objects and for the test.

#include "qzfile/fault_scene.h"

#include <cerrno>
#include <cstdio>

using qz::test::Countdown;
using scene::Faults;
using scene::Messages;

namespace {

Countdown fopen_fault, fdopen_fault, fchmod_fault, fwrite_fault, ferror_fault, fclose_fault,
    rename_fault;

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

namespace {

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
