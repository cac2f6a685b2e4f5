// The status strip at the foot of the window.
#ifndef ATELIER_BANDEAU_H
#define ATELIER_BANDEAU_H

#include <string>

#include "xt_ent_t.h"

namespace atelier {

class Bandeau {
  public:
    static constexpr int kHauteur = 28; // pixels

    // Makes the strip in window mere. Returns false when it cannot be made.
    bool cree(INT mere);
    // Draws itself anew when its window comes to light or is sized. Returns false for other events.
    bool prend(const GRX_EVENEMENT& e);

    // What it shows: the position on the left, then the scale and a message, and the name of the drawing on the
    // right; each as far as there is room.
    struct Contenu {
        std::u32string position, echelle, message, nom;
        bool operator==(const Contenu&) const = default;
    };
    // Draws it when it differs from what is shown.
    void montre(const Contenu& contenu);
    // Draws it in any case.
    void redessine();

  private:
    INT nofen_ = -1;
    Contenu contenu_;
};

} // namespace atelier

#endif
