// The choice of layers: the library's selection panel, whose place and size it remembers.
#ifndef ATELIER_PANNEAU_COUCHES_H
#define ATELIER_PANNEAU_COUCHES_H

#include <string>
#include <vector>

#include "dessin.h"
#include "panneau.h"
#include "xt_ent_t.h"

namespace atelier {

class PanneauCouches {
  public:
    explicit PanneauCouches(Panneaux& panneaux) : panneaux_(panneaux) {}

    // The visible layers are selected at first.
    void ouvre(const std::vector<CalqueVu>& calques);
    void ferme();
    void oublie();
    bool tient(INT nofen) const { return ouvert_ && nofen == fenetre(); }

    Suite controle(const GRX_EXEC_FONCTION& e, std::vector<CalqueVu>& calques);
    Suite couche_choisie(INT liste);
    // Selects the visible layers again.
    void montre(const std::vector<CalqueVu>& calques);

  private:
    INT fenetre() const;
    INT liste() const;
    void pose_entrees() const;
    void filtre(const std::string& texte);
    void choisit(const std::string& texte);
    Suite rend_visibles(std::vector<CalqueVu>& calques) const;
    Suite rend_tout(std::vector<CalqueVu>& calques, bool visible);

    Panneaux& panneaux_;
    bool ouvert_ = false;
    std::vector<std::string> noms_;
    std::vector<bool> choisies_;        // of all layers
    std::vector<std::size_t> montrees_; // the layers that the list shows
};

} // namespace atelier

#endif
