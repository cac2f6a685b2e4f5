// galerie: every control, cursor, colour, line and icon of the library in one window, with the event records as they
// come.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

#include "host_f.h"
#include "host_g.h"
#include "xt_f.h"

namespace galerie {

constexpr INT kLargeur = 1200, kHauteur = 880;

// Function numbers: cursors 2000 + number, icon sizes 2100 + format.
constexpr INT kFonctionCurseur = 2000;
constexpr INT kFonctionIcones = 2100;
constexpr INT kFonctionDialogue = 2200;   // and the two that follow
constexpr INT kFonctionDecoration = 2210; // and the three that follow
constexpr INT kFonctionBande = 2220;      // arrow of the first row, and of the second
constexpr INT kFonctionQuitter = 999;

template <std::size_t N>
void copie(char (&champ)[N], std::string_view texte) {
    std::snprintf(champ, N, "%.*s", static_cast<int>(texte.size()), texte.data());
}

struct Boite {
    INT x, y, largeur, hauteur;
};

// The record of a control at its place in a window, still to be created.
GRX_BOUTON decrit(INT fenetre, INT type, INT attrib, const Boite& boite);

// A control in a window; its number, or a negative result.
INT bouton(INT fenetre, INT type, INT attrib, const Boite& boite, std::string_view titre, INT no_fo);

// The controls of all types and attributes.
void cree_controles(INT fenetre);

// Cursor buttons and icons, and what pressing them does; true when the function number was theirs.
void cree_curseurs(INT fenetre);
void cree_icones(INT fenetre, const std::string& repertoire);
bool action_outil(INT fenetre, INT no_fo);

// The second page: panel items, dialogs, lists.
void cree_panneaux(INT fenetre, const std::string& icones);

// The page of colours.
constexpr INT kLargeurCouleurs = 624, kHauteurCouleurs = 182;
void cree_couleurs(INT fenetre);

// A graphic window at its place in another one, y from the top; on the screen when it returns.
INT ouvre_surface(INT mere, const Boite& boite);

// Palette, lines, fills and pictures, drawn in memory and shown at once.
void dessine(INT graphique);

// The scrolling list of event records.
class Journal {
  public:
    void cree(INT fenetre);
    void note(const GRX_EVENEMENT& evenement);
    void ecrit(char* ligne);

  private:
    INT texte_ = -1;
    INT position_ = -1;
    int lignes_ = 0;
};

// The third page: information strip, palette window or editor, file dialogs, decorations; true when the function number
// was one of theirs.
void cree_fichiers(INT fenetre, bool avec_editeur);
bool action_fichiers(INT fenetre, INT no_fo, Journal& journal);

// The page of controls, lists and menus beyond the contract; on it a tip, or a context menu; boxes of all kinds; the
// progress of long work. action_additions: true when the event was one of theirs.
void cree_additions(INT fenetre);
void montre_bulle(INT fenetre);
void montre_menu(INT fenetre);
void montre_boites(INT principale);
void montre_travail(INT principale);
bool travail_avance(); // still on its way
bool action_additions(INT fenetre, const GRX_EVENEMENT& e);

// The page of texts in drawings, of a layer and of icons with transparency; a drawing beside the PDF made of it.
void cree_textes(INT principale);
void cree_papier(INT principale);

} // namespace galerie
