// The one pending event record.
#include "xt_ent_f.h"
#include "xt_ini_t.h"

// Zero but for the button number: what grx_init_evenement gives.
GRX_EVENEMENT evt_global = {};

extern "C" {

INT grx_init_evenement(GRX_EVENEMENT* evt) {
    if (evt == nullptr) return 0;
    evt->type_evenement = GRX_EVT_AUCUN;
    evt->bouton_appui.nobou = GRX_AUCUN;
    evt->bouton_appui.etat = GRX_ETAT_AUCUN;
    return 0;
}
}
