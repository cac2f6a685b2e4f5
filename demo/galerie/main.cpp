// galerie [--pret FILE]: shows what the library has to offer. --pret creates FILE when everything is on the screen.
#include "galerie.h"

#include <cstring>
#include <string>

namespace {

using namespace galerie;

INT ouvre_principale() {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.attrib |= GRX_FEN_ATT_PRINCIPALE;
    f.x = 30;
    f.y = 60;
    f.droite = kLargeur;
    f.haut = kHauteur;
    copie(f.titre, "galerie");
    return grx_cree_fenetre(&f) == 0 ? f.nofen : -1;
}

INT ouvre_graphique(INT mere) {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(mere, &largeur, &hauteur);
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_GRAPHIQUE;
    f.attrib |= GRX_FEN_ATT_FILLE;
    f.fen_mere = mere;
    f.x = 600;
    f.droite = 580;
    f.haut = 400;
    f.y = hauteur - 20 - f.haut;
    return grx_cree_fenetre(&f) == 0 ? f.nofen : -1;
}

// The interface in light grey, as a colour of the palette: a pixel value would be right on deep screens only.
void choisit_gris() {
    constexpr INT fond_interface = 3; // COULEUR_APPLICATION of INI_SYST.DAT
    palette_reserve[fond_interface][GRX_ROUGE] = 200;
    palette_reserve[fond_interface][GRX_VERT] = 200;
    palette_reserve[fond_interface][GRX_BLEU] = 196;
}

bool demarre() {
    sstate[SST_REP_SYSTEME] = const_cast<char*>(GALERIE_REP);
    sstate[SST_REP_MENU] = const_cast<char*>(GALERIE_REP);
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    grx_initialise_globales();
    grx_affecte_couleur_fond(1);
    choisit_gris();
    return grx_init_application() != 0;
}

void signale(const char* fichier) {
    if (fichier == nullptr) return;
    grx_sync_server();
    if (FILE* const f = std::fopen(fichier, "w")) std::fclose(f);
}

INT fonction_de(const GRX_EVENEMENT& e) {
    const bool menu = e.type_evenement == GRX_EVT_BOUTON_APPUI && e.bouton_appui.nobou < 0;
    if (menu) return e.bouton_appui.no_fo;
    return e.type_evenement == GRX_EVT_EXEC_FONCTION ? e.exec_fonction.no_fo : -1;
}

bool finit(const GRX_EVENEMENT& e, INT principale) {
    if (e.type_evenement == GRX_EVT_DESTRUCTION) return e.destruction.nofen == principale;
    return fonction_de(e) == kFonctionQuitter;
}

} // namespace

int main(int argc, char** argv) {
    const char* const pret = argc > 2 && std::strcmp(argv[1], "--pret") == 0 ? argv[2] : nullptr;
    if (!demarre()) return 1;
    const INT principale = ouvre_principale();
    if (principale < 0) return 1;
    grx_affecte_nofen_principale(principale);
    cree_controles(principale);
    cree_curseurs(principale);
    cree_icones(principale, GALERIE_ICONES);
    Journal journal;
    journal.cree(principale);
    const INT graphique = ouvre_graphique(principale);
    grx_attend_creation_fenetre(graphique);
    dessine(graphique);
    signale(pret);
    GRX_EVENEMENT evenement{};
    for (;;) {
        if (grx_digitaliseur(&evenement, 1) == 0) continue;
        if (finit(evenement, principale)) return 0;
        action_outil(principale, fonction_de(evenement));
        journal.note(evenement);
    }
}
