// The colours of layers and pens: the library's palette window, which keeps what it shows.
#ifndef ATELIER_PANNEAU_COULEURS_H
#define ATELIER_PANNEAU_COULEURS_H

#include "plan.h"
#include "xt_ent_t.h"

namespace atelier {

class PanneauCouleurs {
  public:
    // With the colour chosen in the plan.
    static void ouvre(INT mere, const Plan& plan);
    static void ferme();
    static bool tient(INT nofen);

    // The open window turns to the colour chosen now.
    static void suit(const Plan& plan);
    // Events of its window change the colours of the plan. Returns false for other events.
    static bool prend(const GRX_EVENEMENT& e, Plan& plan);
};

} // namespace atelier

#endif
