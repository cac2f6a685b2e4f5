#include "feuille.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "bandeau.h"
#include "fonctions.h"
#include "glissement.h"
#include "grx_plus_menus.h"
#include "palette.h"
#include "rendu.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr INT kMoletteHaut = 4, kMoletteBas = 5; // the wheel comes as two more mouse buttons
constexpr double kZoomMolette = 1.2, kZoomTouche = 1.5;
constexpr double kPasTouche = 0.1; // of the window that an arrow key moves

enum Fleche { kGauche = 0xFF51, kHaut = 0xFF52, kDroite = 0xFF53, kBas = 0xFF54 };

} // namespace

bool Feuille::cree(INT mere, int largeur, int gauche) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_GRAPHIQUE;
    f.attrib = GRX_FEN_ATT_FILLE | GRX_FEN_ATT_VISIBLE;
    f.fen_mere = mere;
    f.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_DROITE;
    f.droite = largeur - gauche;
    if (grx_cree_fenetre(&f) != 0) return false;
    mere_ = mere;
    nofen_ = f.nofen;
    gauche_ = gauche;
    return true;
}

bool Feuille::prend(const GRX_EVENEMENT& e) {
    switch (e.type_evenement) {
    case GRX_EVT_AFFICHAGE:
    case GRX_EVT_CHGT_TAILLE: return taille_changee(e.affichage.nofen);
    case GRX_EVT_BOUTON_APPUI:
        if (!tient(e.bouton_appui.nofen)) return false;
        appui(e.bouton_appui);
        return true;
    case GRX_EVT_SOURIS_BOUGE:
        if (!tient(e.souris_bouge.nofen)) return false;
        bouge(e.souris_bouge);
        return true;
    case GRX_EVT_BOUTON_RELACHE: return relache(e.bouton_relache);
    case GRX_EVT_CARAC_APPUI: return touche(e.carac_appui.carac);
    default: return false;
    }
}

// --- mouse and keys -----------------------------------------------------------------------------------------------

// Pointer events count y from the bottom of the window, drawing counts it from the top.
Point Feuille::du_haut(INT x, INT y) const {
    return {static_cast<double>(x), static_cast<double>(hauteur_fenetre_ - y)};
}

void Feuille::appui(const GRX_BOUTON_APPUI& e) {
    const Point p = du_haut(e.x, e.y);
    if (elastique_.tendu()) return;
    switch (e.bouton) {
    case GRX_SOURIS_GAUCHE: // over a picture that shows what is true
        if (peint()) annonce_image();
        return elastique_.debut(nofen_, p, a_mesurer_ ? Elastique::Forme::Ligne : Elastique::Forme::Cadre);
    case GRX_SOURIS_DROITE: return ouvre_menu(e);
    case GRX_SOURIS_MILIEU:
        prise_ = p;
        grx_change_curseur(GRX_CURS_DEPLACE, mere_);
        return;
    case kMoletteHaut: vue_.zoome(kZoomMolette, p); break;
    case kMoletteBas: vue_.zoome(1 / kZoomMolette, p); break;
    default: return;
    }
    perime();
}

void Feuille::ouvre_menu(const GRX_BOUTON_APPUI& e) {
    menu_ = du_haut(e.x, e.y);
    grx_ouvre_menu_contextuel(nofen_, "MNU_FEUI.DAT", "#:ZONE_MENU_FEUILLE", e.x, e.y);
}

void Feuille::bouge(const GRX_SOURIS_BOUGE& e) {
    const Point p = du_haut(e.x, e.y);
    pointeur_ = p;
    if (elastique_.tendu()) elastique_.tend(p, cote(p));
    if (!prise_) return;
    vue_.deplace(p - *prise_);
    prise_ = p;
    a_glisser_ = true;
}

bool Feuille::relache(const GRX_BOUTON_RELACHE& e) {
    if (e.bouton == GRX_SOURIS_GAUCHE && elastique_.tendu()) {
        const auto boite = elastique_.fin();
        if (std::exchange(a_mesurer_, false)) grx_change_curseur(GRX_CURS_CROIX_X, mere_);
        if (boite && elastique_.forme() == Elastique::Forme::Cadre) zoome_dans(*boite);
        return true;
    }
    if (e.bouton != GRX_SOURIS_MILIEU || !prise_) return false;
    prise_.reset();
    grx_change_curseur(GRX_CURS_CROIX_X, mere_);
    return true;
}

void Feuille::zoome_dans(const Boite& pixels) {
    vue_.cadre(Boite::entre(vue_.vers_dessin(pixels.min), vue_.vers_dessin(pixels.max)));
    perime();
}

// What the rubber band measures: the sizes of a frame, the length of a line.
std::string Feuille::cote(Point p) const {
    const Point a = cotes().lues(vue_.vers_dessin(elastique_.fixe())), b = cotes().lues(vue_.vers_dessin(p));
    if (elastique_.forme() == Elastique::Forme::Ligne) return cotes().texte(norme(b - a)) + cotes().unite();
    return cotes().texte(std::abs(b.x - a.x)) + " x " + cotes().texte(std::abs(b.y - a.y)) + cotes().unite();
}

// The next press begins a line instead of a frame.
void Feuille::mesure() {
    elastique_.efface();
    a_mesurer_ = true;
    grx_change_curseur(GRX_CURS_CROIX, mere_);
}

// Any key gives a rubber band up.
bool Feuille::touche(INT carac) {
    const double dx = kPasTouche * vue_.largeur(), dy = kPasTouche * vue_.hauteur();
    elastique_.efface();
    switch (carac) {
    case kGauche: vue_.deplace({dx, 0}); break;
    case kDroite: vue_.deplace({-dx, 0}); break;
    case kHaut: vue_.deplace({0, dy}); break;
    case kBas: vue_.deplace({0, -dy}); break;
    default: return false;
    }
    a_glisser_ = true;
    return true;
}

bool Feuille::action(INT fonction) {
    switch (fonction) {
    case kFonctionMesurer: mesure(); return true;
    case kFonctionToutVoir: cadre_tout(); break;
    case kFonctionAgrandir: vue_.zoome(kZoomTouche, vue_.milieu()); break;
    case kFonctionReduire: vue_.zoome(1 / kZoomTouche, vue_.milieu()); break;
    default: return false;
    }
    perime();
    return true;
}

void Feuille::cadre_tout() {
    vue_.cadre_tout(plan_.dessin.boite);
    perime();
}

void Feuille::centre_sur(Point p) {
    vue_.centre_sur(p);
    perime();
}

void Feuille::fixe_rapport(double rapport) {
    vue_.fixe_rapport(rapport);
    perime();
}

std::optional<Point> Feuille::point_montre() const {
    return pointeur_ ? std::optional(vue_.vers_dessin(*pointeur_)) : std::nullopt;
}

// --- size ---------------------------------------------------------------------------------------------------------

bool Feuille::taille_changee(INT nofen) {
    if (nofen == mere_)
        place();
    else if (tient(nofen))
        prend_taille();
    else
        return false;
    return true;
}

void Feuille::retaille() {
    place();
    prend_taille();
}

// The sheet keeps to the right of the tools, whatever the size of the window.
void Feuille::place() {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(mere_, &largeur, &hauteur);
    grx_change_taille_fenetre_fille(nofen_, std::max(1, largeur - gauche_), hauteur);
}

// Drawn at once: the exposure that follows shows the backing picture, which a new size has emptied.
void Feuille::prend_taille() {
    INT largeur = 0, hauteur = 0;
    elastique_.efface();
    grx_recup_taille_fenetre_fille(nofen_, &largeur, &hauteur);
    largeur_fenetre_ = largeur;
    hauteur_fenetre_ = hauteur;
    vue_.taille(largeur, hauteur - Bandeau::kHauteur);
    if (!cadree_) vue_.cadre_tout(plan_.dessin.boite);
    cadree_ = true;
    redessine();
    annonce_image();
}

// --- picture ------------------------------------------------------------------------------------------------------

bool Feuille::peint() {
    if (!a_redessiner_ && !a_glisser_) return false;
    if (a_redessiner_)
        redessine();
    else
        glisse();
    return true;
}

void Feuille::annonce_image() {
    static const bool mesure = std::getenv("ATELIER_MESURE") != nullptr;
    if (!mesure) return;
    XSync(x11_disp, False);
    std::puts("image");
    std::fflush(stdout);
}

// Unseen into the backing picture, then shown at once; exposures show it again without asking.
void Feuille::redessine() {
    elastique_.efface();
    redessine_partie(toute());
    a_jour();
}

// The strip at the foot covers some of the window; moving the picture may uncover that.
Boite Feuille::toute() const {
    return Boite::entre({}, {1.0 * largeur_fenetre_, 1.0 * hauteur_fenetre_});
}

void Feuille::redessine_partie(const Boite& partie) {
    grx_affecte_nofen_active(nofen_);
    grx_alloue_image(nofen_);
    trace(partie);
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(nofen_);
}

// The picture moves, and only what comes to light is drawn.
void Feuille::glisse() {
    const auto ecart = peinte_ ? vue_.deplacement_depuis(*peinte_) : std::nullopt;
    const auto parties = ecart ? glisse_image(nofen_, *ecart) : std::nullopt;
    if (!parties) return redessine();
    elastique_.efface();
    for (const Boite& partie : *parties) {
        const Decoupe decoupe(nofen_, partie);
        redessine_partie(partie);
    }
    a_jour();
}

void Feuille::a_jour() {
    a_redessiner_ = a_glisser_ = false;
    peinte_ = vue_;
}

void Feuille::trace(const Boite& partie) const {
    const Reglages& r = plan_.reglages;
    Plume plume{nofen_, {}};
    plume.attrib.coul_trace = plan_.plume().indice;
    plume.attrib.type_trait = trait_grille(r.trait);
    if (r.grille) trace_grille(plume, vue_, r.pas);
    trace_dessin({nofen_, plan_.dessin, plan_.indices, agrandissement_textes(r.textes)}, vue_, partie);
    Plume notes{nofen_, {}};
    notes.attrib.coul_trace = kCoulElastique;
    trace_notes(notes, plan_.notes.toutes(), vue_);
}

Image Feuille::image() {
    Image r{vue_.largeur(), vue_.hauteur(), {}};
    r.points.resize(static_cast<std::size_t>(r.largeur) * static_cast<std::size_t>(r.hauteur));
    redessine();
    grx_affecte_nofen_active(nofen_);
    grx_recup_image(0, 0, r.largeur, r.hauteur, r.points.data());
    if (grx_recup_profondeur_ecran() == GRX_PROFONDEUR_8)
        grx_image_system_to_oxa(r.largeur, r.hauteur, r.points.data());
    return r;
}

} // namespace atelier
