#include "vue.h"

#include <algorithm>

namespace atelier {

namespace {

constexpr double kMarge = 0.94;                       // of the window that the whole drawing fills
constexpr double kPlusPetit = 1e-3, kPlusGrand = 1e6; // zoom, the whole drawing being 1

} // namespace

void Vue::taille(int largeur, int hauteur) {
    largeur_ = std::max(1, largeur);
    hauteur_ = std::max(1, hauteur);
}

double Vue::echelle_pour(const Boite& boite) const {
    constexpr double kNul = 1e-9;
    const double l = std::max(boite.largeur(), kNul), h = std::max(boite.hauteur(), kNul);
    if (boite.largeur() < kNul && boite.hauteur() < kNul) return 1;
    return std::min(largeur_ / l, hauteur_ / h);
}

double Vue::bornee(double echelle) const {
    return std::clamp(echelle, reference_ * kPlusPetit, reference_ * kPlusGrand);
}

void Vue::cadre_tout(const Boite& boite) {
    centre_ = boite.centre();
    echelle_ = reference_ = kMarge * echelle_pour(boite);
}

void Vue::cadre(const Boite& boite) {
    if (boite.vide()) return;
    centre_ = boite.centre();
    echelle_ = bornee(echelle_pour(boite));
}

void Vue::zoome(double facteur, Point ecran) {
    const Point fixe = vers_dessin(ecran);
    echelle_ = bornee(echelle_ * facteur);
    centre_ = centre_ + (fixe - vers_dessin(ecran));
}

void Vue::deplace(Point pixels) {
    centre_ = centre_ - Point{pixels.x / echelle_, -pixels.y / echelle_};
}

Matrice Vue::vers_ecran() const {
    const double k = echelle_;
    return {k, 0, 0, -k, milieu().x - k * centre_.x, milieu().y + k * centre_.y};
}

Point Vue::vers_dessin(Point ecran) const {
    return {centre_.x + (ecran.x - milieu().x) / echelle_, centre_.y - (ecran.y - milieu().y) / echelle_};
}

Boite Vue::visible() const {
    return Boite::entre(vers_dessin({0, 0}), vers_dessin(2 * milieu()));
}

} // namespace atelier
