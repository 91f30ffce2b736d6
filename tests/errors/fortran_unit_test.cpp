#include "errors/handler_table.h"
#include "platform/fortran_unit.h"
#include "qzerr.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

extern "C" {
void program_open(int unit, const char *path, int length, int is_formatted);
void program_write(int unit, int number);
void program_close(int unit);
}

namespace {

constexpr int kUnit = 57;

/// A unit that the Fortran program has open, and a handler on it.
class FortranUnit : public testing::Test {
protected:
    FortranUnit() { qzerr_new(&id_); }

    ~FortranUnit() override
    {
        qzerr_delete(id_);
        std::remove(path_.c_str());
    }

    void open(bool formatted)
    {
        program_open(kUnit, path_.c_str(), static_cast<int>(path_.size()), formatted ? 1 : 0);
        ASSERT_TRUE(qz::errors::set_fortran_unit(id_, kUnit));
    }

    std::string close()
    {
        program_close(kUnit);
        std::ifstream file(path_);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    const std::string path_ = testing::TempDir() + "qzerr_unit.txt";
    int id_ = 0;
};

TEST_F(FortranUnit, RecordsLandInOrderWithTheProgramsOwn)
{
    open(true);
    program_write(kUnit, 1);
    EXPECT_EQ(qzerr_throw(id_, QZERR_FATAL, "mesh %d", 2), 1);
    program_write(kUnit, 3);
    const std::string longest(10000, 'x');
    qzerr_throw(id_, QZERR_WARNING, "%s", longest.c_str());
    EXPECT_EQ(qz_write_fortran_unit(kUnit, "ignored", -1), 0);
    program_write(kUnit, 5);
    EXPECT_EQ(close(),
              "program 1\nFATAL mesh 2\nprogram 3\nWARNING " + longest + "\n\nprogram 5\n");
}

TEST_F(FortranUnit, ARefusedRecordIsNoFailureOfTheThrow)
{
    open(false);
    EXPECT_EQ(qzerr_throw(id_, QZERR_FATAL, "formatted"), 1);
    EXPECT_NE(qz_write_fortran_unit(kUnit, "x", 1), 0);
    EXPECT_EQ(close(), "");
}

TEST_F(FortranUnit, ANegativeUnitIsSilence)
{
    EXPECT_TRUE(qz::errors::set_fortran_unit(id_, -10));
    EXPECT_EQ(qzerr_throw(id_, QZERR_FATAL, "x"), 1);
    EXPECT_FALSE(qz::errors::set_fortran_unit(99, kUnit));
}

} // namespace
