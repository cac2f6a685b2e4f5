// Finds the window that a number of an addition names.
#include "windows/addressed_window.h"

#include "display/pixmaps.h"
#include "grx_plus_erreurs.h"
#include "registry/window_table.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace grx {

Widget own_shell(INT nofen) {
    if (x11_disp == nullptr || window_widget(nofen) == nullptr || outer_widget(nofen) != nullptr) return nullptr;
    Widget shell = shell_of(nofen);
    return window_of(shell) != None ? shell : nullptr;
}

INT find_own_shell(INT nofen, Widget& shell, const char* argument) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, argument, nofen);
    if (window_widget(nofen) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, argument, nofen);
    if (outer_widget(nofen) != nullptr) return grx::refused(GRX_ECHEC_GENRE, argument, nofen);
    shell = own_shell(nofen);
    return shell != nullptr ? 1 : grx::refused(GRX_ECHEC_NUMERO, argument, nofen);
}

} // namespace grx
