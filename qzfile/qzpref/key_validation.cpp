#include "qzfile/qzpref/key_validation.h"

#include "qzerr.h"

#include <libxml/tree.h>

namespace qz::pref {

namespace {

/// The code point at the start of @p utf8, which loses its bytes; 0 when they are not UTF-8.
char32_t take_code_point(std::string_view &utf8)
{
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || utf8.size() < length)
        return 0;
    char32_t code = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0) != 0x80)
            return 0;
        code = (code << 6) | (next & 0x3F);
    }
    utf8.remove_prefix(length);
    return code;
}

// The production Char of XML 1.0.
bool is_xml_character(char32_t c)
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c <= 0xD7FF) ||
           (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

} // namespace

bool is_key_component(const std::string &component)
{
    // Inside the root its name is passed over when a file is read.
    if (component == "ApplicationSettings")
        return false;
    // The validator reads on past bytes that are no UTF-8, and up to the first NUL only.
    if (component.find(':') != std::string::npos || !is_xml_text(component))
        return false;
    return xmlValidateName(reinterpret_cast<const xmlChar *>(component.c_str()), 0) == 0;
}

QZpref_Err validate_key(std::string_view key)
{
    for (;;) {
        const std::size_t slash = key.find('/');
        const std::string component(key.substr(0, slash));
        if (!is_key_component(component)) {
            qzerr_throw(-1, QZERR_WARNING,
                        "%s: Invalid character in the qzpref key '%s'. Please see the naming rules "
                        "of XML elements at https://www.w3.org/TR/xml/#NT-Name.\n",
                        "validate_key", component.c_str());
            return QZPREF_INVALID_KEY;
        }
        if (slash == std::string_view::npos)
            return QZPREF_SUCCESS_;
        key.remove_prefix(slash + 1);
    }
}

bool is_xml_text(std::string_view utf8)
{
    while (!utf8.empty()) {
        if (!is_xml_character(take_code_point(utf8)))
            return false;
    }
    return true;
}

void append_normalized_key(std::string &text, std::string_view key)
{
    // Nearly every key is normal already, and this stands before every lookup.
    const bool is_normal = key.empty() || (key.front() != '/' && key.back() != '/' &&
                                           key.find("//") == std::string_view::npos);
    if (is_normal) {
        text += key;
        return;
    }
    const std::size_t start = text.size();
    for (const char c : key) {
        if (c != '/' || (text.size() > start && text.back() != '/'))
            text += c;
    }
    if (text.size() > start && text.back() == '/')
        text.pop_back();
}

std::string normalized_key(std::string_view key)
{
    std::string normalized;
    append_normalized_key(normalized, key);
    return normalized;
}

} // namespace qz::pref
