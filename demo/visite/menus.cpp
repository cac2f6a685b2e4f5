#include "menus.h"

#include "lieux.h"

namespace visite {

namespace {

constexpr Pixels kEcart{4, 6}; // that a menu may lie beside and below its title

} // namespace

// Menus that are down.
std::vector<Window> Menus::ouverts() const {
    std::vector<Window> r;
    for (const Window w : ecran_.filles(ecran_.racine())) {
        XWindowAttributes a{};
        if (XGetWindowAttributes(ecran_.d(), w, &a) != 0 && a.override_redirect && a.map_state == IsViewable
            && a.c_class == InputOutput && a.width > 20 && ecran_.titre(w).empty() && !connues_.contains(w))
            r.push_back(w);
    }
    return r;
}

// Those of the manager are there before the menus.
void Menus::note() {
    connues_.clear();
    for (const Window w : ouverts()) connues_.insert(w);
}

Window Menus::attend_un(const std::string& quoi) const {
    std::vector<Window> m;
    patiente(quoi, [&] { return !(m = ouverts()).empty(); });
    return m.front();
}

void Menus::attend_fin() const {
    patiente("la fin du menu", [&] { return ouverts().empty(); });
}

// Titles of the menu bar, from left to right.
std::vector<Cadre> Menus::titres(Window fenetre) const {
    std::vector<Cadre> r;
    const Cadre c = ecran_.place(fenetre);
    const auto visite_ = [&](auto&& encore, Window w) -> void {
        const Cadre f = ecran_.place(w);
        if (ecran_.visible(w) && f.y == c.y && f.hauteur == kBarre)
            for (const Window t : ecran_.filles(w)) r.push_back(ecran_.place(t));
        for (const Window fille : ecran_.filles(w)) encore(encore, fille);
    };
    visite_(visite_, fenetre);
    std::sort(r.begin(), r.end(), [](const Cadre& a, const Cadre& b) { return a.x < b.x; });
    return r;
}

// Opens a menu by its title and checks that it hangs below it.
Cadre Menus::deroule(Window fenetre, std::size_t numero) {
    const std::vector<Cadre> t = titres(fenetre);
    if (numero >= t.size()) throw Echec("titres de menus: attendu plus de " + std::to_string(numero));
    note();
    ecran_.va(t[numero].x + t[numero].largeur / 2, t[numero].y + t[numero].hauteur / 2);
    ecran_.clic(1);
    const Cadre menu = ecran_.place(attend_un("le menu"));
    const int sous = t[numero].y + t[numero].hauteur;
    if (std::abs(menu.x - t[numero].x) > kEcart.x || std::abs(menu.y - sous) > kEcart.y)
        throw Echec("place du menu: attendu sous le titre " + texte_de(t[numero]) + ", vu " + texte_de(menu));
    return menu;
}

void Menus::choisit(const Cadre& menu, int entree) {
    ecran_.va(menu.x + menu.largeur / 3, menu.y + 2 + entree * kEntreeDeMenu + kEntreeDeMenu / 2);
    ecran_.clic(1);
    attend_fin();
}

} // namespace visite
