// The drawing settings: units, grid, pen, size of texts. What is changed in the panel counts from "Appliquer" on.
#ifndef ATELIER_PANNEAU_REGLAGES_H
#define ATELIER_PANNEAU_REGLAGES_H

#include <string>
#include <vector>

#include "panneau.h"
#include "plan.h"
#include "reglages.h"
#include "xt_ent_t.h"

namespace atelier {

class PanneauReglages {
  public:
    explicit PanneauReglages(Panneaux& panneaux) : panneau_(panneaux, kNumero) {}

    void ouvre(INT mere, const Plan& plan);
    void ferme() { panneau_.ferme(); }
    void oublie() { panneau_.oublie(); }
    bool tient(INT nofen) const { return panneau_.tient(nofen); }

    // Told by function numbers: the choices of a group name no window.
    Suite controle(const GRX_EXEC_FONCTION& e);
    // A pen chosen in the list; liste is the slot of the list that tells of it.
    Suite plume_choisie(INT liste, INT place);
    const Reglages& reglages() const { return edites_; }
    std::string pas_ecrit() const; // what the field of the step holds

  private:
    static constexpr int kNumero = 0;

    void pose_etat() const;
    void change_unite(int unite);
    void lit_pas(const std::string& texte);
    void montre_pas() const;
    void bascule(bool& valeur, int indice) const;
    void montre_bascule(bool valeur, int indice) const;
    Suite applique();
    void dessine_apercu() const;

    Panneau panneau_;
    Reglages edites_;
    int unites_ = 0;
    std::vector<CouleurNommee> plumes_;
};

} // namespace atelier

#endif
