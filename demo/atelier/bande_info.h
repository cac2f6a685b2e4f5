// The information strip in a window of its own: function, message, a field for the point to go to, coordinates; enlarged,
// what is settled, and toggles for the grid and for coordinates as distance and angle.
#ifndef ATELIER_BANDE_INFO_H
#define ATELIER_BANDE_INFO_H

#include <array>
#include <string>

#include "feuille.h"
#include "plan.h"
#include "suite.h"
#include "xt_ent_t.h"
#include "xt_fen_t.h"
#include "xt_fme_t.h"

namespace atelier {

class BandeInfo {
  public:
    enum Texte { kFonction, kMessage, kX, kY, kPlan, kEchelle, kCouche, kUnite, kPas, kNbTextes };

    BandeInfo() { fenetre_.nofen = -1; }

    // Shown or hidden; made the first time, at the foot of the screen and of one row.
    void bascule(INT mere, const Reglages& reglages);
    // The window went by itself.
    void oublie();
    bool ouverte() const { return fenetre_.nofen >= 0; }
    bool tient(INT nofen) const { return ouverte() && nofen == fenetre_.nofen; }

    // Its arrows, its field, its toggles.
    Suite controle(const GRX_EXEC_FONCTION& e, Reglages& reglages, Feuille& feuille);
    // Keys over a field are typed there and are no commands.
    bool est_champ(INT nobou) const;

    // fonction: the last one; message: what was said last, in UTF-8.
    void montre(const Plan& plan, const Feuille& feuille, INT fonction, const std::string& message);
    void montre_bascules(const Reglages& reglages) const;

    // What the user typed, and whether coordinates are distance and angle.
    std::string saisie() const;
    bool polaire() const { return polaire_; }

  private:
    using Contenu = std::array<std::string, kNbTextes>; // in Latin-1

    void ouvre(INT mere);
    void agrandit();
    void reduit();
    void change_hauteur(INT hauteur);
    bool centre_sur_saisie(Feuille& feuille) const;
    void pose_coordonnees(Contenu& c, const Cotes& cotes, Point p) const;
    void ecrit(const Contenu& contenu);

    GRX_FENETRE fenetre_{};
    GRX_ZONE_INFO zone_{};
    Contenu contenu_; // on show
    bool cachee_ = false, polaire_ = false;
};

} // namespace atelier

#endif
