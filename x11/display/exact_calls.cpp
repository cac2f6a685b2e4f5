// Opens and closes the trace for the application, and has Xlib wait for the server after each request while the trace wants
// the call of each error exactly.
#include "display/exact_calls.h"

#include <X11/Xlib.h>

#include "display/forget_display.h"
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Display* exact = nullptr; // the connection that waits; the application may have others do so

} // namespace

void follow_exact_calls() {
    Display* const wanted = exact_calls_wanted() ? x11_disp : nullptr;
    if (wanted == exact) return;
    if (exact != nullptr && exact == x11_disp) XSynchronize(exact, False);
    if (wanted != nullptr) XSynchronize(wanted, True);
    exact = wanted;
}

void forget_exact_calls() {
    exact = nullptr;
}

} // namespace grx

extern "C" {

INT grx_ouvre_journal(const char* adr, INT synchrone) {
    if (adr == nullptr || adr[0] == '\0') return grx::refused(GRX_ECHEC_PARAMETRE, "adr");
    if (!grx::open_trace(adr, synchrone != 0)) return grx::refused(GRX_ECHEC_FICHIER, "adr");
    grx::follow_exact_calls();
    return 1;
}

INT grx_ferme_journal(void) {
    const bool open = grx::close_trace();
    grx::follow_exact_calls();
    return open ? 1 : GRX_ECHEC_ABSENT;
}
}
