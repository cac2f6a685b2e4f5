// The rubber band over a window, between the corner where the button went down and the pointer. It is drawn with
// exclusive or on the screen only: the same again removes it.
#ifndef ATELIER_ELASTIQUE_H
#define ATELIER_ELASTIQUE_H

#include <optional>

#include "geometrie.h"
#include "host_t.h"

namespace atelier {

class Elastique {
  public:
    bool tendu() const { return coins_.has_value(); }

    void debut(INT nofen, Point p);
    void tend(Point p);
    // Takes it away. Returns its box, nothing when it is so small that the user clicked.
    std::optional<Boite> fin();
    // What it lay on was drawn anew.
    void oublie() { coins_.reset(); }

  private:
    struct Coins {
        Point fixe, mobile;
    };
    void trace() const;

    INT nofen_ = -1;
    std::optional<Coins> coins_;
};

} // namespace atelier

#endif
