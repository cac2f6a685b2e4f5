// Menus that are down, told from the windows that the manager has without a title.
#ifndef VISITE_MENUS_H
#define VISITE_MENUS_H

#include <set>

#include "ecran.h"

namespace visite {

class Menus {
  public:
    explicit Menus(Ecran& ecran) : ecran_(ecran) {}

    // Those of the manager are there before the menus.
    void note();
    std::vector<Window> ouverts() const;
    Window attend_un(const std::string& quoi) const;
    void attend_fin() const;

    // Titles of the menu bar of a window, from left to right.
    std::vector<Cadre> titres(Window fenetre) const;
    // Opens a menu by its title and checks that it hangs below it.
    Cadre deroule(Window fenetre, std::size_t numero);
    // Clicks an entry of an open menu.
    void choisit(const Cadre& menu, int entree);

  private:
    Ecran& ecran_;
    std::set<Window> connues_;
};

} // namespace visite

#endif
