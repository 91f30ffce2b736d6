#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"
#include "qzfile/qzfile/qzfile/path_text.h"

#include <string>
#include <string_view>

using namespace qz::file;

namespace {

std::string joined(std::string_view directory, std::string_view component)
{
    if (directory.empty() || component.empty())
        return std::string(directory.empty() ? component : directory);
    const bool directory_ends = directory.back() == kSeparator;
    if (component.front() == kSeparator && directory_ends)
        component.remove_prefix(1);
    std::string path(directory);
    if (component.empty() || component.front() != kSeparator) {
        if (!directory_ends)
            path += kSeparator;
    }
    return path.append(component);
}

/// The directory before the separator at @p end: without the separators that close it, but for the
/// one that is all there is of a root.
std::string_view directory_before(std::string_view path, std::size_t end)
{
    const std::size_t last = path.substr(0, end).find_last_not_of(kSeparator);
    return path.substr(0, last == std::string_view::npos ? 1 : last + 1);
}

} // namespace

char *qzfile_add_component(const char *dir, const char *component)
{
    return guarded(static_cast<char *>(nullptr), [&]() -> char * {
        const std::string path = joined(or_empty(dir), or_empty(component));
        return path.empty() ? nullptr : new_c_text(path);
    });
}

char *qzfile_remove_component(const char *path)
{
    const std::string_view text = or_empty(path);
    if (text.empty())
        return nullptr;
    const std::size_t end = text.rfind(kSeparator);
    return new_c_text(text.substr(0, end == std::string_view::npos ? 0 : end));
}

char *qzfile_get_last_component(const char *path)
{
    const std::string_view text = or_empty(path);
    if (text.empty())
        return nullptr;
    // Without a separator rfind gives npos, whose successor is 0: the whole text.
    return new_c_text(text.substr(text.rfind(kSeparator) + 1));
}

int qzfile_parse_path(const char *path, char **dir, char **base)
{
    if (!dir || !base)
        return -1;
    *dir = nullptr;
    *base = nullptr;
    std::string_view text = or_empty(path);
    if (text.empty())
        return 0;
    text = text.substr(0, text.find('\n'));
    const std::size_t end = text.rfind(kSeparator);
    if (end == std::string_view::npos)
        return hand_out(text, base);
    if (hand_out(directory_before(text, end), dir) != 0)
        return -1;
    return end + 1 == text.size() ? 0 : hand_out(text.substr(end + 1), base);
}

void qzfile_free_component_string(char *s)
{
    std::free(s);
}
