// A program that lists data files with their digests, and remembers which kind was asked for last.
//
// usage: data_files DIRECTORY [SUFFIX]
#include <qzerr.hpp>
#include <qzfile.hpp>
#include <qzpref.hpp>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// The suffix to list: the one given, else that of the last time, else ".dat".
std::string choose_suffix(halcyra::Preferences &preferences, const char *given)
{
    std::string suffix = ".dat";
    if (given != nullptr)
        suffix = given;
    else if (preferences.hasKey("data_files/suffix"))
        suffix = preferences.get<std::string>("data_files/suffix");
    preferences.set<std::string>("data_files/suffix", suffix);
    return suffix;
}

/// The digest in hexadecimal, or why there is none.
std::string digest(const std::string &path)
{
    halcyra::qzlibs::CaptureQZErr messages(-1); // they become part of our own text
    unsigned char bytes[16];
    if (qzfile_md5_file(bytes, path.c_str()) != 0)
        return messages.addMessagesAsDetails("no digest");
    std::string text;
    for (const unsigned char byte : bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(byte));
        text += digits;
    }
    return text;
}

void list(const std::string &directory, const std::string &suffix)
{
    auto files = halcyra::path::get_all_files_with_suffix(directory, suffix);
    std::sort(files.begin(), files.end());
    for (const auto &file : files)
        std::cout << digest(file.string()) << "  " << file.filename().string() << '\n';
    std::cout << files.size() << " files end in " << suffix << '\n';
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 3) {
        std::cerr << "usage: " << argv[0] << " DIRECTORY [SUFFIX]\n";
        return 2;
    }
    try {
        halcyra::Preferences preferences(QZPREF_ATELIO);
        list(argv[1], choose_suffix(preferences, argv[2]));
    } catch (const std::runtime_error &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
