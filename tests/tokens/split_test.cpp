#include "tokens/slow_splitter.h"
#include "tokens/token_test.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

struct SplitCase {
    Sets sets;
    const char *why;
    const char *text;
    const char *tokens;
};

// separators, pairs, comments, escapes, singles
constexpr Sets kDefaults{};
constexpr Sets kQuotes{nullptr, "''"};
constexpr Sets kParentheses{nullptr, "()"};
constexpr Sets kAllPairs{nullptr, "''\"\"()"};
constexpr Sets kComment{nullptr, nullptr, "#"};
constexpr Sets kEscape{nullptr, nullptr, nullptr, "\\"};
constexpr Sets kAll{nullptr, "''", "#", "\\", "="};
constexpr Sets kSingle{nullptr, nullptr, nullptr, nullptr, "="};

// clang-format off
const SplitCase kSplitCases[] = {
    {kDefaults, "one word", "abc", "[abc]"},
    {kDefaults, "one character", "x", "[x]"},
    {kDefaults, "a blank separates", "a b", "[a][b]"},
    {kDefaults, "a comma separates", "a,b", "[a][b]"},
    {kDefaults, "a tab separates", "a\tb", "[a][b]"},
    {kDefaults, "a run of separators is one", "a, b,,c", "[a][b][c]"},
    {kDefaults, "a run may mix all of them", "a \t,, \tb", "[a][b]"},
    {kDefaults, "a leading run makes no token", " ,\ta", "[a]"},
    {kDefaults, "a trailing run makes no token", "a ,\t", "[a]"},
    {kDefaults, "runs on both sides", "  a  ", "[a]"},
    {kDefaults, "nothing but a separator", " ", ""},
    {kDefaults, "nothing but separators", " ,\t, ", ""},
    {kDefaults, "a line end is an ordinary character", "a\nb c\n", "[a\nb][c\n]"},
    {kDefaults, "other white space is ordinary", "a\vb\fc\rd", "[a\vb\fc\rd]"},
    {kDefaults, "quotes are ordinary without pairs", "'a b' \"c\"", "['a][b'][\"c\"]"},
    {kDefaults, "a hash is ordinary without comments", "a #b", "[a][#b]"},
    {kDefaults, "a backslash is ordinary without escapes", "a\\ b\\", "[a\\][b\\]"},
    {kDefaults, "an equals sign is ordinary without singles", "x=1", "[x=1]"},
    {kDefaults, "a semicolon is no default separator", "a;b", "[a;b]"},
    {kDefaults, "bytes above 127 are ordinary", "\351t\351 \200", "[\351t\351][\200]"},
    {kDefaults, "byte 255 does not end the line", "a\377b \377", "[a\377b][\377]"},
    {kDefaults, "a no-break space is two ordinary bytes", "a\302\240b", "[a\302\240b]"},
    {kDefaults, "control bytes are ordinary", "\001\037 \177", "[\001\037][\177]"},
    {{""}, "the empty set separates nothing", "a b,c\td", "[a b,c\td]"},
    {{""}, "blanks at the ends stay too", " a ", "[ a ]"},
    {{":;"}, "own separators", "a:b;c", "[a][b][c]"},
    {{":;"}, "they replace the default ones", "a b,c:d", "[a b,c][d]"},
    {{":;"}, "runs of both", ":;:a;:;b:", "[a][b]"},
    {{"\351\377"}, "separators above 127", "a\351b\377c", "[a][b][c]"},
    {{"\351\377"}, "a run of them", "\377\351a\351\377", "[a]"},
    {{"\351\377"}, "their neighbours are ordinary", "\350\376", "[\350\376]"},
    {kQuotes, "a quoted text keeps its blank", "'x y' z", "[x y][z]"},
    {kQuotes, "two quotes are an empty token", "''", "[]"},
    {kQuotes, "two empty tokens apart", "'' ''", "[][]"},
    {kQuotes, "two empty tokens side by side", "''''", "[][]"},
    {kQuotes, "an empty token between words", "a '' b", "[a][][b]"},
    {kQuotes, "a quoted separator alone", "' '", "[ ]"},
    {kQuotes, "quoted separators of all kinds", "' ,\t'", "[ ,\t]"},
    {kQuotes, "the closing quote ends the token", "'a'b", "[a][b]"},
    {kQuotes, "what stands before the quote stays in the token", "a'b c'", "[ab c]"},
    {kQuotes, "before and behind", "a'b'c", "[ab][c]"},
    {kQuotes, "an empty pair behind a word ends it", "a''b", "[a][b]"},
    {kQuotes, "quotes side by side are two tokens", "'a''b'", "[a][b]"},
    {kQuotes, "separators behind the quote make no token", "'a' ,, b", "[a][b]"},
    {kQuotes, "separators behind the last quote", "'a' , ", "[a]"},
    {kQuotes, "separators before the first quote", " ,'a'", "[a]"},
    {kQuotes, "the other kind of quote is ordinary", "'\"'", "[\"]"},
    {kQuotes, "quoted bytes above 127", "'\351 \377'", "[\351 \377]"},
    {kQuotes, "an unquoted word last", "'a b' c d", "[a b][c][d]"},
    {kQuotes, "a comma right behind the quote", "'a',b", "[a][b]"},
    {kQuotes, "an empty token behind a comma", "a,'',b", "[a][][b]"},
    {kQuotes, "an empty token at the end", "a ''", "[a][]"},
    {kParentheses, "opening and closing differ", "(a b)", "[a b]"},
    {kParentheses, "text around a pair", "ab(cd ef)gh", "[abcd ef][gh]"},
    {kParentheses, "pairs do not nest", "(a(b)c)", "[a(b][c)]"},
    {kParentheses, "a closing character alone is ordinary", "a)b ) c", "[a)b][)][c]"},
    {kParentheses, "an empty pair", "()", "[]"},
    {kParentheses, "several pairs", "(a)(b) (c)", "[a][b][c]"},
    {kParentheses, "an opening character inside is ordinary", "(()", "[(]"},
    {kParentheses, "a word with its argument", "f(x, y) g", "[fx, y][g]"},
    {kAllPairs, "each kind of pair", "'a b' \"c d\" (e f)", "[a b][c d][e f]"},
    {kAllPairs, "one kind protects the others", "'\"' \"'\" '(' (')", "[\"]['][(][']"},
    {kAllPairs, "mixed side by side", "'a'\"b\"(c)", "[a][b][c]"},
    {kAllPairs, "only the matching character closes", "(a' b)", "[a' b]"},
    {kAllPairs, "a word, then two kinds", "x'a'\"b\"", "[xa][b]"},
    {kAllPairs, "three empty tokens", "''\"\"()", "[][][]"},
    {{nullptr, "()(]"}, "of two pairs with one opening character the first counts",
     "(a])b", "[a]][b]"},
    {{nullptr, "<||>"}, "a closing character that opens another pair", "<a|b", "[a][b]"},
    {{nullptr, "<||>"}, "the other way round", "|a b>c", "[a b][c]"},
    {{nullptr, "<||>"}, "opened inside it is only the close", "<a|b|c>", "[a][bc]"},
    {{nullptr, "( "}, "a pair closed by a separator", "(a,b c", "[a,b][c]"},
    {{nullptr, "( "}, "it takes the rest of the run", "(a  , c", "[a][c]"},
    {{nullptr, "( "}, "empty at once", "( a", "[][a]"},
    {{nullptr, "\253\273"}, "a pair above 127", "\253a b\273c", "[a b][c]"},
    {kComment, "a comment ends the line", "a #b c", "[a]"},
    {kComment, "the token in progress is lost", "abc#x", ""},
    {kComment, "only that token", "a b#c", "[a]"},
    {kComment, "a line of comment", "#a b", ""},
    {kComment, "only the comment character", "#", ""},
    {kComment, "a comment behind blanks", "  # a", ""},
    {kComment, "a second comment character", "a # b # c", "[a]"},
    {kComment, "a comment at the end", "a b #", "[a][b]"},
    {kComment, "a line end does not end a comment", "a #b\nc", "[a]"},
    {{nullptr, nullptr, "#!\247"}, "any of several", "a !b #c", "[a]"},
    {{nullptr, nullptr, "#!\247"}, "one above 127", "a \247 b", "[a]"},
    {{nullptr, "''", "#"}, "a quoted comment character", "'a # b' c", "[a # b][c]"},
    {{nullptr, "''", "#"}, "a comment behind a quote", "'a'#b", "[a]"},
    {{nullptr, "''", "#"}, "a comment behind a quote and blanks", "'a' #b", "[a]"},
    {{nullptr, "''", "#"}, "a quote in a comment opens nothing", "a # it's", "[a]"},
    {{nullptr, "''", "#"}, "the word before a quoted text is not lost", "x'#'#", "[x#]"},
    {{nullptr, "''", "#"}, "an empty token before a comment", "''#", "[]"},
    {kEscape, "an escaped blank", "a\\ b", "[a b]"},
    {kEscape, "an escaped comma and tab", "a\\,b\\\tc", "[a,b\tc]"},
    {kEscape, "an escaped escape", "a\\\\b", "[a\\b]"},
    {kEscape, "an escaped escape escapes nothing", "a\\\\ b", "[a\\][b]"},
    {kEscape, "an escaped ordinary character", "\\n", "[n]"},
    {kEscape, "the escape is dropped in a word", "a\\bc", "[abc]"},
    {kEscape, "an escape at the end ends the token", "a b\\", "[a][b]"},
    {kEscape, "an escape at the end without a token", "a \\", "[a]"},
    {kEscape, "only an escape", "\\", ""},
    {kEscape, "only an escaped blank", "\\ ", "[ ]"},
    {kEscape, "an escaped blank joins words", "\\ \\ ", "[  ]"},
    {kEscape, "an escaped blank, then a separator", "\\  a", "[ ][a]"},
    {kEscape, "an escaped byte above 127", "\\\377", "[\377]"},
    {{nullptr, nullptr, nullptr, "\\^"}, "any of several escapes", "a^ b\\ c", "[a b c]"},
    {{nullptr, nullptr, nullptr, "\\^"}, "one escapes the other", "^\\ \\^", "[\\][^]"},
    {kAll, "an escaped opening quote", "\\'a b\\'", "['a][b']"},
    {kAll, "an escape in quotes is ordinary", "'a\\' b", "[a\\][b]"},
    {kAll, "quotes hold escape, comment, single and blank", "'\\#= '", "[\\#= ]"},
    {kAll, "an escaped comment character", "a\\#b", "[a#b]"},
    {kAll, "an escaped single", "a\\=b", "[a=b]"},
    {kAll, "an escaped blank before a quote", "\\ 'a'", "[ a]"},
    {kAll, "an escape behind the closing quote", "'a'\\ b", "[a][ b]"},
    {kAll, "a single before a quote", "='a b'", "[=][a b]"},
    {kAll, "a single behind a quote", "'a b'=c", "[a b][=][c]"},
    {kAll, "a word in quotes behind a single", "x='a b' y", "[x][=][a b][y]"},
    {kAll, "a comment behind a single", "a=#b", "[a][=]"},
    {kAll, "a comment right behind the word before", "=a#b", "[=]"},
    {kAll, "a quoted single", "'='", "[=]"},
    {kAll, "an empty token as a value", "x=''", "[x][=][]"},
    {kAll, "an assignment with a comment", "n = 5 # five", "[n][=][5]"},
    {kAll, "an escape at the end of a quoted word", "a'b'\\", "[ab]"},
    {kAll, "an escaped comment opens a token", "\\# #", "[#]"},
    {kSingle, "a single is a token of its own", "x=1", "[x][=][1]"},
    {kSingle, "with blanks around", "x = 1", "[x][=][1]"},
    {kSingle, "at the start", "=x", "[=][x]"},
    {kSingle, "at the end", "x=", "[x][=]"},
    {kSingle, "alone", "=", "[=]"},
    {kSingle, "a run is as many tokens", "===", "[=][=][=]"},
    {kSingle, "a run in a word", "a==b", "[a][=][=][b]"},
    {kSingle, "separated singles", "= ,=", "[=][=]"},
    {{"", nullptr, nullptr, nullptr, "+-*/"}, "singles without separators",
     "a+b*-c", "[a][+][b][*][-][c]"},
    {{"", nullptr, nullptr, nullptr, "+-*/"}, "blanks stay in the words", "a + b", "[a ][+][ b]"},
    {{"", nullptr, nullptr, nullptr, "+-*/"}, "nothing but singles", "+-*/", "[+][-][*][/]"},
    {{nullptr, nullptr, nullptr, nullptr, "\327"}, "a single above 127", "2\3273", "[2][\327][3]"},
    {{nullptr, nullptr, "#", "#"}, "comment before escape", "a #b", "[a]"},
    {{nullptr, nullptr, "#", "#"}, "it loses the token", "a#b", ""},
    {{nullptr, "##", "#"}, "comment before opening", "#a b#", ""},
    {{nullptr, "(#", "#"}, "a comment character closes a pair", "(a b#c", "[a b][c]"},
    {{nullptr, nullptr, "#", nullptr, "#"}, "comment before single", "a #", "[a]"},
    {{"# ", nullptr, "#"}, "comment before separator", "a#b", ""},
    {{"# ", nullptr, "#"}, "but a run of separators takes it", "a #b", "[a][b]"},
    {{"# ", nullptr, "#"}, "a leading run takes it", " ##b", "[b]"},
    {{"# ", nullptr, "#"}, "at the start it is a comment", "# a", ""},
    {{"# ", "''", "#"}, "the run behind a quote takes it", "'a'#b", "[a][b]"},
    {{nullptr, "''", nullptr, "'"}, "escape before opening", "'a b", "[a][b]"},
    {{nullptr, "''", nullptr, "'"}, "escaped itself", "'' a", "['][a]"},
    {{nullptr, "('", nullptr, "'"}, "an escape closes a pair", "(a b'c", "[a b][c]"},
    {{nullptr, nullptr, nullptr, " "}, "escape before separator", "a b", "[ab]"},
    {{nullptr, nullptr, nullptr, " "}, "a run that began with a comma takes it", "a, b", "[a][b]"},
    {{nullptr, nullptr, nullptr, "=", "="}, "escape before single", "a=b", "[ab]"},
    {{nullptr, nullptr, nullptr, "=", "="}, "escaped itself, it is no token of its own",
     "a==b", "[a=b]"},
    {{nullptr, "  "}, "opening before separator", " a,b c", "[a,b][c]"},
    {{nullptr, "  "}, "a comma run takes the opening character", "x, y", "[x][y]"},
    {{nullptr, "  "}, "the run behind the close takes it", " a  b", "[a][b]"},
    {{nullptr, "==", nullptr, nullptr, "="}, "opening before single", "=a b=c", "[a b][c]"},
    {{nullptr, "(=", nullptr, nullptr, "="}, "a single closes a pair", "(a b=c=", "[a b][c][=]"},
    {{" =", nullptr, nullptr, nullptr, "="}, "separator before single", "a=b", "[a][b]"},
    {{" ", " \"", " ", " ", " "}, "a character in all sets is a comment", "a b", ""},
    {{"aa", "", "", "", ""}, "a character twice in a set counts once", "bab", "[b][b]"},
    {{"aa", "", "", "", ""}, "all of the line", "aaa", ""},
    {{nullptr, "''\"\"", "#", "\\", "=;"}, "a command line",
     "run --name='my file' \"a b\"; # go", "[run][--name][=][my file][a b][;]"},
    {{nullptr, "''\"\"", "#", "\\", "=;"}, "a path with escaped blanks",
     "cp a\\ b c\\;d", "[cp][a b][c;d]"},
    {{nullptr, "''\"\"", "#", "\\", "=;"}, "quotes in quotes",
     "\"it's\" 'say \"x\"'", "[it's][say \"x\"]"},
};

// clang-format on

struct ReportedCase {
    const char *why;
    const char *text;
    Sets sets;
    const char *tokens;
    const char *messages;
};

constexpr const char *kOddPairs =
    "FATAL  qztoken_new(): an even number of pair separators must supplied\n";
#define UNMATCHED(characters) "WARNING  qztoken_new(), unmatched separator pair " characters

// clang-format off
const ReportedCase kReportedCases[] = {
    {"an odd number of pair characters", "a b", {nullptr, "("}, "", kOddPairs},
    {"an odd number above one", "a b", {nullptr, "()<"}, "", kOddPairs},
    {"no pairs are looked at without a text", "", {nullptr, "("}, "", ""},
    {"no closing character", "a 'b c", {nullptr, "''"}, "[a][b c]",
     UNMATCHED("' <-> ' in input: a 'b c \n")},
    {"the token has what stands before the opening character", "x(b ", {nullptr, "()"}, "[xb ]",
     UNMATCHED("( <-> ) in input: x(b  \n")},
    {"nothing collected is no token", "a (", {nullptr, "()"}, "[a]",
     UNMATCHED("( <-> ) in input: a ( \n")},
    {"comment and escape are ordinary there", "<a #\\", {nullptr, "<>", "#", "\\"}, "[a #\\]",
     UNMATCHED("< <-> > in input: <a #\\ \n")},
    {"a percent sign in the line", "'%s%n", {nullptr, "''"}, "[%s%n]",
     UNMATCHED("' <-> ' in input: '%s%n \n")},
};

// clang-format on

TEST(Split, Table)
{
    for (const SplitCase &c : kSplitCases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(messages_of([&] { EXPECT_EQ(List(c.text, c.sets).text(), c.tokens); }), "");
    }
}

TEST(Split, ReportsWhatIsWrongWithLineAndPairs)
{
    for (const ReportedCase &c : kReportedCases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(messages_of([&] { EXPECT_EQ(List(c.text, c.sets).text(), c.tokens); }),
                  c.messages);
    }
}

TEST(Split, KnowsThe9999FirstPairs)
{
    std::string pairs;
    for (int i = 0; i < 9998; ++i)
        pairs += "<>";
    EXPECT_EQ(List("(a b)", {nullptr, (pairs + "()").c_str()}).text(), "[a b]");
    EXPECT_EQ(List("(a b)", {nullptr, (pairs + "<>()").c_str()}).text(), "[(a][b)]");
}

TEST(Split, LongLines)
{
    const std::string word(3'000'000, 'x');
    EXPECT_EQ(List(word.c_str()).text(), "[" + word + "]");
    EXPECT_EQ(List(("a b #" + word).c_str(), {nullptr, nullptr, "#"}).text(), "[a][b]");

    const std::string singles(1'000'000, '=');
    const List many(singles.c_str(), {"", nullptr, nullptr, nullptr, "="});
    EXPECT_EQ(qztoken_num(many), 1'000'000);
    EXPECT_STREQ(qztoken_get_token(many, 999'999), "=");
}

/// A short line or set from a few characters, so that the sets meet often.
std::string random_text(std::mt19937 &random, std::size_t max_length)
{
    static const char kCharacters[] = {' ', ',', '\t', '\'', '(', ')', '#', '\\', '=', 'a', '\xff'};
    std::string text(random() % (max_length + 1), ' ');
    for (char &c : text)
        c = kCharacters[random() % sizeof kCharacters];
    return text;
}

/// QZ_TEST_LINES asks for a longer run than the everyday one.
TEST(Split, AgreesWithTheSlowSplitter)
{
    const char *lines = std::getenv("QZ_TEST_LINES");
    std::mt19937 random(7);
    for (int i = lines != nullptr ? std::atoi(lines) : 50'000; i > 0; --i) {
        const std::string line = random_text(random, 24);
        std::string sets[5];
        for (std::string &set : sets)
            set = random_text(random, 4);
        const bool defaults = random() % 4 == 0;
        std::string expected;
        std::string messages = slow_split(line, defaults ? " ,\t" : sets[0], sets[1], sets[2],
                                          sets[3], sets[4], expected);
        std::string tokens;
        const std::string reported = messages_of([&] {
            tokens = List(line.c_str(), {defaults ? nullptr : sets[0].c_str(), sets[1].c_str(),
                                         sets[2].c_str(), sets[3].c_str(), sets[4].c_str()})
                         .text();
        });
        ASSERT_EQ(tokens, expected)
            << "line <" << line << "> sets <" << sets[0] << "> <" << sets[1] << "> <" << sets[2]
            << "> <" << sets[3] << "> <" << sets[4] << ">";
        ASSERT_EQ(reported, messages);
    }
}

} // namespace
