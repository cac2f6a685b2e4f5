// The information strip in a window of its own: function, message, coordinates; enlarged, what is settled.
#ifndef ATELIER_BANDE_INFO_H
#define ATELIER_BANDE_INFO_H

#include <array>
#include <string>

#include "panneau.h"
#include "xt_ent_t.h"
#include "xt_fen_t.h"
#include "xt_fme_t.h"

namespace atelier {

class BandeInfo {
  public:
    enum Texte { kFonction, kMessage, kX, kY, kPlan, kEchelle, kCouche, kUnite, kPas, kNbTextes };
    using Contenu = std::array<std::string, kNbTextes>; // in Latin-1

    BandeInfo() { fenetre_.nofen = -1; }

    // Shown or hidden; made the first time, at the foot of the screen and of one row.
    void bascule(INT mere);
    // The window went by itself.
    void oublie();
    bool ouverte() const { return fenetre_.nofen >= 0; }
    bool tient(INT nofen) const { return ouverte() && nofen == fenetre_.nofen; }

    // Keys over a field are typed there and are no commands.
    bool est_champ(INT nobou) const;

    void montre(const Contenu& contenu);
    void montre_bascules(bool grille, bool polaire) const;
    // What the user typed.
    std::string saisie() const;
    // Its arrows; fields and toggles are the application's.
    Suite controle(const GRX_EXEC_FONCTION& e);

  private:
    void ouvre(INT mere);
    void agrandit();
    void reduit();
    void change_hauteur(INT hauteur);

    GRX_FENETRE fenetre_{};
    GRX_ZONE_INFO zone_{};
    Contenu contenu_;
    bool cachee_ = false;
};

} // namespace atelier

#endif
