// Coordinates and the scale as the user reads them: in the unit settled, with as many decimals as the screen tells apart.
#ifndef ATELIER_COTES_H
#define ATELIER_COTES_H

#include <string>

#include "plan.h"

namespace atelier {

class Cotes {
  public:
    // pixels_par_unite: the scale at which the drawing of the plan is seen.
    Cotes(const Plan& plan, double pixels_par_unite);

    // From coordinates of the drawing to those that the user reads, and back.
    Point lues(Point p) const { return mesure_.facteur * p; }
    Point du_dessin(Point q) const { return 1 / mesure_.facteur * q; }
    // Where the coordinates keep to the grid, the nearest crossing.
    Point accrochees(Point p) const;

    std::string texte(double lue) const;
    std::string unite() const { return mesure_.symbole; }
    std::string position(Point p) const; // "X 1.20   Y 3.40 m"
    std::string pas() const;             // of the grid
    std::string echelle() const;         // of the screen, "1:50"

  private:
    const Plan& plan_;
    Mesure mesure_;
    double pixels_par_unite_;
};

} // namespace atelier

#endif
