#include "qzerr.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

// What few programs come to need, and none should wait for when it starts.
TEST(MappedLibraries, OnlyWhatEveryProgramNeeds)
{
    int id = 0;
    ASSERT_EQ(qzerr_new(&id), 1);
    std::ifstream maps("/proc/self/maps");
    const std::string mapped(std::istreambuf_iterator<char>(maps), {});
    EXPECT_NE(mapped.find("libqzfileshared"), std::string::npos);
    for (const char *library : {"libpython", "libgfortran", "libxml2"})
        EXPECT_EQ(mapped.find(library), std::string::npos) << library;
}

} // namespace
