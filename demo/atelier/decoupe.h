// Cutting to a box of the screen, so that coordinates fit what a drawing request can carry.
#ifndef ATELIER_DECOUPE_H
#define ATELIER_DECOUPE_H

#include <functional>
#include <vector>

#include "geometrie.h"

namespace atelier {

// Gives the parts of an open line that lie in the box. periode: length after which the line's dashes repeat; a part
// that begins in the middle of a segment begins early enough for its dashes to stay where they are, 0 = solid.
void decoupe_ligne(const std::vector<Point>& ligne, const Boite& boite, int periode,
    const std::function<void(const std::vector<Point>&)>& recoit);

// The part of a closed outline that lies in the box.
std::vector<Point> decoupe_surface(std::vector<Point> contour, const Boite& boite);

} // namespace atelier

#endif
