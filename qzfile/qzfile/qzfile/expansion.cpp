#include "qzfile.h"
#include "qzfile/qzfile/qzfile/c_text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace qz::file {

namespace {

/// The longest text that is expanded in place.
constexpr std::size_t kLongestInPlace = 1024;

struct ComputedDirectory {
    std::string_view name;
    int (*find)(char **out);
};

constexpr ComputedDirectory kComputedDirectories[] = {
    {"USERDATA", qzfile_halcyra_userdata_dir},
    {"APPDATA", qzfile_halcyra_appdata_dir},
    {"LOCAL_APPDATA", qzfile_halcyra_local_appdata_dir},
};

bool is_name_character(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

std::string_view leading_name(std::string_view text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), is_name_character);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

/// Collects an expansion of any length.
class GrowingText {
public:
    bool append(std::string_view piece)
    {
        text_.append(piece);
        return true;
    }

    const std::string &text() const { return text_; }

private:
    std::string text_;
};

/// Collects an expansion in a caller's buffer of size + 1 bytes and takes what fits.
class BoundedText {
public:
    BoundedText(char *buffer, std::size_t size) : buffer_(buffer), size_(size) {}

    bool append(std::string_view piece)
    {
        const std::size_t taken = std::min(piece.size(), size_ - length_);
        std::memcpy(buffer_ + length_, piece.data(), taken);
        length_ += taken;
        return taken == piece.size();
    }

    void end() { buffer_[length_] = '\0'; }

private:
    char *buffer_;
    std::size_t size_;
    std::size_t length_ = 0;
};

/// Expands one text, piece by piece, into a collector whose append says whether there was room.
template <typename Collector> class Expander {
public:
    explicit Expander(Collector &out) : out_(out) {}

    /// @return -1 when the collector is full, else the status of the last directory looked up.
    int expand(std::string_view text)
    {
        if (!text.empty() && text[0] == '~' && !take_home(text))
            return -1;
        while (!text.empty()) {
            const std::size_t dollar = std::min(text.find('$'), text.size());
            if (!out_.append(text.substr(0, dollar)))
                return -1;
            text.remove_prefix(dollar);
            if (!text.empty() && !take_variable(text))
                return -1;
        }
        return status_;
    }

private:
    bool take_home(std::string_view &text)
    {
        const std::string_view user = text.substr(1, text.find_first_of("/\\") - 1);
        text.remove_prefix(1 + user.size());
        char *home = nullptr;
        status_ = user.empty() ? qzfile_dir_home(&home)
                               : qzfile_dir_user_home(std::string(user).c_str(), &home);
        return append_found(home);
    }

    bool take_variable(std::string_view &text)
    {
        const std::string_view name = leading_name(text.substr(1));
        text.remove_prefix(1 + name.size());
        if (name.empty())
            return out_.append("$");
        for (const ComputedDirectory &directory : kComputedDirectories) {
            if (directory.name == name) {
                char *found = nullptr;
                status_ = directory.find(&found);
                return append_found(found);
            }
        }
        // A variable that is not set stands for nothing, which is no failure.
        return out_.append(or_empty(std::getenv(std::string(name).c_str())));
    }

    bool append_found(char *directory)
    {
        const CText owned(directory);
        return out_.append(or_empty(directory));
    }

    Collector &out_;
    int status_ = 0;
};

} // namespace

} // namespace qz::file

int qzfile_dir_expand(const char *text, char **out)
{
    return qz::file::handing_out(out, [&] {
        if (!text)
            return -1;
        qz::file::GrowingText expansion;
        const int status = qz::file::Expander(expansion).expand(text);
        return qz::file::hand_out(expansion.text(), out) == 0 ? status : -1;
    });
}

int qzfile_dir_expand_buffer(char *buf, int size)
{
    if (!buf || !*buf || size < 1)
        return -1;
    char text[qz::file::kLongestInPlace];
    const std::size_t length = ::strnlen(buf, sizeof text + 1);
    if (length > sizeof text)
        return -1;
    std::memcpy(text, buf, length);
    return qz::file::guarded(-1, [&] {
        qz::file::BoundedText expansion(buf, static_cast<std::size_t>(size));
        const int status = qz::file::Expander(expansion).expand({text, length});
        expansion.end();
        return status;
    });
}
