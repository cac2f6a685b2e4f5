// The state of the menus' entries: which of them can be chosen, and which have a mark. The library is told what changed.
#ifndef ATELIER_ETAT_MENUS_H
#define ATELIER_ETAT_MENUS_H

#include <map>

#include "host_t.h"

namespace atelier {

class EtatMenus {
  public:
    void permet(INT fonction, bool possible);
    void coche(INT fonction, bool marquee);

  private:
    std::map<INT, bool> possibles_, marquees_;
};

} // namespace atelier

#endif
