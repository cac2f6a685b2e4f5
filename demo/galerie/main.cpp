// galerie [--panneaux | --fichiers | --dialogue] [--config DIRECTORY] [--pret FILE]: shows what the library has to offer:
// controls and drawing, panels and dialogs, or the strip and the palette (--dialogue:
// the editor and a file dialog). DIRECTORY holds the settings; FILE is created when everything is on the screen.
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

bool demarre(const char* config) {
    sstate[SST_REP_SYSTEME] = const_cast<char*>(config);
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

struct Options {
    enum Page { kControles, kPanneaux, kFichiers, kDialogue } page = kControles;
    const char* config = GALERIE_REP;
    const char* pret = nullptr;
};

Options lit_options(int argc, char** argv) {
    Options o;
    for (int i = 1; i < argc; ++i) {
        const std::string_view nom = argv[i];
        const char* const valeur = i + 1 < argc ? argv[i + 1] : nullptr;
        if (nom == "--panneaux")
            o.page = Options::kPanneaux;
        else if (nom == "--fichiers")
            o.page = Options::kFichiers;
        else if (nom == "--dialogue")
            o.page = Options::kDialogue;
        else if (nom == "--config" && valeur != nullptr)
            o.config = argv[++i];
        else if (nom == "--pret" && valeur != nullptr)
            o.pret = argv[++i];
    }
    return o;
}

void montre_controles(INT principale) {
    cree_controles(principale);
    cree_curseurs(principale);
    cree_icones(principale, GALERIE_ICONES);
    const INT graphique = ouvre_graphique(principale);
    grx_attend_creation_fenetre(graphique);
    dessine(graphique);
}

void montre_page(Options::Page page, INT principale) {
    switch (page) {
    case Options::kControles: return montre_controles(principale);
    case Options::kPanneaux: return cree_panneaux(principale, GALERIE_ICONES);
    default: return cree_fichiers(principale, page == Options::kDialogue);
    }
}

// Called once nothing is left to do: what is to be seen is on the screen.
Boolean signale_au_repos(XtPointer fichier) {
    signale(static_cast<const char*>(fichier));
    return True;
}

int boucle(INT principale, Journal& journal) {
    GRX_EVENEMENT evenement{};
    for (;;) {
        if (grx_digitaliseur(&evenement, 1) == 0) continue;
        if (finit(evenement, principale)) return 0;
        grx_gere_action_modif_palette(evenement);
        journal.note(evenement);
        const INT fonction = fonction_de(evenement);
        if (!action_outil(principale, fonction)) action_fichiers(principale, fonction, journal);
    }
}

} // namespace

int main(int argc, char** argv) {
    const Options options = lit_options(argc, argv);
    if (!demarre(options.config)) return 1;
    const INT principale = ouvre_principale();
    if (principale < 0) return 1;
    grx_affecte_nofen_principale(principale);
    montre_page(options.page, principale);
    Journal journal;
    journal.cree(principale);
    if (options.page == Options::kDialogue) {
        XtAppAddWorkProc(contexte, signale_au_repos, const_cast<char*>(options.pret));
        action_fichiers(principale, kFonctionDialogue, journal);
    } else {
        signale(options.pret);
    }
    return boucle(principale, journal);
}
