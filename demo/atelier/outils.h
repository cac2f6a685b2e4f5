// The tools at the left of the window: icons, coordinate fields, zoom scale, list of layers. They move the sheet, choose
// and hide layers, and change the menus to those of another module.
#ifndef ATELIER_OUTILS_H
#define ATELIER_OUTILS_H

#include <optional>
#include <string>

#include "feuille.h"
#include "plan.h"
#include "suite.h"
#include "xt_ent_t.h"

namespace atelier {

class Outils {
  public:
    static constexpr int kLargeur = 212; // pixels

    explicit Outils(Plan& plan) : plan_(plan) {}

    // Makes the panel in window mere; icones is the folder of the icon sizes. Returns false when it cannot be made.
    bool cree(INT mere, std::string icones);

    // Events of its controls, and functions of menus and icons.
    Suite prend(const GRX_EVENEMENT& e, Feuille& feuille);
    Suite action(INT fonction, Feuille& feuille);
    // Keys go to the drawing again, not into a field.
    void rend_le_clavier() const;

    // The layers of the plan, and which of them are seen.
    void montre_calques();
    // Where the sheet is, as far as it moved: what the user types meanwhile stays.
    void montre(const Feuille& feuille);

    bool est_champ(INT nobou) const { return nobou == champ_x_ || nobou == champ_y_; }
    INT champ_x() const { return champ_x_; }
    INT champ_y() const { return champ_y_; }
    INT module() const { return module_; }

  private:
    void cree_icones();
    void cree_champs();
    void cree_zoom();
    void cree_couches();

    Suite controle(const GRX_EXEC_FONCTION& e, Feuille& feuille) const;
    Suite couche_choisie(const GRX_ELEMENT_CLIQUE& e, Feuille& feuille);
    void change_module(INT module);
    int calque_de(INT nobou, const char* entree) const;
    std::optional<Point> centre_tape() const;

    void montre_zoom(double rapport);
    static void montre_champ(INT nobou, std::string& connu, const std::string& nouveau);

    Plan& plan_;
    INT nofen_ = -1;
    INT premiere_icone_ = -1, champ_x_ = -1, champ_y_ = -1, zoom_ = -1, liste_ = -1;
    INT module_ = 0;
    int valeur_zoom_ = -1;
    std::string x_, y_; // what the fields showed last
};

} // namespace atelier

#endif
