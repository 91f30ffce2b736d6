#ifndef QZ_TOOLS_INPUT_H
#define QZ_TOOLS_INPUT_H

#include "qz/output.h"

#include <iostream>
#include <string>

namespace qz::cli {

/// Calls @p visit(line) for every line of standard input, without its end. The library reads a line
/// up to its first NUL; the loss of what stands behind one is told.
template <typename Visit> void for_each_input_line(Visit visit, char end = '\n')
{
    std::ios::sync_with_stdio(false);
    bool told = false;
    for (std::string line; std::getline(std::cin, line, end);) {
        if (!told && line.find('\0') != std::string::npos) {
            complain("note: lines are read up to their first NUL only");
            told = true;
        }
        visit(line);
    }
}

} // namespace qz::cli

#endif
