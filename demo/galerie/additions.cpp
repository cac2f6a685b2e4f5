// The pages of what goes beyond the contract: controls with a state, lists, menus that live, a tip; messages, prompts; the
// progress of long work.
#include "galerie.h"

#include <array>
#include <vector>

#include "grx_plus.h"

namespace galerie {

namespace {

constexpr INT kActif = GRX_BOU_ATT_ACTIF;
constexpr INT kFonctionMessage = 2300; // and the five that follow
constexpr INT kFonctionCase = 2310;
constexpr INT kFonctionGroupe = 2320;
constexpr INT kFonctionListe = 2330;
constexpr INT kFonctionTravail = 2340;
constexpr INT kFonctionMenu = 2341;

void legende(INT fenetre, INT x, INT y, const char* texte) {
    bouton(fenetre, GRX_BOU_LABEL, kActif, {x, y, -1, -1}, texte, -1);
}

// --- controls -------------------------------------------------------------------------------------------------------

void cree_cases(INT fenetre) {
    constexpr std::array<const char*, 3> textes{"Extr\351mit\351s", "Milieux", "Centres (pas ici)"};
    legende(fenetre, 590, 16, "Cases");
    for (INT i = 0; i < static_cast<INT>(textes.size()); ++i) {
        GRX_CASE boite;
        grx_init_case(&boite);
        boite.nofen = fenetre;
        boite.x = 590;
        boite.y = 40 + 32 * i;
        boite.no_fo = kFonctionCase + i;
        boite.etat = i != 1;
        boite.sensible = i < 2;
        boite.texte = textes[static_cast<std::size_t>(i)];
        grx_cree_case(&boite);
    }
}

void cree_groupe(INT fenetre, INT x, INT y, bool horizontal) {
    static constexpr std::array<const char*, 3> textes{"Millim\350tres", "Centim\350tres", "M\350tres"};
    GRX_GROUPE groupe;
    grx_init_groupe(&groupe);
    groupe.nofen = fenetre;
    groupe.x = x;
    groupe.y = y;
    groupe.no_fo = kFonctionGroupe + (horizontal ? 1 : 0);
    groupe.nb = static_cast<INT>(textes.size());
    groupe.choix = 1;
    groupe.horizontal = horizontal ? 1 : 0;
    groupe.titre = "Unit\351";
    groupe.textes = textes.data();
    const INT nobou = grx_cree_groupe(&groupe);
    if (horizontal) grx_desactive_choix_groupe(nobou, 2, 1);
}

INT cree_liste(INT fenetre, const Boite& boite, INT no_fo) {
    GRX_BOUTON b = decrit(fenetre, GRX_BOU_LISTE, kActif | GRX_BOU_ATT_LISTE_SCROLL, boite);
    b.no_fo = no_fo;
    return grx_cree_bouton(&b) == 0 ? b.nobou : -1;
}

void cree_listes(INT fenetre) {
    static constexpr std::array<const char*, 7> pieces{"S\351jour\t34,20 m\262\t12", "Cuisine\t11,75 m\262\t8",
        "Chambre 1\t13,40 m\262\t5", "Chambre 2\t12,05 m\262\t5", "Entr\351e\t4,60 m\262\t2",
        "Salle de bains\t6,10 m\262\t9", "Cellier\t3,90 m\262\t1"};
    static constexpr std::array<INT, 2> choisies{2, 5};
    legende(fenetre, 590, 270, "Liste en colonnes, plusieurs choix");
    const INT liste = cree_liste(fenetre, {590, 294, 330, 130}, kFonctionListe);
    grx_remplit_liste(liste, static_cast<INT>(pieces.size()), pieces.data());
    grx_affecte_mode_liste(liste, GRX_LISTE_ETENDUE);
    grx_selectionne_elements_liste(liste, static_cast<INT>(choisies.size()), choisies.data());

    legende(fenetre, 950, 270, "100 000 entr\351es");
    const INT longue = cree_liste(fenetre, {950, 294, 210, 130}, kFonctionListe + 1);
    constexpr INT kEntrees = 100000;
    std::vector<std::string> textes;
    std::vector<const char*> adresses;
    for (INT i = 1; i <= kEntrees; ++i) textes.push_back("Objet " + std::to_string(i));
    for (const std::string& texte : textes) adresses.push_back(texte.c_str());
    grx_remplit_liste(longue, kEntrees, adresses.data());
    grx_montre_element_liste(longue, kEntrees / 2);
}

// --- menus, tips ----------------------------------------------------------------------------------------------------

void anime_menus() {
    grx_desactive_entree_menu(3002, 1, 1);
    grx_coche_entree_menu(3020, 1, 1);
    grx_coche_entree_menu(3021, 0, 1);
    grx_change_texte_entree_menu(3010, "&Annuler le trait", 1);
}

void ouvre_menu(INT fenetre) {
    grx_ouvre_menu_contextuel(fenetre, nullptr, "#:ZONE_MENU_CONTEXTE", 640, 330);
}

// --- messages, prompts ----------------------------------------------------------------------------------------------

struct Message {
    INT genre;
    const char* titre;
    const char* texte;
};
constexpr std::array<Message, 4> kMessages{{
    {GRX_BOITE_INFORMATION, "Information", "Le plan est enregistr\351."},
    {GRX_BOITE_AVERTISSEMENT, "Avertissement",
        "Douze objets d\351passent la feuille.\nIls seront coup\351s \340 l'impression, et ce texte est assez long "
        "pour \352tre "
        "coup\351 en plusieurs lignes."},
    {GRX_BOITE_ERREUR, "Erreur", "Le disque est plein."},
    {GRX_BOITE_QUESTION, "Question", "Enregistrer les changements ?"},
}};

void montre_message(INT mere, const Message& message) {
    GRX_BOITE_MESSAGE boite;
    grx_init_boite_message(&boite);
    boite.genre = message.genre;
    boite.nofen_mere = mere;
    boite.titre = message.titre;
    boite.texte = message.texte;
    if (message.genre == GRX_BOITE_QUESTION) boite.nb_boutons = GRX_BOITE_BOUTONS_MAX;
    grx_affiche_boite_message(&boite);
}

void montre_saisie(INT mere, INT genre) {
    GRX_BOITE_SAISIE boite;
    grx_init_boite_saisie(&boite);
    boite.genre = genre;
    boite.nofen_mere = mere;
    boite.titre = "Saisie";
    boite.etiquette = genre == GRX_SAISIE_TEXTE ? "Nom du calque" : "\311paisseur du mur, de 5 \340 80 cm";
    boite.texte = "Cloisons";
    boite.valeur = 12.5;
    boite.minimum = 5;
    boite.maximum = 80;
    grx_affiche_boite_saisie(&boite);
}

// A window for a box to stand over.
INT ouvre_support(INT principale, INT x, INT y) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_ALPHA;
    f.fen_mere = principale;
    f.x = x;
    f.y = y;
    f.droite = 60;
    f.haut = 40;
    copie(f.titre, "-");
    if (grx_cree_fenetre(&f) != 0) return -1;
    grx_attend_creation_fenetre(f.nofen); // or the box would not see where it is
    return f.nofen;
}

// --- progress -------------------------------------------------------------------------------------------------------

struct Travail {
    INT minuterie = -1;
    double fait = 0;
};
Travail travail;

void commence_travail(INT principale) {
    constexpr INT kPeriode = 40; // milliseconds
    GRX_AVANCEMENT a;
    grx_init_avancement(&a);
    a.nofen_mere = principale;
    a.delai = 0;
    a.titre = "Travail";
    a.texte = "Lecture de quartier.dxf";
    a.maximum = 100;
    if (grx_avancement_commence(&a) != 1) return;
    travail = {grx_cree_minuterie(kPeriode, 1), 0};
    grx_avancement_avance(0, nullptr);
}

constexpr double kFin = 62; // it stays there: a picture shows a bar that is under way

void continue_travail() {
    travail.fait = travail.fait < kFin ? travail.fait + 1 : kFin;
    if (grx_avancement_avance(travail.fait, nullptr) == 1) return;
    grx_avancement_finit();
    grx_detruit_minuterie(travail.minuterie);
    travail.minuterie = -1;
}

} // namespace

void cree_additions(INT fenetre) {
    cree_cases(fenetre);
    cree_groupe(fenetre, 800, 20, false);
    cree_groupe(fenetre, 590, 180, true);
    cree_listes(fenetre);
    legende(fenetre, 590, 450, "Bo\356tes");
    constexpr std::array<const char*, 6> noms{"Information", "Avertissement", "Erreur", "Question", "Texte", "Nombre"};
    for (INT i = 0; i < static_cast<INT>(noms.size()); ++i) {
        const INT nobou = bouton(fenetre, GRX_BOU_SIMPLE, kActif, {590 + i % 3 * 140, 474 + i / 3 * 40, 130, 32},
            noms[static_cast<std::size_t>(i)], kFonctionMessage + i);
        grx_affecte_bulle(nobou, "Ouvre une bo\356te qui attend sa r\351ponse,\nsans arr\352ter le programme");
    }
    const INT attente = bouton(fenetre, GRX_BOU_SIMPLE, kActif, {590, 570, 130, 32}, "Travail", kFonctionTravail);
    grx_affecte_bulle(attente, "Montre l'avancement d'un long travail");
    bouton(fenetre, GRX_BOU_SIMPLE, kActif, {730, 570, 130, 32}, "Menu", kFonctionMenu);
    anime_menus();
}

void montre_bulle(INT fenetre) {
    const Window cible = XtWindow(grx_recup_objet_fen(fenetre));
    grx_affecte_delais_bulles(0, 0); // at once, and for good
    XWarpPointer(x11_disp, None, cible, 0, 0, 0, 0, 650, 490);
}

void montre_menu(INT fenetre) {
    ouvre_menu(fenetre);
}

void montre_boites(INT principale) {
    for (INT i = 0; i < static_cast<INT>(kMessages.size()); ++i)
        montre_message(
            ouvre_support(principale, 250 + i % 2 * 620, 800 - i / 2 * 280), kMessages[static_cast<std::size_t>(i)]);
    montre_saisie(ouvre_support(principale, 250, 240), GRX_SAISIE_TEXTE);
    montre_saisie(ouvre_support(principale, 870, 240), GRX_SAISIE_REEL);
}

void montre_travail(INT principale) {
    commence_travail(principale);
}

bool travail_avance() {
    return travail.minuterie >= 0 && travail.fait < kFin;
}

bool action_additions(INT fenetre, const GRX_EVENEMENT& e) {
    if (e.type_evenement == GRX_EVT_MINUTERIE && e.exec_fonction.no_fo == travail.minuterie)
        return continue_travail(), true;
    if (e.type_evenement != GRX_EVT_EXEC_FONCTION) return false;
    const INT message = e.exec_fonction.no_fo - kFonctionMessage;
    if (e.exec_fonction.no_fo == kFonctionTravail) return commence_travail(fenetre), true;
    if (e.exec_fonction.no_fo == kFonctionMenu) return ouvre_menu(fenetre), true;
    if (message < 0 || message > 5) return false;
    if (message < static_cast<INT>(kMessages.size()))
        montre_message(fenetre, kMessages[static_cast<std::size_t>(message)]);
    else
        montre_saisie(fenetre, message == 4 ? GRX_SAISIE_TEXTE : GRX_SAISIE_REEL);
    return true;
}

} // namespace galerie
