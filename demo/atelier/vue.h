// What part of the drawing is seen, and where its points lie on the screen (pixels, y downwards).
#ifndef ATELIER_VUE_H
#define ATELIER_VUE_H

#include "geometrie.h"

namespace atelier {

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
    // Moves the picture by pixels.
    void deplace(Point pixels);

    int largeur() const { return largeur_; }
    int hauteur() const { return hauteur_; }
    double echelle() const { return echelle_; }              // pixels per unit
    double rapport() const { return echelle_ / reference_; } // to the whole drawing
    void fixe_rapport(double rapport) { zoome(rapport / this->rapport(), milieu()); }
    Point centre() const { return centre_; } // in the drawing
    void centre_sur(Point p) { centre_ = p; }
    Point milieu() const { return {largeur_ / 2.0, hauteur_ / 2.0}; }
    Matrice vers_ecran() const;
    Point vers_dessin(Point ecran) const;
    Boite visible() const; // in the drawing

  private:
    double echelle_pour(const Boite& boite) const;
    double bornee(double echelle) const;

    Point centre_;
    double echelle_ = 1, reference_ = 1;
    int largeur_ = 1, hauteur_ = 1;
};

} // namespace atelier

#endif
