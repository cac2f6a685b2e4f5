// The order in which objects are drawn: runs of one colour, where that shows nothing else.
#ifndef ATELIER_ORDRE_H
#define ATELIER_ORDRE_H

#include <vector>

#include "dessin.h"

namespace atelier {

// Fills first; then broken lines, whose gaps cover what is below; solid lines; points and texts on top. Within each of
// these, objects that touch keep the order of the drawing unless both are solid and of one colour, and all others are
// put together by colour, width and style, neighbours beside each other. boite: around all of them.
void ordonne(std::vector<Objet>& objets, const Boite& boite);

// The box of an object, that of a text as large as texts are ever shown.
Boite boite_au_plus(const Objet& o);

// A box seen so many times larger about its middle.
Boite agrandie(const Boite& boite, double k);

} // namespace atelier

#endif
