// What lies on the table: a drawing, its file, its colours on the screen, and what the user settled about it. The
// application has one, which its parts show and change.
#ifndef ATELIER_PLAN_H
#define ATELIER_PLAN_H

#include <filesystem>
#include <string>
#include <vector>

#include "dessin.h"
#include "nomenclature.h"
#include "notes.h"
#include "reglages.h"

namespace atelier {

// A colour that the user knows by a name: a pen, or that of a layer.
struct CouleurNommee {
    std::string nom;
    int indice = 0; // of the screen
};

struct Plan {
    Plan(Dessin dessin_lu, const std::filesystem::path& fichier);

    // Another drawing in place of this one, after start-up. Settings that belong to a drawing go with the old one.
    void remplace(Dessin dessin_lu, const std::filesystem::path& fichier);
    // Gives the colours of the screen to the drawing, after start-up.
    void prend_couleurs();

    std::string nom() const { return chemin.filename().string(); }
    // What lengths are told in.
    Mesure mesure() const;

    // Pens of the strip, which every screen has, then the most used colours of the drawing.
    std::vector<CouleurNommee> plumes() const;
    CouleurNommee plume() const; // that of the grid
    // The colour of the chosen layer, or else of the pen.
    CouleurNommee couleur_choisie() const;

    void montre_calques(bool visibles);

    Dessin dessin;
    std::filesystem::path chemin;
    std::vector<int> indices; // of the screen, one for each colour of the drawing
    Reglages reglages;
    Notes notes;
    int calque_choisi = -1;
};

} // namespace atelier

#endif
