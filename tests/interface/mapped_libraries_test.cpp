#include "qzerr.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

// A Fortran program has no use for an interpreter, and must not wait for one to be mapped.
TEST(MappedLibraries, NoInterpreter)
{
    int id = 0;
    ASSERT_EQ(qzerr_new(&id), 1);
    std::ifstream maps("/proc/self/maps");
    const std::string mapped(std::istreambuf_iterator<char>(maps), {});
    EXPECT_NE(mapped.find("libqzfileshared"), std::string::npos);
    EXPECT_EQ(mapped.find("libpython"), std::string::npos);
}

} // namespace
