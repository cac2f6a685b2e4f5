// The one pending event record: handlers fill it, the loops give it to the application.
#include "xt_ent_f.h"
#include "xt_ini_t.h"

// The record starts as grx_init_evenement makes it, except that its button number is 0.
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
