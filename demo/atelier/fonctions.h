// The numbers of what atelier can do: menus, keys of menus and icons name the same action by the same number.
#ifndef ATELIER_FONCTIONS_H
#define ATELIER_FONCTIONS_H

namespace atelier {

enum Fonction {
    kFonctionToutVoir = 301,
    kFonctionAgrandir = 302,
    kFonctionReduire = 303,
    kFonctionCouchesToutes = 311,
    kFonctionCouchesAucune = 312,
    kFonctionModuleCommun = 401, // and the two that follow
    kFonctionModuleMeca = 402,
    kFonctionModuleArch = 403,
    kFonctionChampX = 501,
    kFonctionChampY = 502,
    kFonctionZoom = 503,
    kFonctionQuitter = 999,
};

} // namespace atelier

#endif
