// Title and border of a window, which the user takes away and brings back.
#ifndef ATELIER_DECORATIONS_H
#define ATELIER_DECORATIONS_H

#include "host_t.h"

namespace atelier {

class Decorations {
  public:
    void bascule_titre(INT nofen);
    void bascule_bord(INT nofen);
    bool titre() const { return !sans_titre_; }
    bool bord() const { return !sans_bord_; }

  private:
    bool sans_titre_ = false, sans_bord_ = false;
};

} // namespace atelier

#endif
