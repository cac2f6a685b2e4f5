// Asks the application before a window closes: the window manager's request becomes a record, and the window stays.
#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/Protocols.h>
#include <Xm/Xm.h>

#include <array>

#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_session.h"
#include "system/table.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "events/added_records.h"
#include "registry/window_table.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

std::array<Widget, GRX_NB_FENETRES> asking{}; // the shell of each window that asks

Widget& place_of(INT nofen) {
    return asking[grx::as_index(nofen)];
}

bool asks(INT nofen) {
    Widget shell = grx::shell_of(nofen);
    return shell != nullptr && place_of(nofen) == shell;
}

bool is_request_for(const GRX_EVENEMENT& record, const void* nofen) {
    return record.type_evenement == GRX_EVT_FERMETURE && record.destruction.nofen == *static_cast<const INT*>(nofen);
}

void withdraw(INT nofen) {
    grx::drop_added(is_request_for, &nofen);
}

void on_request(Widget shell, XtPointer number, XtPointer) {
    const INT nofen = grx::number_in(number);
    if (!asks(nofen) || place_of(nofen) != shell) { // the application has freed the number
        XtDestroyWidget(shell);
        return;
    }
    withdraw(nofen); // one is enough, however often the user asks
    GRX_EVENEMENT record{};
    record.destruction.type_evenement = GRX_EVT_FERMETURE;
    record.destruction.nofen = nofen;
    grx::post_added(record);
}

void on_death(Widget shell, XtPointer number, XtPointer) {
    const INT nofen = grx::number_in(number);
    if (place_of(nofen) != shell) return;
    place_of(nofen) = nullptr;
    withdraw(nofen);
}

Atom close_protocol() {
    return XInternAtom(x11_disp, "WM_DELETE_WINDOW", False);
}

void begin_to_ask(INT nofen, Widget shell) {
    place_of(nofen) = shell;
    grx::set_resource(shell, XmNdeleteResponse, XmDO_NOTHING);
    XmAddWMProtocolCallback(shell, close_protocol(), on_request, grx::as_client_data(nofen));
    XtAddCallback(shell, XmNdestroyCallback, on_death, grx::as_client_data(nofen));
}

void ask_no_more(INT nofen, Widget shell) {
    place_of(nofen) = nullptr;
    withdraw(nofen);
    XtRemoveCallback(shell, XmNdestroyCallback, on_death, grx::as_client_data(nofen));
    XmRemoveWMProtocolCallback(shell, close_protocol(), on_request, grx::as_client_data(nofen));
    grx::set_resource(shell, XmNdeleteResponse, XmDESTROY);
}

} // namespace

extern "C" {

INT grx_affecte_demande_fermeture(INT nofen, INT etat) {
    Widget shell = grx::shell_of(nofen);
    if (shell == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (grx::outer_widget(nofen) != nullptr) return grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
    if (etat != 0 && !asks(nofen)) begin_to_ask(nofen, shell);
    if (etat == 0 && asks(nofen)) ask_no_more(nofen, shell);
    return 1;
}

INT grx_recup_demande_fermeture(INT nofen) {
    if (grx_recup_objet_fen(nofen) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    return grx::outer_widget(nofen) == nullptr && asks(nofen) ? 1 : 0;
}
}
