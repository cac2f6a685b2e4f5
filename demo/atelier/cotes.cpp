#include "cotes.h"

#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

// How many times smaller than in nature the drawing is seen, 0 when its unit has no length.
double echelle_papier(int unites, double pixels_par_unite) {
    const double mm = millimetres(unites);
    const double mm_par_pixel = grx_recup_lar_ecran() > 0 ? 1.0 * grx_recup_lar_ecran_mm() / grx_recup_lar_ecran() : 0;
    return mm > 0 && mm_par_pixel > 0 ? mm / (pixels_par_unite * mm_par_pixel) : 0;
}

} // namespace

Cotes::Cotes(const Plan& plan, double pixels_par_unite)
    : plan_(plan), mesure_(plan.mesure()), pixels_par_unite_(pixels_par_unite) {}

Point Cotes::accrochees(Point p) const {
    return lues(accroche(plan_.reglages, p));
}

std::string Cotes::texte(double lue) const {
    return nombre(lue, decimales_pour(pixels_par_unite_ / mesure_.facteur));
}

std::string Cotes::position(Point p) const {
    const Point q = accrochees(p);
    return "X " + texte(q.x) + "   Y " + texte(q.y) + unite();
}

std::string Cotes::pas() const {
    return texte(plan_.reglages.pas * mesure_.facteur);
}

std::string Cotes::echelle() const {
    return texte_echelle(echelle_papier(plan_.dessin.unites, pixels_par_unite_), pixels_par_unite_);
}

} // namespace atelier
