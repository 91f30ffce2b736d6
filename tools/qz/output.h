#ifndef QZ_TOOLS_OUTPUT_H
#define QZ_TOOLS_OUTPUT_H

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace qz::cli {

// Standard output takes the answer and nothing else. What went wrong and what is worth knowing goes
// to standard error.

void print(std::string_view text);
void print_line(std::string_view line);
void print_json(const QJsonObject &object);
void print_json(const QJsonArray &array);

/// "qz: " and @p text on standard error.
void complain(std::string_view text);

/// @return @p code, or kExitOutputLost when the answer did not reach standard output.
int finish_output(int code);

/// How a text looks.
enum class Look { Plain, Strong, Faint, Good, Bad, Odd };

/// Colours for one stream: none unless it is a terminal that can show them, nor with NO_COLOR.
class Style {
public:
    static Style of_stdout();

    std::string strong(std::string_view text) const { return wrap("1", text); }

    std::string faint(std::string_view text) const { return wrap("2", text); }

    std::string good(std::string_view text) const { return wrap("32", text); }

    std::string bad(std::string_view text) const { return wrap("31", text); }

    std::string odd(std::string_view text) const { return wrap("33", text); }

    std::string as(Look look, std::string_view text) const;

private:
    std::string wrap(const char *code, std::string_view text) const;

    bool colours_ = false;
};

/// One cell of a table: plain text, and how it looks.
struct Cell {
    Cell(std::string plain) : text(std::move(plain)) {}

    Cell(const char *plain) : text(plain) {}

    Cell(std::string plain, Look how) : text(std::move(plain)), look(how) {}

    std::string text;
    Look look = Look::Plain;
};

/// Lines in columns. Control characters are shown escaped, so that no value moves the cursor.
class Table {
public:
    Table() = default;
    /// @param headings  The first line.
    explicit Table(const std::vector<std::string> &headings);

    void add(std::vector<Cell> row) { rows_.push_back(std::move(row)); }

    /// Lets long cells of @p column make their own lines longer, and no others.
    void set_ragged(std::size_t column) { ragged_ = column; }

    /// Prints every row behind @p indent blanks.
    void print(int indent = 0) const;

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    std::vector<std::vector<Cell>> rows_;
    std::size_t ragged_ = kNone;
};

/// @p text with its control characters as "\n", "\t" or "\x1b".
std::string printable(std::string_view text);

/// Text of the library for JSON; bytes that are no UTF-8 become U+FFFD.
QString json_text(std::string_view text);

/// A path of the library as this system's other programs take it.
std::string native(std::string path);

} // namespace qz::cli

#endif
