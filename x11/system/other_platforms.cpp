// Functions that applications call and that only other platforms need. On this one they do nothing.
#include "grx_api.h"
#include "xt_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

extern "C" {

// Data files of an older generation of the application are recognised, and not read.

INT reconnait_fichier_domoplanix(GRX_ARGS_LIBRES) {
    return 1;
}

INT ReadOldDaoDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldHuiDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldAccDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldFtvDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldNivDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

INT ReadOldB3DDomoplanix(GRX_ARGS_LIBRES) {
    return 0;
}

// -- windows, fonts, keypad

INT grx_reactive_topmost(void) {
    return 0;
}

INT grx_desactive_topmost(void) {
    return 0;
}

INT grx_flush_fenetres_graphiques(void) {
    return 0;
}

INT grx_ote_mire_si_necessaire(...) {
    return 0;
}

INT grx_met_mire_si_necessaire(...) {
    return 0;
}

INT test_client_fenetre_graphique(...) {
    return 1;
}

INT test_fenetre_principale(INT) {
    return 0;
}

void grx_iconifie_application(INT) {}

INT get_contours_texte_truetype(GRX_TEXTE, DEF_CONTOURS**) {
    return 0;
}

int grx_select_font_truetype(char*) {
    return -1;
}

void grx_texte_extent_truetype(INT, char*, DOUBLE, DOUBLE, char*, DOUBLE*) {
    // the advances stay as the caller filled them
}

INT grx_verifie_truetype(char*) {
    return 0;
}

// The keypad stays as the user has set it.
INT grx_configure_clavier_munerique(void) {
    return 0;
}

INT grx_restitue_clavier_munerique(void) {
    return 0;
}

// The library uses one font for everything, so that there is none to choose.
INT grx_selection_fonte_dialogue(void) {
    return 0;
}

INT grx_selection_fonte_status(void) {
    return 0;
}

void grx_selectionne_curseur_attente(void) {}
void grx_deselectionne_curseur_attente(void) {}
void grx_contenu_aide(void) {}
void grx_aide_sur(void) {}
void grx_utilisation_aide(void) {}
void grx_aide_f1(INT) {}
}
