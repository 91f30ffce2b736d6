#include "qzfile.hpp"
#include "qzfile/qzfile/qzfile/c_text.h"

#include <list>
#include <string>

namespace {

constexpr char kCurrentRelease[] = "2025-3";

void append_year(std::list<std::string> &names, int year, int newest)
{
    for (int number = newest; number >= 1; --number)
        names.push_back(std::to_string(year) + '-' + std::to_string(number));
}

/// Every release to this one, newest first.
std::list<std::string> make_release_names()
{
    std::list<std::string> names;
    append_year(names, 2025, 3);
    for (int year = 2024; year >= 2014; --year)
        append_year(names, year, 4);
    append_year(names, 2013, 3);
    names.emplace_back("2013"); // The first release had no number.
    return names;
}

} // namespace

const std::string &halcyra::release_name()
{
    static const std::string name = kCurrentRelease;
    return name;
}

int qzfile_get_release_name(char **name)
{
    if (name)
        *name = qz::file::new_c_text(kCurrentRelease);
    return 0;
}

const std::list<std::string> &qzfile_get_past_release_names()
{
    static const std::list<std::string> names = make_release_names();
    return names;
}
