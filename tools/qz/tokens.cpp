#include "qz/command.h"
#include "qz/input.h"
#include "qz/output.h"
#include "qzerr.h"
#include "qztoken.h"

#include <cstdio>

namespace qz::cli {

namespace {

struct TokensOptions : CommonOptions {
    std::vector<std::string> texts;
    std::string separators = " ,\t";
    std::string pairs;
    std::string comments;
    std::string escapes;
    std::string singles;
    bool whole = false;
};

void declare_tokens(CLI::App &command, TokensOptions &options)
{
    add_words(command, "text", options.texts,
              "Lines to split (default: the lines of standard input)");
    const auto add_set = [&](const char *name, std::string &set, const char *description) {
        command.add_option(name, set, description)->type_name("CHARACTERS");
    };
    add_set("-s,--separators", options.separators,
            "Characters between tokens (default: blank, comma, tab)");
    add_set("-p,--pairs", options.pairs, "Opening and closing quotes in turn, as in '\"\"()'");
    add_set("-c,--comments", options.comments, "Characters that end the line");
    add_set("-e,--escapes", options.escapes, "Characters that make the next one ordinary");
    add_set("--singles", options.singles, "Characters that are tokens of their own");
    command.add_flag("-w,--whole", options.whole, "Take all of standard input for one line");
    command.footer("Prints the number of the line, the index of the token, its type (integer, real "
                   "or text)\nand the token, its control characters escaped. The status is 1 when "
                   "the library has\nreported a fault, such as a missing closing quote.");
}

constexpr const char *kTypeWords[] = {"text", "integer", "real"};

/// A list that is deleted at the end of its scope.
class TokenList {
public:
    TokenList(const std::string &line, const TokensOptions &options)
    {
        qztoken_new(&handle_, line.c_str(), options.separators.c_str(), options.pairs.c_str(),
                    options.comments.c_str(), options.escapes.c_str(), options.singles.c_str());
    }

    TokenList(const TokenList &) = delete;
    TokenList &operator=(const TokenList &) = delete;

    ~TokenList() { qztoken_delete(handle_); }

    int size() const { return qztoken_num(handle_); }

    const char *token(int index) const { return qztoken_get_token(handle_, index); }

    int type(int index) const { return qztoken_find_type(handle_, index); }

    QJsonObject json(int index) const
    {
        QJsonObject token{{"token", json_text(this->token(index))},
                          {"type", kTypeWords[type(index)]}};
        int integer = 0;
        double real = 0;
        if (type(index) == 1 && qztoken_get_int(handle_, index, &integer) == 0)
            token["value"] = integer;
        else if (type(index) == 2 && qztoken_get_double(handle_, index, &real) == 0)
            token["value"] = real; // null where JSON has no such number
        return token;
    }

private:
    int handle_ = -1;
};

void print_tokens(const TokenList &tokens, std::size_t line)
{
    for (int i = 0; i < tokens.size(); ++i) {
        char head[64];
        std::snprintf(head, sizeof head, "%4zu %4d  %-7s  ", line, i, kTypeWords[tokens.type(i)]);
        print(head);
        print_line(printable(tokens.token(i)));
    }
}

int run_tokens(const TokensOptions &options)
{
    qzerr_errclear(-1);
    QJsonArray answer;
    std::size_t number = 0;
    const auto split = [&](const std::string &line) {
        const TokenList tokens(line, options);
        ++number;
        if (!options.json) {
            print_tokens(tokens, number);
            return;
        }
        QJsonArray of_line;
        for (int i = 0; i < tokens.size(); ++i)
            of_line.append(tokens.json(i));
        answer.append(of_line);
    };
    if (options.texts.empty()) {
        for_each_input_line(split, options.whole ? '\0' : '\n');
    } else {
        for (const std::string &text : options.texts)
            split(text);
    }
    if (options.json)
        print_json(answer);
    unsigned worst = QZERR_BUMMER;
    qzerr_maxlevel(-1, &worst);
    return worst >= QZERR_WARNING ? 1 : 0;
}

} // namespace

void add_token_commands(CLI::App &app, Chosen &chosen)
{
    add_command(app, chosen, "tokens", "Split lines into tokens, and tell the numbers among them",
                declare_tokens, run_tokens);
}

} // namespace qz::cli
