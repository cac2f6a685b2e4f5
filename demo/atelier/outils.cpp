#include "outils.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "fonctions.h"
#include "unites.h"
#include "xt_bou_f.h"
#include "xt_bou_t.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace atelier {

namespace {

constexpr int kMarge = 10, kCote = 34, kPas = 38;
constexpr int kYIcones = 12, kYChamps = 100, kYZoom = 188, kYCouches = 254, kHauteurListe = 230;
constexpr int kZoomMax = 100;          // of the scale; its middle is the whole drawing
constexpr double kZoomParMoitie = 2.0; // powers of ten from the middle to an end
constexpr std::string_view kVue = "[x] ", kCachee = "[ ] ";

struct Icone {
    const char* nom;
    INT fonction;
};
constexpr std::array<Icone, 8> kIcones{{{"TOUT", kFonctionToutVoir}, {"PLUS", kFonctionAgrandir},
    {"MOINS", kFonctionReduire}, {"COUCHES", kFonctionCouchesToutes}, {"QUITTER", kFonctionQuitter},
    {"GRILLE", kFonctionReglages}, {"CHOIX", kFonctionCouchesPanneau}, {"TABLE", kFonctionNomenclature}}};
constexpr int kIconesParRangee = 5;

void libelle(INT fenetre, int x, int y, std::string_view texte) {
    GRX_BOUTON b = bouton(fenetre, GRX_BOU_LABEL, x, y, -1, -1);
    copie(b.titre, texte);
    cree_bouton(b);
}

std::string entree_de(const CalqueVu& calque) {
    return std::string(calque.visible ? kVue : kCachee) + calque.nom;
}

} // namespace

GRX_BOUTON bouton(INT fenetre, INT type, int x, int y, int largeur, int hauteur) {
    GRX_BOUTON b;
    grx_init_bouton(&b);
    b.fen_mere = fenetre;
    b.type = type;
    b.attrib = GRX_BOU_ATT_ACTIF;
    b.x = x;
    b.y = y;
    b.largeur = largeur;
    b.hauteur = hauteur;
    return b;
}

INT cree_bouton(GRX_BOUTON& b) {
    return grx_cree_bouton(&b) == 0 ? b.nobou : -1;
}

std::string texte_de(INT nobou) {
    std::array<char, 4096> tampon{};
    grx_recup_texte_bouton(nobou, tampon.data());
    return tampon.data();
}

bool Outils::cree(INT mere, std::string icones, const std::vector<CalqueVu>& calques) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_BOUTONS;
    f.attrib = GRX_FEN_ATT_FILLE | GRX_FEN_ATT_VISIBLE;
    f.fen_mere = mere;
    f.droite = kLargeur;
    f.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_GAUCHE;
    if (grx_cree_fenetre(&f) != 0) return false;
    nofen_ = f.nofen;
    grx_init_repertoire_icones(icones.data());
    grx_affecte_format_icone(GRX_FORMAT_ICONE_M);
    cree_icones(icones);
    cree_champs();
    cree_zoom();
    libelle(nofen_, kMarge, kYCouches - 20, "Couches (double clic)");
    montre_calques(calques);
    return true;
}

void Outils::cree_icones(const std::string&) {
    std::array<char, HOST_CHEMIN_MAX> repertoire{};
    grx_recup_repertoire_icones(repertoire.data());
    int place = 0;
    for (const Icone& icone : kIcones) {
        const int x = kMarge + kPas * (place % kIconesParRangee), y = kYIcones + kPas * (place / kIconesParRangee);
        GRX_BOUTON b = bouton(nofen_, GRX_BOU_DESSINE, x, y, kCote, kCote);
        b.no_fo = icone.fonction;
        copie(b.titre, icone.nom);
        const INT nobou = cree_bouton(b);
        std::string fichier = std::string(repertoire.data()) + "/" + icone.nom + ".BMP";
        grx_change_icone_bouton(nobou, fichier.data());
        if (premiere_icone_ < 0) premiere_icone_ = nobou;
        ++place;
    }
}

void Outils::cree_champs() {
    constexpr int kXChamp = 40, kLargeurChamp = kLargeur - kXChamp - kMarge, kHauteurChamp = 27, kEntre = 36;
    const auto champ = [&](const char* nom, int y, INT fonction) {
        libelle(nofen_, kMarge, y + 6, nom);
        GRX_BOUTON b = bouton(nofen_, GRX_BOU_TEXTE, kXChamp, y, kLargeurChamp, kHauteurChamp);
        b.tabi[GRX_BOU_TABI_COLONNES] = -1;
        b.no_fo = fonction;
        return cree_bouton(b);
    };
    champ_x_ = champ("X", kYChamps, kFonctionChampX);
    champ_y_ = champ("Y", kYChamps + kEntre, kFonctionChampY);
}

void Outils::cree_zoom() {
    libelle(nofen_, kMarge, kYZoom - 12, "Zoom");
    GRX_BOUTON b = bouton(nofen_, GRX_BOU_ECHELLE, kMarge, kYZoom + 8, kLargeur - 2 * kMarge, 18);
    b.attrib |= GRX_BOU_ATT_ECHELLE_HORIZ;
    b.tabi[GRX_BOU_TABI_MAXI] = kZoomMax;
    b.tabi[GRX_BOU_TABI_INITIAL] = kZoomMax / 2;
    b.no_fo = kFonctionZoom;
    zoom_ = cree_bouton(b);
}

void Outils::montre_calques(const std::vector<CalqueVu>& calques) {
    grx_detruit_bouton(liste_);
    GRX_BOUTON b = bouton(nofen_, GRX_BOU_LISTE, kMarge, kYCouches, kLargeur - 2 * kMarge - 20, kHauteurListe);
    b.attrib |= GRX_BOU_ATT_LISTE_SCROLL;
    liste_ = cree_bouton(b);
    // The newest entry stands first: the last layer goes in before the others.
    for (auto calque = calques.rbegin(); calque != calques.rend(); ++calque) {
        std::string entree = entree_de(*calque);
        grx_ajoute_element_dans_liste(liste_, entree.data());
    }
}

int Outils::calque_de(INT nobou, const char* entree, const std::vector<CalqueVu>& calques) const {
    if (nobou != liste_) return -1;
    const auto trouve =
        std::ranges::find_if(calques, [&](const CalqueVu& calque) { return entree_de(calque) == entree; });
    return trouve != calques.end() ? static_cast<int>(trouve - calques.begin()) : -1;
}

double Outils::rapport_de(INT valeur) {
    return std::pow(10.0, kZoomParMoitie * (2.0 * valeur / kZoomMax - 1));
}

void Outils::montre_zoom(double rapport) {
    const double place = kZoomMax / 2.0 * (1 + std::log10(std::max(rapport, 1e-9)) / kZoomParMoitie);
    const int valeur = static_cast<int>(std::lround(std::clamp<double>(place, 0, kZoomMax)));
    if (valeur == valeur_zoom_) return;
    valeur_zoom_ = valeur;
    grx_change_valeur_echelle(zoom_, valeur);
}

void Outils::montre_centre(const std::string& x, const std::string& y) {
    const auto montre = [](INT nobou, std::string& connu, const std::string& nouveau) {
        if (connu == nouveau) return;
        connu = nouveau;
        std::string texte = nouveau;
        grx_change_texte(nobou, texte.data());
    };
    montre(champ_x_, x_, x);
    montre(champ_y_, y_, y);
}

std::optional<Point> Outils::centre() const {
    const auto x = lit_nombre(texte_de(champ_x_)), y = lit_nombre(texte_de(champ_y_));
    return x && y ? std::optional(Point{*x, *y}) : std::nullopt;
}

void Outils::rend_le_clavier() const {
    grx_force_focus_sur_bouton(premiere_icone_);
}

} // namespace atelier
