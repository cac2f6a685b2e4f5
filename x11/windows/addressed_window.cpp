// Finds the window that a number of an addition names.
#include "windows/addressed_window.h"

#include "display/pixmaps.h"
#include "grx_plus_erreurs.h"
#include "registry/window_table.h"
#include "xt_ini_t.h"

namespace grx {

INT find_own_shell(INT nofen, Widget& shell) {
    if (x11_disp == nullptr) return GRX_ECHEC_AFFICHAGE;
    if (window_widget(nofen) == nullptr) return GRX_ECHEC_NUMERO;
    if (outer_widget(nofen) != nullptr) return GRX_ECHEC_GENRE;
    shell = shell_of(nofen);
    return window_of(shell) != None ? 1 : GRX_ECHEC_NUMERO;
}

} // namespace grx
