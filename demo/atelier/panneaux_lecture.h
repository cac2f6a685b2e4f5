// The panel files PAN_*.DAT: what stands in the application's panels and where.
//
// One panel a file, in Latin-1, one record a line; blank lines and lines that begin with '#' say nothing:
//
//   PANNEAU|number|width|height|title
//   ITEM|kind|active|index|x|y|width|height|text
//   FIN
//
// The items are numbered from 0 in their order. Places, and the size of the panel, are in tenths of a character and of
// a line; width and height of an item are those of GRX_MSG for its kind, of an entry field the number of characters.
// kind is a GRX_ITEM_..., active 0 or 1, index that of the item's value in the state of the application. The text goes
// to the end of the line; '-' separates a title and its choices.
#ifndef ATELIER_PANNEAUX_LECTURE_H
#define ATELIER_PANNEAUX_LECTURE_H

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "xt_pan_t.h"

namespace atelier {

constexpr int kNbPanneaux = 16; // panels that files may describe
constexpr int kIndiceMax = 999;

// A panel as its file describes it; number -1 and a reason when it does not.
struct PanneauLu {
    struct Item {
        int type = 0, actif = 0, indice = 0, x = 0, y = 0, largeur = 0, hauteur = 0;
        std::string texte;
    };
    int numero = -1, largeur = 0, hauteur = 0;
    std::string titre;
    std::vector<Item> items;
    std::string raison;
};

// Reads the bytes of one file.
PanneauLu lit_panneau(std::string_view octets);

// All panels of a folder, as the library takes them. A panel that no file describes has no items.
class Panneaux {
  public:
    Panneaux() : panneaux_(kNbPanneaux) {}
    Panneaux(const Panneaux&) = delete;
    Panneaux& operator=(const Panneaux&) = delete;

    // Reads every PAN_*.DAT of the folder. What is wrong with a file is told in the answer, a line each, and the file
    // left out.
    std::vector<std::string> lit(const std::string& repertoire);
    // Places and sizes of a panel that was read, from tenths to pixels of a character cell; once.
    void mesure(int largeur_carac, int hauteur_ligne);

    int nombre() const { return static_cast<int>(panneaux_.size()); }
    PANEL* table() { return panneaux_.data(); }
    // Null when no file describes it.
    const PANEL* panneau(int numero) const;

  private:
    std::string prend(PanneauLu lu);

    std::vector<PANEL> panneaux_;
    std::deque<std::vector<ITEM_PANEL>> items_;
    std::deque<std::string> textes_;
};

} // namespace atelier

#endif
