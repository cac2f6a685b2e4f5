#include "galerie.h"

#include <array>

#include "grx_plus_evenements.h"

namespace galerie {

namespace {

struct Nom {
    INT type;
    const char* nom;
};
constexpr std::array<Nom, 30> kNoms{{{GRX_EVT_SOURIS_BOUGE, "souris_bouge"}, {GRX_EVT_BOUTON_APPUI, "bouton_appui"},
    {GRX_EVT_CARAC_APPUI, "carac_appui"}, {GRX_EVT_AFFICHAGE, "affichage"}, {GRX_EVT_REPONSE, "reponse_question"},
    {GRX_EVT_EXEC_FONCTION, "exec_fonction"}, {GRX_EVT_DESTRUCTION, "destruction"},
    {GRX_EVT_BOUTON_AFFICHE, "bouton_affiche"}, {GRX_EVT_SORTIE, "sortie"}, {GRX_EVT_DEPLACEMENT, "deplacement"},
    {GRX_EVT_ICONIFICATION, "iconification"}, {GRX_EVT_DESICONIF, "desiconification"},
    {GRX_EVT_COMMANDE, "commande_entree"}, {GRX_EVT_BOUTON_RELACHE, "bouton_relache"},
    {GRX_EVT_CHGT_TAILLE, "chgt_taille"}, {GRX_EVT_ELEMENT_CLIQUE, "element_clique"}, {GRX_EVT_ENTREE, "entree"},
    {GRX_EVT_ECHELLE, "echelle"}, {GRX_EVT_TAB, "tabulation"}, {GRX_EVT_BACKTAB, "tabulation arriere"},
    {GRX_EVT_CACHE, "cache"}, {GRX_EVT_FERMETURE, "fermeture"}, {GRX_EVT_MINUTERIE, "minuterie"},
    {GRX_EVT_DESCRIPTEUR, "descripteur"}, {GRX_EVT_OISIF, "oisif"}, {GRX_EVT_MESSAGE, "message"},
    {GRX_EVT_SAISIE, "saisie"}, {GRX_EVT_AIDE, "aide"}, {GRX_EVT_DEPOT, "depot"},
    {GRX_EVT_PRESSE_PAPIERS, "presse_papiers"}}};

const char* nom_de(INT type) {
    for (const auto& ligne : kNoms) {
        if (ligne.type == type) return ligne.nom;
    }
    return "?";
}

std::string pointeur(const GRX_DIGIT& e) {
    char texte[160];
    std::snprintf(texte, sizeof texte, "nobou %d  no_fo %d  x %d  y %d  bouton %d  carac %d  etat %d", e.nobou, e.no_fo,
        e.x, e.y, e.bouton, e.carac, e.etat);
    return texte;
}

std::string fonction(const GRX_EXEC_FONCTION& e) {
    char texte[400];
    std::snprintf(
        texte, sizeof texte, "nobou %d  no_fo %d  valeur %d  chaine \"%s\"", e.nobou, e.no_fo, e.valeur, e.chaine);
    return texte;
}

std::string element(const GRX_ELEMENT_CLIQUE& e) {
    char texte[400];
    std::snprintf(texte, sizeof texte, "nobou %d  no_fo %d  double_click %d  chaine \"%s\"", e.nobou, e.no_fo,
        e.double_click, e.chaine);
    return texte;
}

std::string place(const GRX_AFFICHAGE& e) {
    char texte[100];
    std::snprintf(texte, sizeof texte, "x %d  y %d  largeur %d  hauteur %d", e.x, e.y, e.largeur, e.hauteur);
    return texte;
}

std::string details(const GRX_EVENEMENT& e) {
    switch (e.type_evenement) {
    case GRX_EVT_BOUTON_APPUI:
    case GRX_EVT_BOUTON_RELACHE:
    case GRX_EVT_CARAC_APPUI: return pointeur(e.bouton_appui);
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE:
    case GRX_EVT_TAB:
    case GRX_EVT_BACKTAB:
    case GRX_EVT_MINUTERIE:
    case GRX_EVT_SAISIE:
    case GRX_EVT_AIDE:
    case GRX_EVT_DEPOT: return fonction(e.exec_fonction);
    case GRX_EVT_MESSAGE: return "reponse " + std::to_string(e.reponse_question.reponse);
    case GRX_EVT_ELEMENT_CLIQUE: return element(e.element_clique);
    case GRX_EVT_AFFICHAGE:
    case GRX_EVT_DEPLACEMENT:
    case GRX_EVT_CHGT_TAILLE: return place(e.affichage);
    default: return "";
    }
}

} // namespace

void Journal::cree(INT fenetre) {
    bouton(fenetre, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {20, 436, 180, 20}, "\311v\351nements", -1);
    position_ = bouton(fenetre, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {210, 436, 260, 20}, "", -1);
    texte_ = bouton(fenetre, GRX_BOU_TEXTE, GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_TEXTE_MULTI | GRX_BOU_ATT_TEXTE_LECTURE,
        {20, 460, 530, 370}, "", -1);
}

void Journal::note(const GRX_EVENEMENT& e) {
    char ligne[500];
    if (e.type_evenement == GRX_EVT_SOURIS_BOUGE) {
        std::snprintf(ligne, sizeof ligne, "souris %d, %d", e.souris_bouge.x, e.souris_bouge.y);
        grx_change_texte(position_, ligne);
        return;
    }
    std::snprintf(ligne, sizeof ligne, "%2d %s  nofen %d  %s\n", e.type_evenement, nom_de(e.type_evenement),
        e.affichage.nofen, details(e).c_str());
    ecrit(ligne);
}

void Journal::ecrit(char* ligne) {
    constexpr int most = 400;
    if (++lignes_ > most) {
        char rien[] = "";
        grx_change_texte(texte_, rien);
        lignes_ = 1;
    }
    grx_ajoute_texte(texte_, ligne);
}

} // namespace galerie
