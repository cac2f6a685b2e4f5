// The windows beside the main one: settings, choice of layers, parts table, colours, information strip. Each is opened
// by a function, takes the events of its window, and what it changes takes effect in the plan and on the sheet.
#ifndef ATELIER_ANNEXES_H
#define ATELIER_ANNEXES_H

#include <string>

#include "bande_info.h"
#include "feuille.h"
#include "panneau_couches.h"
#include "panneau_reglages.h"
#include "panneau_table.h"
#include "panneaux_lecture.h"
#include "plan.h"
#include "suite.h"
#include "xt_ent_t.h"

namespace atelier {

class Annexes {
  public:
    // panneaux: the panels, which live as long as this.
    Annexes(Plan& plan, Panneaux& panneaux);

    // Gives the panels to the library, after start-up; and takes them back.
    void prepare();
    void libere();

    // Opens the window of a function, over window mere. Returns false for a function of others.
    bool action(INT fonction, INT mere);
    Suite prend(const GRX_EVENEMENT& e, Feuille& feuille);
    bool tient(INT nofen) const;
    // All but the strip, which outlives a drawing.
    void ferme();

    // What changed elsewhere: layers shown or hidden, another layer chosen.
    void montre_calques();
    void suit_choix() const;
    // In the strip: the last function, what was said, and where the sheet is.
    void montre(const Feuille& feuille, INT fonction, const std::string& message);

    const BandeInfo& bande() const { return bande_; }
    std::string pas_ecrit() const { return reglages_.pas_ecrit(); }
    Critere critere() const { return table_.critere(); }

  private:
    bool est_panneau(INT nofen) const;
    Suite controle(const GRX_EXEC_FONCTION& e, Feuille& feuille);
    Suite touche(const GRX_CARAC_APPUI& e);
    Suite element_choisi(const GRX_ELEMENT_CLIQUE& e);
    Suite detruite(INT nofen);
    void applique_reglages(Feuille& feuille);

    Plan& plan_;
    Panneaux& panneaux_;
    PanneauReglages reglages_;
    PanneauCouches couches_;
    PanneauTable table_;
    BandeInfo bande_;
};

} // namespace atelier

#endif
