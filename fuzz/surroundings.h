#ifndef QZ_FUZZ_SURROUNDINGS_H
#define QZ_FUZZ_SURROUNDINGS_H

#include "qzerr.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace qz::fuzz {

/// A home of its own below the temporary directory, a variable "L" longer than most names, and no
/// output.
inline void make_surroundings(const char *home_name)
{
    const auto home = std::filesystem::temp_directory_path() / home_name;
    std::filesystem::create_directories(home);
    ::setenv("HOME", home.c_str(), 1);
    ::setenv("L", std::string(600, 'l').c_str(), 1);
    qzerr_level(-1, QZERR_OFF);
}

} // namespace qz::fuzz

#endif
