// Gives a file to the command that prints, without a shell.
#pragma once

#include <span>

#include "host_t.h"

namespace papier {

struct PrintOrder {
    const char* file;
    const char* printer; // null or empty: the user's own
    const char* title;   // may be null
    INT copies;
};

/// Runs lp and waits for its end. 1, or GRX_ECHEC_COMMANDE or GRX_ECHEC_DELAI; `told` gets what the command said, or why
/// it could not be run.
INT print(const PrintOrder& order, std::span<char> told);

} // namespace papier
