#include "qzfile/qzpref/plain_reader.h"

#include "qzfile/qzpref/key_validation.h"

#include <QString>

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace qz::pref {

namespace {

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr std::string_view kRootElement = "ApplicationSettings";
// Deeper nesting may make keys out of proportion to the text; the complete parser keeps count.
constexpr std::size_t kMostLevels = 64;

enum CharacterClass : unsigned char {
    NameStart = 1,
    NamePart = 2,
    Blank = 4,
    PlainText = 8, ///< needs no second look inside text or an attribute
};

constexpr std::array<unsigned char, 256> make_classes()
{
    std::array<unsigned char, 256> classes{};
    for (int c = 0x20; c < 0x80; ++c)
        classes[static_cast<std::size_t>(c)] = PlainText;
    for (const char special : {'<', '>', '&', '"', ']'})
        classes[static_cast<unsigned char>(special)] = 0;
    for (const char blank : {' ', '\t', '\n'})
        classes[static_cast<unsigned char>(blank)] |= Blank;
    for (int c = 'a'; c <= 'z'; ++c) {
        classes[static_cast<std::size_t>(c)] |= NameStart | NamePart;
        classes[static_cast<std::size_t>(c - 'a' + 'A')] |= NameStart | NamePart;
    }
    for (int c = '0'; c <= '9'; ++c)
        classes[static_cast<std::size_t>(c)] |= NamePart;
    classes['_'] |= NameStart | NamePart;
    classes['-'] |= NamePart;
    classes['.'] |= NamePart;
    return classes;
}

constexpr std::array<unsigned char, 256> kClasses = make_classes();

bool is(char c, CharacterClass wanted)
{
    return kClasses[static_cast<unsigned char>(c)] & wanted;
}

/// Walks over the text once. Every step returns false at what it is not sure of.
class PlainReader {
public:
    PlainReader(std::string_view text, Document &document)
        : at_(text.data()), end_(text.data() + text.size()), document_(document)
    {}

    bool run()
    {
        if (take(kDeclaration))
            skip_blanks();
        if (!take("<") || !take(kRootElement))
            return false;
        skip_blanks();
        if (take("/>"))
            return at_text_end();
        if (!take(">"))
            return false;
        while (!root_closed_) {
            if (!next_item())
                return false;
        }
        return at_text_end();
    }

private:
    bool take(std::string_view expected)
    {
        if (static_cast<std::size_t>(end_ - at_) < expected.size() ||
            std::memcmp(at_, expected.data(), expected.size()) != 0)
            return false;
        at_ += expected.size();
        return true;
    }

    bool next_is(std::string_view expected) const
    {
        return std::string_view(at_, static_cast<std::size_t>(end_ - at_))
                   .substr(0, expected.size()) == expected;
    }

    void skip_blanks()
    {
        while (at_ != end_ && is(*at_, Blank))
            ++at_;
    }

    bool at_text_end()
    {
        skip_blanks();
        return at_ == end_;
    }

    std::string_view take_name()
    {
        const char *start = at_;
        if (at_ != end_ && is(*at_, NameStart)) {
            while (at_ != end_ && is(*at_, NamePart))
                ++at_;
        }
        return {start, static_cast<std::size_t>(at_ - start)};
    }

    bool next_item()
    {
        skip_blanks_or_text_start();
        if (at_ == end_)
            return false;
        if (*at_ != '<')
            return text();
        ++at_;
        if (take("/"))
            return end_element();
        return take("!--") ? comment() : start_element();
    }

    /// Blanks alone between two tags are no text; blanks before text belong to it.
    void skip_blanks_or_text_start()
    {
        const char *start = at_;
        skip_blanks();
        if (at_ != end_ && *at_ != '<')
            at_ = start;
    }

    bool comment()
    {
        const char *start = at_;
        for (; end_ - at_ >= 3; ++at_) {
            if (at_[0] == '-' && at_[1] == '-') {
                pending_comment_.assign(start, at_);
                at_ += 2;
                return take(">") && is_xml_text(pending_comment_) &&
                       pending_comment_.find('\r') == std::string::npos;
            }
        }
        return false;
    }

    bool start_element()
    {
        record_ = KeyRecord();
        const std::string_view name = take_name();
        if (name.empty() || name == kRootElement || starts_.size() == kMostLevels)
            return false;
        starts_.push_back(key_.size());
        if (starts_.size() > 1)
            key_ += '/';
        key_ += name;
        attributes_.clear();
        for (;;) {
            const char *before = at_;
            skip_blanks();
            if (take(">"))
                break;
            if (take("/>")) {
                take_comment();
                leave();
                return true;
            }
            if (at_ == before || !attribute())
                return false;
        }
        take_comment();
        return true;
    }

    void take_comment()
    {
        if (!pending_comment_.empty())
            record_.set_comment(std::move(pending_comment_));
        pending_comment_.clear();
    }

    bool attribute()
    {
        const std::string_view name = take_name();
        // Two of one name are an error, and a declaration of name spaces changes what names mean.
        if (name.empty() || name == "xmlns" || !take("=\""))
            return false;
        for (const std::string_view known : attributes_) {
            if (known == name)
                return false;
        }
        attributes_.push_back(name);
        value_.clear();
        if (!characters('"') || !take("\""))
            return false;
        if (name == "os")
            key_.append(":os=").append(value_);
        else
            record_.set_attribute(name, value_);
        return true;
    }

    bool end_element()
    {
        const std::string_view name = take_name();
        skip_blanks();
        if (!take(">"))
            return false;
        if (starts_.empty()) {
            root_closed_ = name == kRootElement;
            return root_closed_;
        }
        const std::size_t start = starts_.back() + (starts_.size() > 1 ? 1 : 0);
        const std::string_view entry = std::string_view(key_).substr(start);
        if (entry.substr(0, entry.find(':')) != name)
            return false;
        leave();
        return true;
    }

    void leave()
    {
        key_.resize(starts_.back());
        starts_.pop_back();
    }

    bool text()
    {
        value_.clear();
        if (starts_.empty() || !characters('<') || is_blank(value_))
            return false;
        record_.set_value(value_);
        document_.set(key_, record_);
        return true;
    }

    /// A value of nothing but white space of other scripts is none either.
    static bool is_blank(const std::string &value)
    {
        bool ascii = true;
        for (const char c : value) {
            if (is(c, PlainText) && c != ' ')
                return false;
            ascii = ascii && static_cast<unsigned char>(c) < 0x80;
        }
        return ascii || QString::fromStdString(value).trimmed().isEmpty();
    }

    /// Appends the characters up to @p stop to value_.
    bool characters(char stop)
    {
        bool ascii = true;
        for (;;) {
            const char *run = at_;
            while (at_ != end_ && is(*at_, PlainText))
                ++at_;
            value_.append(run, at_);
            if (at_ == end_)
                return false;
            const char c = *at_;
            if (c == stop)
                return ascii || is_xml_text(value_);
            if (c == '&') {
                if (!entity())
                    return false;
                continue;
            }
            // Line ends and tabs are text between tags, but blanks to an attribute's reader.
            const bool in_text = stop == '<';
            if (static_cast<unsigned char>(c) >= 0x80)
                ascii = false;
            else if (c == ']' ? in_text && next_is("]]>")
                              : !(in_text && (c == '\n' || c == '\t' || c == '"')))
                return false;
            value_ += c;
            ++at_;
        }
    }

    bool entity()
    {
        constexpr std::pair<std::string_view, char> kEntities[] = {
            {"&lt;", '<'},    {"&gt;", '>'},  {"&amp;", '&'},  {"&quot;", '"'},
            {"&apos;", '\''}, {"&#9;", '\t'}, {"&#10;", '\n'}, {"&#13;", '\r'}};
        for (const auto &[name, character] : kEntities) {
            if (take(name)) {
                value_ += character;
                return true;
            }
        }
        return false;
    }

    const char *at_;
    const char *const end_;
    Document &document_;
    std::string key_;                          // entries of all open elements, joined with '/'
    std::vector<std::size_t> starts_;          // where each open element's entry begins in key_
    std::vector<std::string_view> attributes_; // names seen on the current element
    std::string value_;
    std::string pending_comment_;
    KeyRecord record_;
    bool root_closed_ = false;
};

} // namespace

bool read_plain(std::string_view text, Document &document)
{
    return PlainReader(text, document).run();
}

} // namespace qz::pref
