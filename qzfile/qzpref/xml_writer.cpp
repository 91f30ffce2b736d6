#include "qzfile/qzpref/xml_writer.h"

#include <algorithm>

namespace qz::pref {

namespace {

constexpr std::size_t kIndent = 4;

/// What stands for @p c in the file; empty when it stands for itself.
std::string_view escaped(char c, bool in_attribute)
{
    switch (c) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    case '"':
        return "&quot;";
    case '\r': // a reader makes a line feed of a bare one
        return "&#13;";
    case '\n':
        return in_attribute ? "&#10;" : "";
    case '\t':
        return in_attribute ? "&#9;" : "";
    default:
        return "";
    }
}

void append_escaped(std::string &text, std::string_view value, bool in_attribute)
{
    for (const char c : value) {
        const std::string_view replacement = escaped(c, in_attribute);
        if (replacement.empty())
            text += c;
        else
            text += replacement;
    }
}

std::vector<std::string_view> components_of(std::string_view key)
{
    std::vector<std::string_view> components;
    for (;;) {
        const std::size_t slash = key.find('/');
        components.push_back(key.substr(0, slash));
        if (slash == std::string_view::npos)
            return components;
        key.remove_prefix(slash + 1);
    }
}

} // namespace

PreferenceWriter::PreferenceWriter(std::string &text) : text_(text)
{
    text_ += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ApplicationSettings";
}

void PreferenceWriter::start_line()
{
    text_ += '\n';
    text_.append(kIndent * (open_.size() + 1), ' ');
}

/// XML 1.0 knows no "--" inside a comment and none that ends in '-': a blank keeps them apart.
void PreferenceWriter::write_comment(std::string_view comment)
{
    start_line();
    text_ += "<!--";
    for (const char c : comment) {
        if (c == '-' && text_.back() == '-')
            text_ += ' ';
        text_ += c;
    }
    text_ += text_.back() == '-' ? " -->" : "-->";
}

void PreferenceWriter::write_attribute(std::string_view name, std::string_view value)
{
    text_.append(" ").append(name).append("=\"");
    append_escaped(text_, value, true);
    text_ += '"';
}

void PreferenceWriter::leave(std::size_t levels)
{
    for (; levels > 0; --levels) {
        const std::string name = std::move(open_.back());
        open_.pop_back();
        // A value stands on one line with its tags, a group's end on a line of its own.
        if (holds_value_)
            holds_value_ = false;
        else
            start_line();
        text_.append("</").append(name).append(">");
    }
}

void PreferenceWriter::write(std::string_view key, const KeyRecord &record)
{
    const std::size_t colon = key.find(':');
    const std::vector<std::string_view> components = components_of(key.substr(0, colon));
    // The last element of a key holds its value, so neither the previous key's nor this key's can
    // be a group that the two share.
    const std::size_t groups =
        std::min(open_.empty() ? 0 : open_.size() - 1, components.size() - 1);
    if (!any_key_)
        text_ += '>';
    any_key_ = true;
    std::size_t shared = 0;
    while (shared < groups && open_[shared] == components[shared])
        ++shared;
    leave(open_.size() - shared);

    for (std::size_t i = shared; i < components.size(); ++i) {
        const bool last = i + 1 == components.size();
        if (last && !record.comment().empty())
            write_comment(record.comment());
        start_line();
        text_.append("<").append(components[i]);
        if (!last)
            text_ += '>';
        open_.emplace_back(components[i]);
    }
    record.for_each_attribute(
        [this](std::string_view name, std::string_view value) { write_attribute(name, value); });
    const std::string_view suffix = colon == std::string_view::npos ? "" : key.substr(colon + 1);
    if (const std::size_t equals = suffix.find('='); equals != std::string_view::npos)
        write_attribute(suffix.substr(0, equals), suffix.substr(equals + 1));
    text_ += '>';
    append_escaped(text_, record.value(), false);
    holds_value_ = true;
}

void PreferenceWriter::finish()
{
    leave(open_.size());
    text_ += any_key_ ? "\n</ApplicationSettings>\n" : "/>\n";
}

} // namespace qz::pref
