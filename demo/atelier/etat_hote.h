// The state that panels and the library's lists read: values by the index of their item.
#ifndef ATELIER_ETAT_HOTE_H
#define ATELIER_ETAT_HOTE_H

#include <string>
#include <vector>

#include "host_g.h"
#include "host_t.h"

namespace atelier {

// Integers are istate of the host.
double reel(int indice);
void pose_reel(int indice, double valeur);

// Gives the library the tables of its lists; before the first list.
void pose_listes();

// Entries of a list, and the places from 0 of those that are selected.
void pose_liste(int clef, const std::vector<std::string>& entrees, const std::vector<int>& choisies);

} // namespace atelier

#endif
