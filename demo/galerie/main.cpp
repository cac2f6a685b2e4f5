// galerie [--panneaux | --fichiers | --dialogue | --couleurs | --additions | --menu | --boites | --travail | --textes | --papier] [--config DIRECTORY] [--pret FILE]: shows what the library has to offer:
// controls and drawing, panels and dialogs, the strip and the palette (--dialogue: the editor and a file dialog), or the
// colours by their indices (--couleurs). DIRECTORY holds the settings; FILE is created when everything on the screen was drawn.
#include "galerie.h"
#include "grx_plus_evenements.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace {

using namespace galerie;

INT ouvre_principale(INT attrib, INT largeur, INT hauteur) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.attrib |= attrib;
    f.x = 30;
    f.y = 60;
    f.droite = largeur;
    f.haut = hauteur;
    copie(f.titre, "galerie");
    return grx_cree_fenetre(&f) == 0 ? f.nofen : -1;
}

// The interface in light grey, as a colour of the palette: a pixel value would be right on deep screens only.
void choisit_gris() {
    constexpr INT fond_interface = 3; // COULEUR_APPLICATION of INI_SYST.DAT
    palette_reserve[fond_interface][GRX_ROUGE] = 200;
    palette_reserve[fond_interface][GRX_VERT] = 200;
    palette_reserve[fond_interface][GRX_BLEU] = 196;
}

bool demarre(const char* config, bool en_gris) {
    sstate[SST_REP_SYSTEME] = const_cast<char*>(config);
    sstate[SST_REP_MENU] = const_cast<char*>(GALERIE_REP);
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    grx_initialise_globales();
    grx_affecte_couleur_fond(1);
    if (en_gris)
        choisit_gris();
    else
        grx_affecte_couleur_application(0); // the toolkit's own
    return grx_init_application() != 0;
}

bool manque(Widget fenetre) {
    XWindowAttributes a{};
    if (fenetre == nullptr) return false;
    return !XtIsRealized(fenetre) || XGetWindowAttributes(x11_disp, XtWindow(fenetre), &a) == 0
           || a.map_state != IsViewable;
}

// All windows are on the screen; the server has asked for their drawing before it says so.
bool tout_est_la(INT principale) {
    const Widget mere = grx_recherche_shell(grx_recup_objet_fen(principale));
    for (const char* nom : {"*Editeur", "*file_selection_popup"})
        if (mere != nullptr && manque(XtNameToWidget(mere, nom))) return false;
    for (INT nofen = 1; nofen < MAXOBJETFEN; ++nofen)
        if (manque(grx_recherche_shell(grx_recup_objet_fen(nofen)))) return false;
    return true;
}

// Creates the file once all windows are there and everything asked for was drawn; looks again a little later else.
void signale_dessine(XtPointer fichier, XtIntervalId*) {
    constexpr unsigned long kEncore = 20; // milliseconds
    if (!tout_est_la(grx_recup_nofen_principale()) || travail_avance()
        || XEventsQueued(x11_disp, QueuedAfterReading) > 0) {
        XtAppAddTimeOut(contexte, kEncore, signale_dessine, fichier);
        return;
    }
    grx_sync_server();
    if (FILE* const f = std::fopen(static_cast<const char*>(fichier), "w")) std::fclose(f);
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

enum Page {
    kControles,
    kPanneaux,
    kFichiers,
    kDialogue,
    kCouleurs,
    kAdditions,
    kMenu,
    kBoites,
    kTravail,
    kTextes,
    kPapier
};

struct NomDePage {
    std::string_view option;
    Page page;
};
constexpr std::array<NomDePage, 10> kPages{{{"--panneaux", kPanneaux}, {"--fichiers", kFichiers},
    {"--dialogue", kDialogue}, {"--couleurs", kCouleurs}, {"--additions", kAdditions}, {"--menu", kMenu},
    {"--boites", kBoites}, {"--travail", kTravail}, {"--textes", kTextes}, {"--papier", kPapier}}};

struct Options {
    Page page = kControles;
    const char* config = GALERIE_REP;
    const char* pret = nullptr;
};

Options lit_options(int argc, char** argv) {
    Options o;
    for (int i = 1; i < argc; ++i) {
        const std::string_view nom = argv[i];
        const char* const valeur = i + 1 < argc ? argv[i + 1] : nullptr;
        const auto page = std::ranges::find(kPages, nom, &NomDePage::option);
        if (page != kPages.end())
            o.page = page->page;
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
    dessine(ouvre_surface(principale, {600, 20, 580, 400}));
}

void montre_page(Page page, INT principale) {
    switch (page) {
    case kControles: return montre_controles(principale);
    case kCouleurs: return cree_couleurs(principale);
    case kPanneaux: return cree_panneaux(principale, GALERIE_ICONES);
    case kAdditions:
    case kMenu:
    case kBoites:
    case kTravail: return cree_additions(principale);
    case kTextes: return cree_textes(principale);
    case kPapier: return cree_papier(principale);
    default: return cree_fichiers(principale, page == kDialogue);
    }
}

// What stands over a page, once its window is on the screen.
void montre_au_dessus(Page page, INT principale) {
    switch (page) {
    case kAdditions: return montre_bulle(principale);
    case kMenu: return montre_menu(principale);
    case kBoites: return montre_boites(principale);
    case kTravail: return montre_travail(principale);
    default: return;
    }
}

int boucle(INT principale, Journal& journal) {
    GRX_EVENEMENT evenement{};
    for (;;) {
        if (grx_digitaliseur(&evenement, 1) == 0) continue;
        if (finit(evenement, principale)) return 0;
        grx_gere_action_modif_palette(evenement);
        const INT fonction = fonction_de(evenement);
        const bool pris = action_additions(principale, evenement);
        if (evenement.type_evenement != GRX_EVT_MINUTERIE) journal.note(evenement);
        if (pris) continue;
        if (!action_outil(principale, fonction)) action_fichiers(principale, fonction, journal);
    }
}

} // namespace

int main(int argc, char** argv) {
    const Options options = lit_options(argc, argv);
    const bool couleurs = options.page == kCouleurs; // as they are
    if (!demarre(options.config, !couleurs)) return 1;
    const INT principale = couleurs ? ouvre_principale(0, kLargeurCouleurs, kHauteurCouleurs)
                                    : ouvre_principale(GRX_FEN_ATT_PRINCIPALE, kLargeur, kHauteur);
    if (principale < 0) return 1;
    grx_affecte_nofen_principale(principale);
    montre_page(options.page, principale);
    Journal journal;
    if (!couleurs) journal.cree(principale);
    if (options.pret != nullptr) XtAppAddTimeOut(contexte, 0, signale_dessine, const_cast<char*>(options.pret));
    if (options.page >= kAdditions) {
        grx_attend_creation_fenetre(principale);
        montre_au_dessus(options.page, principale);
    }
    if (options.page == kDialogue) action_fichiers(principale, kFonctionDialogue, journal);
    return boucle(principale, journal);
}
