#include "galerie.h"

#include <array>
#include <vector>

namespace galerie {

namespace {

constexpr INT kActif = GRX_BOU_ATT_ACTIF;
constexpr std::array<const char*, 10> kOutils{
    "OUVRIR", "ENREGISTRER", "FENETRE", "TOUT", "PLUS", "MOINS", "DEPLACER", "COUCHES", "GRILLE", "QUITTER"};

struct Classe {
    INT format;
    INT cote;
    const char* nom;
};
constexpr std::array<Classe, 3> kClasses{
    {{GRX_FORMAT_ICONE_S, 24, "S"}, {GRX_FORMAT_ICONE_M, 32, "M"}, {GRX_FORMAT_ICONE_L, 56, "L"}}};

void cree_rangee(INT fenetre, const Classe& classe, INT x, INT y) {
    grx_affecte_format_icone(classe.format);
    char repertoire[HOST_CHEMIN_MAX] = "";
    grx_recup_repertoire_icones(repertoire);
    for (std::size_t i = 0; i < kOutils.size(); ++i) {
        const Boite boite{x + static_cast<INT>(i) * (classe.cote + 4), y, classe.cote, classe.cote};
        const INT numero = bouton(fenetre, GRX_BOU_DESSINE, kActif, boite, kOutils[i], kFonctionIcones + classe.format);
        std::string chemin = std::string(repertoire) + "/" + kOutils[i] + ".BMP";
        grx_change_icone_bouton(numero, chemin.data());
    }
}

} // namespace

void cree_curseurs(INT fenetre) {
    constexpr INT derniere = GRX_CURS_CENTRE, par_rangee = 12, cote = 40;
    bouton(fenetre, GRX_BOU_LABEL, kActif, {600, 446, 200, 20}, "Curseurs", -1);
    for (INT curseur = 0; curseur <= derniere; ++curseur) {
        const Boite boite{600 + curseur % par_rangee * (cote + 4), 468 + curseur / par_rangee * 32, cote, 28};
        bouton(fenetre, GRX_BOU_SIMPLE, kActif, boite, std::to_string(curseur), kFonctionCurseur + curseur);
    }
}

void cree_icones(INT fenetre, const std::string& repertoire) {
    std::string copie_adresse = repertoire;
    grx_init_repertoire_icones(copie_adresse.data());
    INT y = 540;
    for (const auto& classe : kClasses) {
        bouton(fenetre, GRX_BOU_LABEL, kActif, {600, y + classe.cote / 2 - 8, 20, 20}, classe.nom, -1);
        cree_rangee(fenetre, classe, 630, y);
        y += classe.cote + 8;
    }
}

bool action_outil(INT fenetre, INT no_fo) {
    const INT curseur = no_fo - kFonctionCurseur;
    if (curseur < 0 || curseur > GRX_CURS_CENTRE) return false;
    grx_change_curseur(curseur, fenetre);
    return true;
}

} // namespace galerie
