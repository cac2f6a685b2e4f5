// Plots for the application: hands a plot file to the spooling command.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "pure/text.h"
#include "system/shell_command.h"
#include "xt_dev_t.h"
#include "xt_f.h"

extern "C" {

void LoadAbortPlotterComm(INT, INT, char*) {}

char* getDevMessOrChn(INT, INT, INT*) {
    return nullptr;
}

INT remplace_blancs(char* chaine) {
    if (chaine != nullptr) std::replace(chaine, chaine + std::strlen(chaine), ' ', '_');
    return 0;
}

INT OutputFileOnPort(
    INT typesortie, char* tmpdir, char* tmpfile, char* nplotter, char* nformat, INT nport, INT, INT, INT, INT, INT) {
    if (typesortie != GRX_SORTIE_TRACEUR) return 0;
    constexpr std::size_t longest_number = 12;
    char port[longest_number] = "";
    std::snprintf(port, sizeof port, "%d", nport);
    remplace_blancs(nplotter);
    remplace_blancs(nformat);
    grx::ShellCommand command("pltspool");
    for (const char* const word : {tmpdir, tmpfile, nplotter, nformat}) command.add(grx::view(word));
    return command.add(port).run();
}
}
