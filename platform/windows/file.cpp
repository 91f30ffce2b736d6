#include "platform/file.h"

#include "platform/native_path.h"

namespace qz::platform {

std::FILE *qzwin32_fopen(std::string_view path, const char *mode)
{
    return std::fopen(native_path(path).c_str(), mode);
}

} // namespace qz::platform
