// A panel of the panel files in a window of its own.
#ifndef ATELIER_PANNEAU_H
#define ATELIER_PANNEAU_H

#include <vector>

#include "host_t.h"
#include "panneaux_lecture.h"
#include "suite.h"

namespace atelier {

class Panneau {
  public:
    Panneau(Panneaux& panneaux, int numero) : panneaux_(panneaux), numero_(numero) {}

    // Makes the window and the items, with what the state of the application holds. x, y: the lower left corner, from
    // that of the screen. Returns false when no file describes the panel or the window cannot be made.
    bool ouvre(INT mere, INT x, INT y);
    void ferme();
    // The window went by itself.
    void oublie();

    bool ouvert() const { return nofen_ >= 0; }
    bool tient(INT nofen) const { return ouvert() && nofen == nofen_; }
    INT nofen() const { return nofen_; }
    int numero() const { return numero_; }
    const PANEL* description() const { return panneaux_.panneau(numero_); }

    // The first button of the item with this index that is no label, -1 without one.
    INT bouton(int indice) const;
    // Makes its buttons insensitive.
    void desactive(int indice) const;

  private:
    bool cree_fenetre(const PANEL& p, INT mere, INT x, INT y);
    std::vector<INT> boutons(int indice) const;
    void cree_item(const ITEM_PANEL& item, INT numero) const;

    Panneaux& panneaux_;
    int numero_;
    INT nofen_ = -1;
};

} // namespace atelier

#endif
