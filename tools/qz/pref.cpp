#include "qz/pref_target.h"

namespace qz::cli {

void add_pref_commands(CLI::App &app, Chosen &chosen)
{
    CLI::App *pref = app.add_subcommand("pref", "Read, write and explain preferences");
    pref->require_subcommand(1);
    pref->footer("The exit status is the code of the store: 0 success, 1 failure, 2 only a lower "
                 "layer has the key\n(with --default), 3 not of this type, 4 no such key, 6 access "
                 "error, 7 not in the format,\n8 no such product, 9 no lock, 10 invalid key.");
    add_pref_read_commands(*pref, chosen);
    add_pref_explain_command(*pref, chosen);
    add_pref_write_commands(*pref, chosen);
}

} // namespace qz::cli
