// Curves of drawings as paths.
#ifndef ATELIER_COURBES_H
#define ATELIER_COURBES_H

#include <vector>

#include "geometrie.h"

namespace atelier {

// Circle, or arc counter-clockwise between two angles in radians.
Chemin cercle(Point centre, double rayon);
Chemin arc_de_cercle(Point centre, double rayon, double debut, double fin);

// Ellipse with half axis axe, the other one being ratio times as long; parameters in radians.
Chemin ellipse(Point centre, Point axe, double ratio, double debut, double fin);

struct Sommet {
    Point p;
    double fleche = 0; // bulge: tangent of a quarter of the angle of the arc to the next vertex
};

Chemin polyligne(const std::vector<Sommet>& sommets, bool fermee);

struct Nurbs {
    int degre = 3;
    std::vector<double> noeuds;
    std::vector<Point> poles;
    std::vector<double> poids; // as many as poles, or none
};

// Empty when the degree or the number of poles make no sense. Knots that do not fit are replaced by uniform ones.
Chemin nurbs(Nurbs courbe);

// A smooth curve through points.
Chemin courbe_par(const std::vector<Point>& points);

} // namespace atelier

#endif
