#include "bandeau.h"

#include <algorithm>

#include "palette.h"
#include "police.h"
#include "rendu.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"

namespace atelier {

namespace {

constexpr double kCapitales = 10; // pixels
constexpr double kLigneDeBase = (Bandeau::kHauteur + kCapitales) / 2.0;
constexpr int kMarge = 12, kEcart = 34, kTabulation = 300;

double longueur(const std::u32string& texte) {
    return police::largeur(texte) * kCapitales / police::kHauteur;
}

void fond(INT nofen, int largeur) {
    GRX_RECTANGLE r{};
    r.nofen = nofen;
    r.x2 = largeur;
    r.y2 = Bandeau::kHauteur;
    r.attrib.coul_trace = kCoulBandeau;
    grx_remplit_rectangle(r);
    r.y2 = 0;
    r.attrib.coul_trace = kCoulFilet;
    grx_remplit_rectangle(r);
}

void texte(INT nofen, const std::u32string& t, double x, int couleur) {
    Plume plume{nofen, {}};
    plume.attrib.coul_trace = couleur;
    ecrit_texte(plume, t, {x, kLigneDeBase}, kCapitales);
}

} // namespace

bool Bandeau::cree(INT mere) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_GRAPHIQUE;
    f.attrib = GRX_FEN_ATT_FILLE | GRX_FEN_ATT_VISIBLE;
    f.fen_mere = mere;
    f.haut = kHauteur;
    f.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_DROITE | GRX_ATTACHE_GAUCHE;
    if (grx_cree_fenetre(&f) != 0) return false;
    nofen_ = f.nofen;
    return true;
}

bool Bandeau::prend(const GRX_EVENEMENT& e) {
    const bool a_montrer = e.type_evenement == GRX_EVT_AFFICHAGE || e.type_evenement == GRX_EVT_CHGT_TAILLE;
    if (!a_montrer || e.affichage.nofen != nofen_) return false;
    redessine();
    return true;
}

void Bandeau::montre(const Contenu& contenu) {
    if (contenu == contenu_) return;
    contenu_ = contenu;
    redessine();
}

void Bandeau::redessine() {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(nofen_, &largeur, &hauteur);
    grx_affecte_nofen_active(nofen_);
    grx_alloue_image(nofen_);
    fond(nofen_, largeur);
    texte(nofen_, contenu_.position, kMarge, kCoulTexte);
    const double echelle = std::max<double>(kTabulation, kMarge + longueur(contenu_.position) + kEcart);
    texte(nofen_, contenu_.echelle, echelle, kCoulTexte);
    const double message = echelle + longueur(contenu_.echelle) + kEcart;
    texte(nofen_, contenu_.message, message, kCoulElastique);
    const double nom = largeur - kMarge - longueur(contenu_.nom);
    if (nom > message + longueur(contenu_.message) + kEcart) texte(nofen_, contenu_.nom, nom, kCoulDiscret);
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(nofen_);
}

} // namespace atelier
