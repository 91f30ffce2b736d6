#include "qz/output.h"

#include "platform/standard_streams.h"
#include "qz/command.h"

#include <QDir>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qz::cli {

void print(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void print_line(std::string_view line)
{
    print(line);
    print("\n");
}

void print_json(const QJsonObject &object)
{
    print(QJsonDocument(object).toJson().toStdString());
}

void print_json(const QJsonArray &array)
{
    print(QJsonDocument(array).toJson().toStdString());
}

void complain(std::string_view text)
{
    std::fprintf(stderr, "qz: %s\n", printable(text).c_str());
}

int finish_output(int code)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return code;
    complain("cannot write the answer: " + std::string(std::strerror(errno)));
    return kExitOutputLost;
}

Style Style::of_stdout()
{
    const char *const refused = std::getenv("NO_COLOR");
    Style style;
    style.colours_ = !(refused && *refused) && qz::platform::shows_colours(stdout);
    return style;
}

std::string Style::as(Look look, std::string_view text) const
{
    switch (look) {
    case Look::Strong:
        return strong(text);
    case Look::Faint:
        return faint(text);
    case Look::Good:
        return good(text);
    case Look::Bad:
        return bad(text);
    case Look::Odd:
        return odd(text);
    case Look::Plain:
        break;
    }
    return std::string(text);
}

std::string Style::wrap(const char *code, std::string_view text) const
{
    if (!colours_ || text.find_first_not_of(' ') == std::string_view::npos)
        return std::string(text);
    return "\x1b[" + std::string(code) + 'm' + std::string(text) + "\x1b[0m";
}

namespace {

// The widest that a ragged column gets for all lines.
constexpr std::size_t kRaggedWidth = 40;

/// How many columns of a terminal @p text takes: one a character, none for a combining mark.
std::size_t columns_of(std::string_view text)
{
    std::size_t columns = 0;
    for (const char32_t c : json_text(text).toUcs4())
        columns += QChar::category(c) != QChar::Mark_NonSpacing;
    return columns;
}

} // namespace

Table::Table(const std::vector<std::string> &headings)
{
    std::vector<Cell> row;
    for (const std::string &heading : headings)
        row.emplace_back(heading, Look::Strong);
    rows_.push_back(std::move(row));
}

void Table::print(int indent) const
{
    std::vector<std::size_t> widths;
    for (const std::vector<Cell> &row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::size_t columns = columns_of(printable(row[i].text));
            if (i != ragged_ || columns <= kRaggedWidth)
                widths[i] = std::max(widths[i], columns);
        }
    }
    const Style style = Style::of_stdout();
    for (const std::vector<Cell> &row : rows_) {
        std::string line(static_cast<std::size_t>(indent), ' ');
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string text = printable(row[i].text);
            const std::size_t columns = columns_of(text);
            line += style.as(row[i].look, text);
            if (i + 1 < row.size())
                line.append(2 + (columns < widths[i] ? widths[i] - columns : 0), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        print_line(line);
    }
}

std::string printable(std::string_view text)
{
    static const char kHex[] = "0123456789abcdef";
    std::string shown;
    shown.reserve(text.size());
    const auto escape = [&shown](unsigned char byte) {
        shown += {'\\', 'x', kHex[byte >> 4], kHex[byte & 15]};
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        if (byte == '\n')
            shown += "\\n";
        else if (byte == '\r')
            shown += "\\r";
        else if (byte == '\t')
            shown += "\\t";
        else if (byte < 0x20 || byte == 0x7F)
            escape(byte);
        else if (byte == 0xC2 && next >= 0x80 && next < 0xA0)
            escape(static_cast<unsigned char>(text[++i])); // U+0080 to U+009F steer terminals too
        else
            shown += text[i];
    }
    return shown;
}

QString json_text(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string native(std::string path)
{
    const char separator = static_cast<char>(QDir::separator().unicode());
    if (separator == '/' && path.size() > 1 && path[1] == ':')
        return path; // a drive, which this system does not know
    std::replace_if(
        path.begin(), path.end(), [](char c) { return c == '/' || c == '\\'; }, separator);
    return path;
}

} // namespace qz::cli
