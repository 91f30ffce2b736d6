#include "qzerr.hpp"

// Both are kept for callers that still call them: what happens on a signal is the program's choice.

void halcyra::add_default_signal_handler() {}

void halcyra::print_backtrace() {}
