// Every function of the additions that can refuse a value tells the trace of it: function, argument, value and code.
#include "grx_plus.h"
#include "tests/support/window_kit.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace {

using namespace grxtest;

struct Refusal {
    const char* function;
    INT (*call)();
    const char* argument; // with its value where it is one number
};

#define REFUSAL(function, arguments, argument)                                                                         \
    Refusal {                                                                                                          \
#function, [] { return function arguments; }, argument                                                         \
    }

const GRX_CASE small_case{};
const GRX_GROUPE small_group{};
const INT position = 1;
const char* const no_text = nullptr;

GRX_TEXTE for_number(INT number) {
    GRX_TEXTE text{};
    grx_init_texte_dessin(&text);
    text.nofen = number;
    return text;
}
const GRX_TEXTE text_of_no_target = for_number(77);

const Refusal refusals[] = {
    REFUSAL(grx_affecte_bulle, (777, "x"), "nobou = 777"),
    REFUSAL(grx_affecte_aide_menu, (-3, "x"), "no_fo = -3"),
    REFUSAL(grx_affecte_bouton_aide_menu, (777), "nobou = 777"),
    REFUSAL(grx_affecte_demande_aide, (64), "sources = 64"),
    REFUSAL(grx_arguments, (nullptr, nullptr), "argc, argv"),
    REFUSAL(grx_recup_argument, (9, nullptr, 0), "quel = 9"),
    REFUSAL(grx_init_identite, (nullptr), "identite"),
    REFUSAL(grx_affecte_identite, (nullptr), "identite"),
    REFUSAL(grx_ajoute_icone_fenetre, (77, 1, 1, nullptr), "nofen = 77"),
    REFUSAL(grx_supprime_icones_fenetre, (77), "nofen = 77"),
    REFUSAL(grx_affecte_genre_fenetre, (77, 1), "nofen = 77"),
    REFUSAL(grx_rattache_fenetre, (1, 77), "maitresse = 77"),
    REFUSAL(grx_marque_place_fenetre, (1, 9), "marque = 9"),
    REFUSAL(grx_centre_fenetre, (77, -1), "nofen = 77"),
    REFUSAL(grx_cree_minuterie, (-5, 0), "duree = -5"),
    REFUSAL(grx_detruit_minuterie, (12), "minuterie = 12"),
    REFUSAL(grx_surveille_descripteur, (0, 64), "conditions = 64"),
    REFUSAL(grx_change_surveillance, (12, 0), "surveillance = 12"),
    REFUSAL(grx_arrete_surveillance, (12), "surveillance = 12"),
    REFUSAL(grx_detruit_tache_oisive, (12), "tache = 12"),
    REFUSAL(grx_recup_etat_bascule, (777), "nobou = 777"),
    REFUSAL(grx_affecte_etat_bascule, (777, 1), "nobou = 777"),
    REFUSAL(grx_init_case, (nullptr), "boite"),
    REFUSAL(grx_cree_case, (&small_case), "boite"),
    REFUSAL(grx_init_groupe, (nullptr), "groupe"),
    REFUSAL(grx_cree_groupe, (&small_group), "groupe"),
    REFUSAL(grx_recup_choix_groupe, (777), "nobou = 777"),
    REFUSAL(grx_affecte_choix_groupe, (777, 0), "nobou = 777"),
    REFUSAL(grx_desactive_choix_groupe, (777, 0, 1), "nobou = 777"),
    REFUSAL(grx_recup_choix_item, (5, 6), "item = 6"),
    REFUSAL(grx_affecte_choix_item, (5, 6, 0), "item = 6"),
    REFUSAL(grx_init_erreur_affichage, (nullptr), "erreur"),
    REFUSAL(grx_recup_erreur_affichage, (nullptr), "erreur"),
    REFUSAL(grx_ouvre_journal, ("", 0), "adr"),
    REFUSAL(grx_ecrit_journal, (nullptr), "texte"),
    REFUSAL(grx_init_inventaire, (nullptr), "inventaire"),
    REFUSAL(grx_recup_inventaire, (nullptr), "inventaire"),
    REFUSAL(grx_recup_rang_fenetre, (77), "nofen = 77"),
    REFUSAL(grx_recup_rang_bouton, (777), "nobou = 777"),
    REFUSAL(grx_ecrit_inventaire, (nullptr), "adr"),
    REFUSAL(grx_init_detail_evenement, (nullptr), "detail"),
    REFUSAL(grx_recup_detail_evenement, (nullptr), "detail"),
    REFUSAL(grx_init_entree_menu, (nullptr), "entree"),
    REFUSAL(grx_recup_entree_menu, (5, nullptr), "entree"),
    REFUSAL(grx_ouvre_menu_contextuel, (77, "x", "y", 0, 0), "nofen = 77"),
    REFUSAL(grx_ouvre_menu_contextuel_souris, (1, nullptr, ""), "zone"),
    REFUSAL(grx_init_boite_message, (nullptr), "boite"),
    REFUSAL(grx_init_boite_saisie, (nullptr), "boite"),
    REFUSAL(grx_init_avancement, (nullptr), "avancement"),
    REFUSAL(grx_attend_boite_message, (nullptr), "boite"),
    REFUSAL(grx_affiche_boite_message, (nullptr), "boite"),
    REFUSAL(grx_attend_boite_saisie, (nullptr, nullptr, 0, nullptr), "boite"),
    REFUSAL(grx_affiche_boite_saisie, (nullptr), "boite"),
    REFUSAL(grx_detruit_boite, (12), "numero = 12"),
    REFUSAL(grx_avancement_commence, (nullptr), "avancement"),
    REFUSAL(grx_affecte_demande_fermeture, (77, 1), "nofen = 77"),
    REFUSAL(grx_recup_demande_fermeture, (77), "nofen = 77"),
    REFUSAL(grx_recup_liste_panneau, (5, 6), "clef = 6"),
    REFUSAL(grx_remplit_liste, (777, 0, nullptr), "liste = 777"),
    REFUSAL(grx_vide_liste, (777), "liste = 777"),
    REFUSAL(grx_ajoute_elements_liste, (777, 1, &no_text), "liste = 777"),
    REFUSAL(grx_insere_elements_liste, (777, 1, 1, &no_text), "liste = 777"),
    REFUSAL(grx_remplace_elements_liste, (777, 1, 1, &no_text), "liste = 777"),
    REFUSAL(grx_supprime_elements_liste, (777, 1, 1), "liste = 777"),
    REFUSAL(grx_supprime_positions_liste, (777, 1, &position), "liste = 777"),
    REFUSAL(grx_recup_nombre_elements_liste, (777), "liste = 777"),
    REFUSAL(grx_recup_texte_element_liste, (777, 1, nullptr, 0), "liste = 777"),
    REFUSAL(grx_selectionne_elements_liste, (777, 1, &position), "liste = 777"),
    REFUSAL(grx_deselectionne_elements_liste, (777, 1, &position), "liste = 777"),
    REFUSAL(grx_deselectionne_tout_liste, (777), "liste = 777"),
    REFUSAL(grx_recup_selection_liste, (777, 0, nullptr), "liste = 777"),
    REFUSAL(grx_is_element_selectionne, (777, 1), "liste = 777"),
    REFUSAL(grx_affecte_mode_liste, (777, 0), "liste = 777"),
    REFUSAL(grx_recup_mode_liste, (777), "liste = 777"),
    REFUSAL(grx_montre_element_liste, (777, 1), "liste = 777"),
    REFUSAL(grx_recup_position_point_liste, (777, 1, 1), "liste = 777"),
    REFUSAL(grx_recup_cadre_element_liste, (777, 1, nullptr, nullptr, nullptr, nullptr), "liste = 777"),
    REFUSAL(grx_recup_vue_liste, (777, nullptr, nullptr), "liste = 777"),
    REFUSAL(grx_affecte_colonnes_liste, (777, 0, nullptr, 0), "liste = 777"),
    REFUSAL(grx_affecte_texte_presse_papiers, (0, 7, "x", -1), "codage = 7"),
    REFUSAL(grx_recup_texte_presse_papiers, (0, 0, nullptr, nullptr), "texte"),
    REFUSAL(grx_affecte_png_presse_papiers, (7, nullptr, 1), "selection = 7"),
    REFUSAL(grx_recup_png_presse_papiers, (0, nullptr, nullptr), "octets"),
    REFUSAL(grx_affecte_image_presse_papiers, (0, nullptr, 1, 1), "rvb, largeur, hauteur"),
    REFUSAL(grx_recup_image_presse_papiers, (0, nullptr, nullptr, nullptr), "rvb, largeur, hauteur"),
    REFUSAL(grx_recup_contenu_presse_papiers, (7), "selection = 7"),
    REFUSAL(grx_vide_presse_papiers, (-1), "selection = -1"),
    REFUSAL(grx_affecte_depots_fenetre, (77, 1), "nofen = 77"),
    REFUSAL(grx_recup_avances_texte, (nullptr, 0, nullptr), "texte"),
    REFUSAL(grx_init_texte_dessin, (nullptr), "texte"),
    REFUSAL(grx_init_boite_texte, (nullptr), "boite"),
    REFUSAL(grx_recup_boite_texte, (nullptr, nullptr), "texte, boite"),
    REFUSAL(grx_init_contours_texte, (nullptr), "contours"),
    REFUSAL(grx_recup_contours_texte, (nullptr, 0, nullptr), "texte, contours"),
    REFUSAL(grx_trace_texte_dessin, (&text_of_no_target), "nofen = 77"),
    REFUSAL(grx_trace_texte_dessin_bouton, (&text_of_no_target), "nobou = 77"),
    REFUSAL(grx_verifie_fonte_texte, (nullptr), "nom"),
    REFUSAL(grx_recup_nom_fonte_texte, (-1, nullptr, 0), "rang = -1"),
    REFUSAL(grx_init_recepteur, (nullptr), "recepteur"),
    REFUSAL(grx_affecte_recepteur, (nullptr), "recepteur"),
    REFUSAL(grx_cree_image, (nullptr), "image"),
    REFUSAL(grx_libere_image, (nullptr), "image"),
    REFUSAL(grx_lit_image, (nullptr, nullptr), "fichier, image"),
    REFUSAL(grx_lit_image_memoire, (nullptr, 0, nullptr), "octets, nombre, image"),
    REFUSAL(grx_ecrit_image, (nullptr, nullptr, 0), "fichier, image, format = 0"),
    REFUSAL(grx_ouvre_image, (nullptr, nullptr), "fichier, image"),
    REFUSAL(grx_lit_bande_image, (9, 1, nullptr), "noimage = 9"),
    REFUSAL(grx_ouvre_ecriture_image, (nullptr, nullptr, 0), "fichier, image, format = 0"),
    REFUSAL(grx_ecrit_bande_image, (9, 1, nullptr), "noimage = 9"),
    REFUSAL(grx_ferme_image, (9), "noimage = 9"),
    REFUSAL(grx_abandonne_image, (9), "noimage = 9"),
    REFUSAL(grx_affiche_image, (1, 77, nullptr, 0, 0), "bou_fen = 77"),
    REFUSAL(grx_affiche_image_etiree, (1, 77, nullptr, 0, 0, 1, 1), "bou_fen = 77"),
    REFUSAL(grx_affecte_icone_bouton, (777, "x"), "nobou = 777"),
    REFUSAL(grx_affecte_icone_memoire_bouton, (777, nullptr, 0), "nobou = 777"),
    REFUSAL(grx_affecte_icone_image_bouton, (777, nullptr), "nobou = 777"),
    REFUSAL(grx_supprime_icone_bouton, (777), "nobou = 777"),
    REFUSAL(grx_recup_image_fenetre, (77, nullptr), "image"),
    REFUSAL(grx_recup_image_bouton, (777, nullptr), "image"),
    REFUSAL(grx_recup_image_ecran_fenetre, (77, nullptr, nullptr), "image"),
    REFUSAL(grx_recup_image_ecran, (0, 0, 1, 1, nullptr, nullptr), "image"),
    REFUSAL(grx_commence_calque, (77, 0), "nofen = 77"),
    REFUSAL(grx_termine_calque, (), "calque"),
    REFUSAL(grx_deplace_calque, (77, 0, 1, 1), "nofen = 77"),
    REFUSAL(grx_cache_calque, (77, 0), "nofen = 77"),
    REFUSAL(grx_affiche_calque, (77, 0), "nofen = 77"),
    REFUSAL(grx_efface_calque, (77, 0), "nofen = 77"),
    REFUSAL(grx_defile_fenetre, (77, 1, 1, nullptr, nullptr), "nofen = 77"),
    REFUSAL(grx_limite_trace, (77, 0, 0, 1, 1), "nofen = 77"),
};

// They refuse nothing once the library is started, or only what is not there, which is an answer.
const std::set<std::string> never_refuse{"grx_recup_bulle", "grx_affecte_etat_bulles", "grx_recup_etat_bulles",
    "grx_affecte_delais_bulles", "grx_recup_texte_arguments", "grx_recup_nom_application",
    "grx_recup_classe_application", "grx_recup_zone_travail", "grx_digitaliseur_delai",
    "grx_digitaliseur_fenetre_delai", "grx_cree_tache_oisive", "grx_affecte_fonction_secours",
    "grx_oublie_erreur_affichage", "grx_ferme_journal", "grx_recup_texte_erreur", "grx_recup_texte_detail_evenement",
    "grx_desactive_entree_menu", "grx_coche_entree_menu", "grx_change_texte_entree_menu", "grx_initialise_entrees_menu",
    "grx_ferme_menu_contextuel", "grx_recup_fenetre_menu_contextuel", "grx_avancement_avance",
    "grx_avancement_abandonne", "grx_avancement_finit", "grx_termine_application", "grx_libere_presse_papiers",
    "grx_affecte_suivi_presse_papiers", "grx_affecte_touches_presse_papiers", "grx_recup_touches_presse_papiers",
    "grx_recup_depots_fenetre", "grx_init_image", "grx_affecte_icones_png", "grx_recup_icones_png",
    "grx_affecte_police", "grx_recup_police", "grx_recup_genre_police", "grx_recup_resolution_ecran",
    "grx_recup_nombre_fontes_texte", "grx_retire_recepteur", "grx_libere_limite_trace"};

class Refusals : public DisplayTest {
  protected:
    std::string file_ = home().text() + "/trace.txt";

    // What one call has written.
    std::string traced(INT (*call)(), INT& answer) {
        unlink(file_.c_str());
        EXPECT_EQ(grx_ouvre_journal(file_.c_str(), 0), 1);
        answer = call();
        grx_ferme_journal();
        std::stringstream text;
        text << std::ifstream(file_).rdbuf();
        return text.str();
    }
};

TEST_F(Refusals, AreToldByEveryFunction) {
    ASSERT_EQ(make(GRX_FEN_ALPHA), 1);
    for (const Refusal& refusal : refusals) {
        INT answer = 0;
        const std::string text = traced(refusal.call, answer);
        const std::string line = std::string("refused value: ") + refusal.function + ", " + refusal.argument + ": ";
        EXPECT_LT(answer, -100) << refusal.function;
        EXPECT_NE(text.find(line), std::string::npos) << refusal.function << " tells\n" << text;
        EXPECT_NE(text.find("(" + std::to_string(answer) + ")\n"), std::string::npos) << text;
    }
}

TEST_F(Refusals, TheTableNamesEveryAddition) {
    std::set<std::string> named = never_refuse;
    for (const Refusal& refusal : refusals) EXPECT_TRUE(named.insert(refusal.function).second) << refusal.function;
    std::ifstream in(std::string(GRX_TEST_DATA) + "/../../cmake/symbols/GRX_1.1.txt");
    std::set<std::string> exported;
    for (std::string name; in >> name;) exported.insert(name);
    EXPECT_EQ(named, exported);
}

} // namespace
