// The parts table: what a drawing holds, counted by layer, kind or colour.
#ifndef ATELIER_NOMENCLATURE_H
#define ATELIER_NOMENCLATURE_H

#include <array>
#include <string>
#include <vector>

#include "dessin.h"

namespace atelier {

enum class Critere { Couche, Nature, Couleur };

struct LigneTable {
    std::string nom;
    int lignes = 0, arcs = 0, textes = 0, autres = 0;
    double longueur = 0; // of lines and arcs, in units of the drawing
};

// One line a group, in the order of their names, then the sum of all.
std::vector<LigneTable> nomenclature(const Dessin& dessin, Critere critere);

struct Colonne {
    const char* titre;
    int caracteres;
};
constexpr std::array<Colonne, 6> kColonnes{
    {{"Groupe", 24}, {"Lignes", 9}, {"Arcs", 9}, {"Textes", 9}, {"Autres", 9}, {"Longueur", 18}}};

// What lengths are told in: units shown per unit of the drawing, and their symbol.
struct Mesure {
    double facteur = 1;
    std::string symbole;
};

// What stands in a column of a line.
std::string case_(const LigneTable& ligne, std::size_t colonne, const Mesure& mesure);
// As wide as its column: the name on the left, numbers on the right, a blank on either side.
std::string aligne(std::string texte, std::size_t colonne);

// The whole table as lines of text, under a heading.
std::string texte_nomenclature(const std::string& entete, const std::vector<LigneTable>& lignes, const Mesure& mesure);

} // namespace atelier

#endif
