// The parts table in a window: headings, rows of cells, the choice of what is counted above it.
#ifndef ATELIER_PANNEAU_TABLE_H
#define ATELIER_PANNEAU_TABLE_H

#include <string>
#include <vector>

#include "nomenclature.h"
#include "panneau.h"
#include "plan.h"
#include "xt_ent_t.h"

namespace atelier {

class PanneauTable {
  public:
    explicit PanneauTable(Panneaux& panneaux) : panneau_(panneaux, kNumero) {}

    void ouvre(INT mere, const Plan& plan);
    void ferme();
    void oublie();
    bool tient(INT nofen) const { return panneau_.tient(nofen); }

    // Lengths are told in another unit.
    void mesure_en(const Mesure& mesure);
    // What the table counts by, or would.
    Critere critere() const { return critere_; }
    Suite controle(const GRX_EXEC_FONCTION& e, const Dessin& dessin);

  private:
    static constexpr int kNumero = 1;

    void cree_choix() const;
    void cree_cases();
    void vide_table();
    void compte(const Dessin& dessin);
    void montre();
    void tourne(int pages);

    Panneau panneau_;
    Critere critere_ = Critere::Couche;
    std::vector<LigneTable> lignes_;
    std::vector<INT> entetes_, cases_; // buttons; the cells row by row
    std::size_t premiere_ = 0;         // line that the first row shows
    Mesure mesure_;
};

} // namespace atelier

#endif
