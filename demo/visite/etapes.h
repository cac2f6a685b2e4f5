// The steps of the long use, each a thing that a user does with atelier from its sheet and back to it.
#ifndef VISITE_ETAPES_H
#define VISITE_ETAPES_H

#include "session.h"

namespace visite::etapes {

constexpr const char* kCommandes = "q-f"; // typed into fields: on the sheet these are commands

std::string nombre_court(double v);

// The main window.
void champs(Session& s);
void mots(Session& s);
void pave(Session& s);
void icones(Session& s);
void raccourcis(Session& s);
void touches(Session& s);
void mnemoniques(Session& s);
void menus(Session& s);
void modules(Session& s);
void souris(Session& s);
void zoom(Session& s);
void liste(Session& s);
void taille(Session& s);
void iconifie(Session& s);
void decorations(Session& s);

// Panels.
void reglages(Session& s);
void couches(Session& s);
void nomenclature(Session& s);
void palette(Session& s);
void bande(Session& s);

// Files.
void image(Session& s);
void ouvrir(Session& s);
void editeur(Session& s);
void trace(Session& s);
void fermeture(Session& s);

} // namespace visite::etapes

#endif
