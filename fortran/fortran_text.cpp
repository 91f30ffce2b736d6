#include "fortran/fortran_text.h"

#include <algorithm>
#include <cstring>

namespace qz::fortran {

namespace {

std::size_t length_of(int declared_length)
{
    return static_cast<std::size_t>(std::max(declared_length, 0));
}

} // namespace

std::string_view trimmed(const char *variable, int declared_length)
{
    std::string_view text(variable, length_of(declared_length));
    text = text.substr(0, text.find('\0'));
    return text.substr(0, text.find_last_not_of(' ') + 1); // nothing but blanks: npos + 1 is 0
}

OwnedText copy_trimmed(const char *variable, int declared_length)
{
    const std::string_view text = trimmed(variable, declared_length);
    OwnedText copy(static_cast<char *>(std::malloc(text.size() + 1)));
    if (copy) {
        std::memcpy(copy.get(), text.data(), text.size());
        copy.get()[text.size()] = '\0';
    }
    return copy;
}

bool store(std::string_view text, char *variable, int declared_length)
{
    const std::size_t room = length_of(declared_length);
    const std::size_t stored = std::min(text.size(), room);
    std::memcpy(variable, text.data(), stored);
    std::memset(variable + stored, ' ', room - stored);
    return stored == text.size();
}

} // namespace qz::fortran
