#include "qz/output.h"
#include "qz/pref_target.h"

#include <cstdlib>

namespace qz::cli {

using halcyra::preferences::Explanation;
using halcyra::preferences::GetterReport;
using halcyra::preferences::Inspection;
using halcyra::preferences::LayerReport;
using halcyra::preferences::StoredForm;

namespace {

constexpr const char *kHere = "=> ";
constexpr const char *kNotHere = "   ";
constexpr std::size_t kLayerNameWidth = 14;

/// "int 3", "string "black"", or the name of a type that no getter accepts.
std::string shown_value(const StoredForm &form)
{
    if (form.type == QZPREF_TYPE_STRING)
        return "string \"" + printable(form.value) + '"';
    if (form.type)
        return type_word(form.type) + ' ' + printable(form.value);
    const std::string type = form.type_text.empty() ? "without a type" : form.type_text;
    return type + " \"" + printable(form.value) + "\" (no getter accepts this type)";
}

void print_headline(const Explanation &explanation, const Style &style)
{
    std::string line = style.strong(printable(explanation.key));
    if (explanation.winner == QZPrefSource_NotFound) {
        line += style.bad(" has no value");
    } else {
        const LayerReport &layer = explanation.layers[explanation.winner];
        line +=
            " = " + style.strong(shown_value(explanation.platform_form_wins ? layer.platform_form
                                                                            : layer.plain_form));
        line += ", from the layer " + style.good(qzpref_source_to_string(explanation.winner));
    }
    print_line(line);
    print_line(explanation.reason);
}

/// Whether a layer takes part, and why not.
Cell state_of(const LayerReport &layer)
{
    if (layer.file.empty())
        return {"no file is configured", Look::Faint};
    if (!layer.exists)
        return {"not there", Look::Faint};
    if (layer.status)
        return {"left out: " + describe(layer.status), Look::Bad};
    return "readable, " + count_of_keys(layer.key_count);
}

/// One line behind @p mark, indented to where the layer's file stands.
std::string detail_line(const char *mark, const std::string &text, const Style &style)
{
    return std::string(kLayerNameWidth, ' ') + style.good(mark) + text;
}

void print_form(const StoredForm &form, bool wins, std::size_t width, const Style &style)
{
    std::string line = printable(form.key);
    line.resize(std::max(width, line.size()) + 2, ' ');
    line += form.present ? shown_value(form) : style.faint("absent");
    if (!form.comment.empty())
        line += style.faint("  <!--" + printable(form.comment) + "-->");
    print_line(detail_line(wins ? kHere : kNotHere, line, style));
}

void print_layers(const Explanation &explanation, const Inspection &inspection, const Style &style)
{
    for (const LayerReport &layer : explanation.layers) {
        const bool wins = layer.source == explanation.winner;
        const Cell state = state_of(layer);
        std::string name = qzpref_source_to_string(layer.source);
        name.resize(kLayerNameWidth, ' ');
        print_line("");
        print_line(style.good(wins ? kHere : kNotHere) +
                   (wins ? style.good(name) : style.strong(name)) + printable(layer.file));
        print_line(detail_line(kNotHere, style.as(state.look, state.text), style));
        if (!layer.exists && layer.source == QZPrefSource_User) {
            const std::string pending = pending_migration(inspection);
            if (!pending.empty())
                print_line(detail_line(kNotHere, style.odd(pending), style));
        }
        if (!layer.exists || layer.status)
            continue;
        const std::size_t width = layer.platform_form.key.size();
        print_form(layer.platform_form, wins && explanation.platform_form_wins, width, style);
        print_form(layer.plain_form, wins && !explanation.platform_form_wins, width, style);
    }
}

/// What a getter hands back, in words.
std::string given_by(const GetterReport &report, bool takes_default)
{
    if (!report.gives_default)
        return printable(report.value);
    return takes_default ? "its default" : "an empty value";
}

std::string why(const GetterReport &report, const Explanation &explanation)
{
    switch (report.code) {
    case QZPREF_SUCCESS_:
        return {};
    case QZPREF_LOWER_LAYER:
        return "the value of the layer " + qzpref_source_to_string(explanation.winner) +
               " is hidden: only the user's own is handed back";
    case QZPREF_KEY_NOT_FOUND:
        return explanation.winner == QZPrefSource_NotFound
                   ? "no layer has the key"
                   : "the lower layers have no value of this type";
    default:
        return describe(report.code);
    }
}

void print_getters(const Explanation &explanation)
{
    print_line("");
    Table table({"GETTER", "CODE", "HANDS BACK", ""});
    for (const GetterReport &report : explanation.getters) {
        const bool takes_default = report.getter.find("(default)") != std::string::npos;
        const auto look = report.code == QZPREF_SUCCESS_      ? Look::Good
                          : report.code == QZPREF_LOWER_LAYER ? Look::Odd
                                                              : Look::Faint;
        table.add({{report.getter, look},
                   {std::to_string(report.code), look},
                   {given_by(report, takes_default), look},
                   {why(report, explanation), Look::Faint}});
    }
    table.print(3);
}

int print_library_json(QZPREF_PRODUCTS product, const std::string &key)
{
    char *json = nullptr;
    const int code = qzpref_explain(product, key.c_str(), &json);
    if (json)
        print(json);
    std::free(json);
    return code;
}

int run_explain(const PrefTarget &options)
{
    const std::optional<QZPREF_PRODUCTS> product = find_product(options.product);
    if (!product)
        return QZPREF_UNKNOWN_PRODUCT;
    if (options.json)
        return print_library_json(*product, full_key(options));

    const Inspection inspection(*product);
    const Explanation explanation = inspection.explain(full_key(options));
    const Style style = Style::of_stdout();
    print_headline(explanation, style);
    print_layers(explanation, inspection, style);
    print_getters(explanation);
    return explanation.winner == QZPrefSource_NotFound ? QZPREF_KEY_NOT_FOUND : QZPREF_SUCCESS_;
}

} // namespace

void add_pref_explain_command(CLI::App &pref, Chosen &chosen)
{
    add_command(pref, chosen, "explain", "Show where the value of a key comes from, and why",
                declare_key, run_explain)
        ->footer("Changes nothing: no file is made, nothing is migrated, no lock is taken.");
}

} // namespace qz::cli
