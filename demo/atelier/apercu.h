// Pictures as colour indices, and the small one that goes with a drawing.
#ifndef ATELIER_APERCU_H
#define ATELIER_APERCU_H

#include <vector>

#include "host_t.h"

namespace atelier {

// Top row first.
struct Image {
    int largeur = 0, hauteur = 0;
    std::vector<uchar> points;
};

constexpr int kCoteApercu = 80; // pixels, of the picture that file dialogs show

// The whole picture within a square of this side, its proportions kept; thin lines stay. fond: the index that counts
// as empty. A picture that fits, or has no point, is left as it is.
Image reduite(const Image& image, int cote, uchar fond);

} // namespace atelier

#endif
