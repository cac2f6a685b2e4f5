#include "panneau_reglages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "etat_hote.h"
#include "fonctions.h"
#include "controles.h"
#include "palette.h"
#include "police.h"
#include "rendu.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

// Indices of the items in the panel file.
enum Indice {
    kUnites = 701,
    kPas = 702,
    kGrille = 703,
    kAccroche = 704,
    kTrait = 705,
    kPlumes = 706,
    kApercu = 707,
    kTextes = 708,
};

constexpr double kPasMax = 1e9;

// -- the preview: a corner of the grid, and a text

void segment(INT zone, const GRX_ATTRIBUTS_TRACER& attrib, Point p, Point q) {
    GRX_SEGMENT s{};
    s.nofen = zone;
    s.x1 = static_cast<INT>(std::lround(p.x));
    s.y1 = static_cast<INT>(std::lround(p.y));
    s.x2 = static_cast<INT>(std::lround(q.x));
    s.y2 = static_cast<INT>(std::lround(q.y));
    s.attrib = attrib;
    grx_trace_segment_bouton(s);
}

void fond(INT zone, INT largeur, INT hauteur) {
    GRX_RECTANGLE r{};
    r.nofen = zone;
    r.x2 = largeur;
    r.y2 = hauteur;
    r.attrib.coul_trace = kCoulFond;
    grx_remplit_rectangle_bouton(r);
}

void grille(INT zone, const GRX_ATTRIBUTS_TRACER& attrib, INT largeur, INT hauteur) {
    constexpr INT kMaille = 20;
    for (INT x = kMaille / 2; x < largeur; x += kMaille) segment(zone, attrib, {1.0 * x, 0}, {1.0 * x, 1.0 * hauteur});
    for (INT y = kMaille / 2; y < hauteur; y += kMaille) segment(zone, attrib, {0, 1.0 * y}, {1.0 * largeur, 1.0 * y});
}

void texte(INT zone, double agrandissement, INT largeur, INT hauteur) {
    constexpr double kCapitales = 14; // pixels
    GRX_ATTRIBUTS_TRACER attrib{};
    attrib.coul_trace = kCoulTexte;
    const std::u32string mot = U"\u00C9chelle";
    const double k = agrandissement * kCapitales / police::kHauteur;
    const Point coin{(largeur - k * police::largeur(mot)) / 2, (hauteur + k * police::kHauteur) / 2};
    police::ecrit(mot).aplatit(
        Matrice::translation(coin) * Matrice::echelle(k, -k), 0.25, [&](const std::vector<Point>& trait) {
            for (std::size_t i = 1; i < trait.size(); ++i) segment(zone, attrib, trait[i - 1], trait[i]);
        });
}

} // namespace

void PanneauReglages::ouvre(INT mere, const Plan& plan) {
    constexpr INT kBord = 40;
    const PANEL* const p = panneau_.description();
    if (panneau_.ouvert() || p == nullptr) return;
    edites_ = plan.reglages;
    unites_ = plan.dessin.unites;
    plumes_ = plan.plumes();
    pose_etat();
    if (!panneau_.ouvre(mere, grx_recup_lar_ecran() - p->tx - kBord, kBord)) return;
    if (!(millimetres(unites_) > 0)) panneau_.desactive(kUnites);
    montre_pas();
    montre_bascule(edites_.grille, kGrille);
    montre_bascule(edites_.accroche, kAccroche);
    dessine_apercu();
}

// The panel begins with what the state of the application says.
void PanneauReglages::pose_etat() const {
    istate[kUnites] = edites_.unite;
    istate[kGrille] = edites_.grille ? 1 : 0;
    istate[kAccroche] = edites_.accroche ? 1 : 0;
    istate[kTrait] = edites_.trait;
    istate[kTextes] = edites_.textes;
    pose_reel(kPas, edites_.pas * facteur(edites_, unites_));
    std::vector<std::string> noms;
    for (const CouleurNommee& plume : plumes_) noms.push_back(plume.nom);
    pose_liste(kPlumes, noms, {edites_.plume});
}

Suite PanneauReglages::controle(const GRX_EXEC_FONCTION& e) {
    if (!panneau_.ouvert()) return Suite::PasPourMoi;
    switch (e.no_fo) {
    case GRX_BASE_NOFO_BOUTON + kUnites: change_unite(e.valeur); break;
    case GRX_BASE_NOFO_BOUTON + kGrille: bascule(edites_.grille, kGrille); break;
    case GRX_BASE_NOFO_BOUTON + kAccroche: bascule(edites_.accroche, kAccroche); break;
    case GRX_BASE_NOFO_REEL + kTrait: edites_.trait = e.valeur; break;
    case GRX_BASE_NOFO_REEL + kTextes: edites_.textes = e.valeur; break;
    case GRX_BASE_NOFO_REEL + kPas: return e.type_evenement == GRX_EVT_EXEC_FONCTION ? applique() : Suite::Fait;
    case GRX_BASE_NOFO_FONCTION + kNumero: return applique();
    case kFonctionReglagesFermer: ferme(); return Suite::Fait;
    default: return Suite::PasPourMoi;
    }
    dessine_apercu();
    return Suite::Fait;
}

Suite PanneauReglages::plume_choisie(INT liste, INT place) {
    if (!panneau_.ouvert() || liste != test_liste_deja_affichee(kNumero, kPlumes + GRX_BASE_CLEF_LISTE))
        return Suite::PasPourMoi;
    edites_.plume = std::clamp<int>(place, 0, static_cast<int>(plumes_.size()) - 1);
    dessine_apercu();
    return Suite::Fait;
}

// The step stays as long as it is, told in the new unit.
void PanneauReglages::change_unite(int unite) {
    lit_pas(texte_de(panneau_.bouton(kPas)));
    edites_.unite = std::clamp(unite, 0, kNbUnites - 1);
    montre_pas();
}

// What is no length leaves the step as it was.
void PanneauReglages::lit_pas(const std::string& texte) {
    const auto pas = lit_nombre(texte);
    if (pas && *pas > 0 && *pas <= kPasMax) edites_.pas = *pas / facteur(edites_, unites_);
}

void PanneauReglages::montre_pas() const {
    constexpr std::size_t kPlace = 32;
    std::array<char, kPlace> texte{};
    std::snprintf(texte.data(), texte.size(), "%.8g", edites_.pas * facteur(edites_, unites_));
    grx_change_texte(panneau_.bouton(kPas), texte.data());
}

void PanneauReglages::bascule(bool& valeur, int indice) const {
    valeur = !valeur;
    montre_bascule(valeur, indice);
}

void PanneauReglages::montre_bascule(bool valeur, int indice) const {
    const INT nobou = panneau_.bouton(indice);
    std::string marque = valeur ? "x" : " ";
    grx_change_texte(nobou, marque.data());
    if (valeur)
        grx_enfonce_bouton(nobou);
    else
        grx_relache_bouton(nobou);
}

std::string PanneauReglages::pas_ecrit() const {
    return panneau_.ouvert() ? texte_de(panneau_.bouton(kPas)) : "";
}

Suite PanneauReglages::applique() {
    lit_pas(texte_de(panneau_.bouton(kPas)));
    montre_pas();
    return Suite::Applique;
}

void PanneauReglages::dessine_apercu() const {
    const INT zone = panneau_.bouton(kApercu);
    if (zone < 0 || plumes_.empty()) return;
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_bouton(zone, &largeur, &hauteur);
    GRX_ATTRIBUTS_TRACER attrib{};
    attrib.coul_trace = plumes_[static_cast<std::size_t>(edites_.plume)].indice;
    attrib.type_trait = trait_grille(edites_.trait);
    grx_affecte_nobou_actif(zone);
    grx_alloue_image_bouton(zone, 0);
    fond(zone, largeur, hauteur);
    grille(zone, attrib, largeur, hauteur);
    texte(zone, agrandissement_textes(edites_.textes), largeur, hauteur);
    grx_desalloue_image_bouton();
    grx_affiche_bitmap_backingstore_bouton(zone);
}

} // namespace atelier
