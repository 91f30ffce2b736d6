// The number grammar and its values against the standard conversions.

#include "fuzz/require.h"
#include "qztoken.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

using qz::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char *>(data), size);
    int handle = -1;
    qztoken_new(&handle, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    qztoken_add(handle, text.c_str());
    int integer = 1;
    double real = 1.0;
    const int type = qztoken_find_type(handle, 0);
    require(type == qz_number_type(text.c_str()));
    require(qztoken_get_int(handle, 0, &integer) == (type == 1 ? 0 : -1));
    require(qztoken_get_double(handle, 0, &real) == (type != 0 ? 0 : -1));
    require(integer == (type == 1 ? std::atoi(text.c_str()) : 0));
    const double expected = type != 0 ? std::atof(text.c_str()) : 0.0;
    require(std::memcmp(&real, &expected, sizeof real) == 0 ||
            (real != real && expected != expected));

    // What is no number is nothing that the standard conversion would take as a whole: only a
    // blank, a plus, a hexadecimal form or a value out of range is.
    char *end = nullptr;
    errno = 0;
    std::strtod(text.c_str(), &end);
    if (type == 0 && end != text.c_str() && *end == '\0')
        require(errno == ERANGE || std::strpbrk(text.c_str(), " \t\n\v\f\r+xX") != nullptr);
    qztoken_delete(handle);
    return 0;
}
