// The colours of the screen: the sheet, the status strip, and those of the drawing.
#ifndef ATELIER_PALETTE_H
#define ATELIER_PALETTE_H

#include <vector>

#include "dessin.h"

namespace atelier {

// Indices of the reserved colours, as this program sets them.
enum Reserve {
    kCoulFond = 0,      // sheet
    kCoulMire = 1,      // crosshair
    kCoulBandeau = 2,   // status strip
    kCoulTexte = 3,     // its texts
    kCoulElastique = 4, // rubber band
    kCoulFilet = 5,     // line above the strip
    kCoulDiscret = 6,   // less important texts
    kCoulGris = 7,      // windows themselves
};

// Sets the reserved colours; before start-up.
void pose_reserve();

// Gives the drawing colours to those of a drawing, after start-up. Returns the colour index of each.
std::vector<int> pose_couleurs(const std::vector<Rgb>& couleurs);

} // namespace atelier

#endif
