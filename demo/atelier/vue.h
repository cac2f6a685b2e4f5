// What part of the drawing is seen, and where its points lie on the screen (pixels, y downwards).
#ifndef ATELIER_VUE_H
#define ATELIER_VUE_H

#include <optional>

#include "geometrie.h"

namespace atelier {

struct Ecart {
    int x = 0, y = 0; // pixels, y downwards
    bool operator==(const Ecart&) const = default;
};

class Vue {
  public:
    // Keeps the centre and the scale.
    void taille(int largeur, int hauteur);
    // Shows all of a box with a margin around, and takes its scale as the measure of how far zooming goes.
    void cadre_tout(const Boite& boite);
    // Shows all of a box of the drawing.
    void cadre(const Boite& boite);
    // Magnifies about a point of the screen, which keeps its place.
    void zoome(double facteur, Point ecran);
    // Moves the picture by whole pixels, the nearest to those given.
    void deplace(Point pixels);

    int largeur() const { return largeur_; }
    int hauteur() const { return hauteur_; }
    double echelle() const { return echelle_; }              // pixels per unit
    double rapport() const { return echelle_ / reference_; } // to the whole drawing
    void fixe_rapport(double rapport) { zoome(rapport / this->rapport(), milieu()); }
    Point centre() const { return centre_; } // in the drawing
    void centre_sur(Point p) { pose(p, echelle_); }
    Point milieu() const { return {largeur_ / 2.0, hauteur_ / 2.0}; }
    Matrice vers_ecran() const;
    // The screen of a picture lies at a place of a sheet that stays as it is while the picture is moved: what is drawn
    // on the sheet in whole pixels looks the same wherever the screen lies. portee: the part of the sheet that screens
    // of this sheet can lie on, with some more around.
    Matrice vers_feuille() const;
    Ecart decalage() const { return decalage_; } // from the sheet to the screen
    Boite portee() const;
    // How far a picture was moved since an older view of the same sheet; nothing when the sheet is another one.
    std::optional<Ecart> deplacement_depuis(const Vue& avant) const;
    Point vers_dessin(Point ecran) const;
    Boite visible() const; // in the drawing

  private:
    double echelle_pour(const Boite& boite) const;
    double bornee(double echelle) const;
    // A new sheet.
    void pose(Point centre, double echelle);
    double marge() const;

    Point centre_;
    Point origine_; // of the drawing, on the sheet
    Ecart decalage_;
    double echelle_ = 1, reference_ = 1;
    int largeur_ = 1, hauteur_ = 1;
};

} // namespace atelier

#endif
