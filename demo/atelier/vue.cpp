#include "vue.h"

#include <algorithm>

namespace atelier {

namespace {

constexpr double kMarge = 0.94;                       // of the window that the whole drawing fills
constexpr double kMargeMax = 2048;                    // pixels around a screen that its sheet holds
constexpr double kPixelsMax = 32000;                  // that a drawing request can name
constexpr double kPlusPetit = 1e-3, kPlusGrand = 1e6; // zoom, the whole drawing being 1

} // namespace

void Vue::taille(int largeur, int hauteur) {
    largeur_ = std::max(1, largeur);
    hauteur_ = std::max(1, hauteur);
    pose(centre_, echelle_);
}

void Vue::pose(Point centre, double echelle) {
    centre_ = centre;
    echelle_ = echelle;
    origine_ = milieu() - Point{echelle_ * centre_.x, -echelle_ * centre_.y};
    decalage_ = {};
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
    reference_ = kMarge * echelle_pour(boite);
    pose(boite.centre(), reference_);
}

void Vue::cadre(const Boite& boite) {
    if (boite.vide()) return;
    pose(boite.centre(), bornee(echelle_pour(boite)));
}

void Vue::zoome(double facteur, Point ecran) {
    const Point fixe = vers_dessin(ecran);
    echelle_ = bornee(echelle_ * facteur);
    pose(centre_ + (fixe - vers_dessin(ecran)), echelle_);
}

void Vue::deplace(Point pixels) {
    const auto entier = [](double d) { return static_cast<int>(std::lround(std::clamp(d, -kPixelsMax, kPixelsMax))); };
    decalage_ = {decalage_.x + entier(pixels.x), decalage_.y + entier(pixels.y)};
    const Point p = milieu() - origine_ - Point{1.0 * decalage_.x, 1.0 * decalage_.y};
    centre_ = {p.x / echelle_, -p.y / echelle_};
    if (std::max(std::abs(decalage_.x), std::abs(decalage_.y)) > marge() / 2) pose(centre_, echelle_);
}

double Vue::marge() const {
    return std::clamp((kPixelsMax - std::max(largeur_, hauteur_)) / 2, 128.0, kMargeMax);
}

Matrice Vue::vers_feuille() const {
    return {echelle_, 0, 0, -echelle_, origine_.x, origine_.y};
}

Matrice Vue::vers_ecran() const {
    Matrice m = vers_feuille();
    m.e += decalage_.x;
    m.f += decalage_.y;
    return m;
}

Boite Vue::portee() const {
    const Point bord{marge(), marge()};
    return Boite::entre(-1 * bord, 2 * milieu() + bord);
}

std::optional<Ecart> Vue::deplacement_depuis(const Vue& avant) const {
    if (avant.echelle_ != echelle_ || avant.origine_ != origine_ || avant.largeur_ != largeur_
        || avant.hauteur_ != hauteur_)
        return std::nullopt;
    return Ecart{decalage_.x - avant.decalage_.x, decalage_.y - avant.decalage_.y};
}

Point Vue::vers_dessin(Point ecran) const {
    return {centre_.x + (ecran.x - milieu().x) / echelle_, centre_.y - (ecran.y - milieu().y) / echelle_};
}

Boite Vue::visible() const {
    return Boite::entre(vers_dessin({0, 0}), vers_dessin(2 * milieu()));
}

} // namespace atelier
