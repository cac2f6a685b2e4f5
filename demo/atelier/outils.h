// The tools at the left of the window: icons, coordinate fields, zoom scale, layers.
#ifndef ATELIER_OUTILS_H
#define ATELIER_OUTILS_H

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dessin.h"
#include "geometrie.h"
#include "host_t.h"
#include "xt_bou_t.h"

namespace atelier {

// A control of window fenetre, still to be created; and its creation, which gives its number, -1 when it fails.
GRX_BOUTON bouton(INT fenetre, INT type, int x, int y, int largeur, int hauteur);
INT cree_bouton(GRX_BOUTON& b);

// What a field holds.
std::string texte_de(INT nobou);

// As much of a text as fits.
template <std::size_t N>
void copie(char (&champ)[N], std::string_view texte) {
    std::snprintf(champ, N, "%.*s", static_cast<int>(texte.size()), texte.data());
}

class Outils {
  public:
    static constexpr int kLargeur = 212; // pixels

    // Makes the panel in window mere; icones is the folder of the icon sizes. Returns false when it cannot be made.
    bool cree(INT mere, std::string icones, const std::vector<CalqueVu>& calques);

    // The list anew: there is no way to change an entry.
    void montre_calques(const std::vector<CalqueVu>& calques);
    // How many times larger than at first the drawing is seen.
    void montre_zoom(double rapport);
    // What the fields show while nobody types in them.
    void montre_centre(const std::string& x, const std::string& y);

    // The numbers that the fields hold, nothing when they hold none.
    std::optional<Point> centre() const;
    static double rapport_de(INT valeur);
    // The layer that an entry of the list stands for, -1 for an entry of another list.
    int calque_de(INT nobou, const char* entree, const std::vector<CalqueVu>& calques) const;
    bool est_champ(INT nobou) const { return nobou == champ_x_ || nobou == champ_y_; }
    INT champ_x() const { return champ_x_; }
    INT champ_y() const { return champ_y_; }
    // Keys go to the drawing again, not into a field.
    void rend_le_clavier() const;

  private:
    void cree_icones(const std::string& icones);
    void cree_champs();
    void cree_zoom();

    INT nofen_ = -1;
    INT premiere_icone_ = -1, champ_x_ = -1, champ_y_ = -1, zoom_ = -1, liste_ = -1;
    int valeur_zoom_ = -1;
    std::string x_, y_;
};

} // namespace atelier

#endif
