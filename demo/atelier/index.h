// Where objects lie: a packed tree of boxes over a list that keeps its order.
#ifndef ATELIER_INDEX_H
#define ATELIER_INDEX_H

#include <algorithm>
#include <vector>

#include "geometrie.h"

namespace atelier {

// Each box stands for so many neighbours of the list, each one above it for so many of these, up to a single one. The
// better neighbours in the list are neighbours on the sheet, the less is looked at.
class Index {
  public:
    static constexpr std::size_t kParBoite = 16;

    Index() = default;
    explicit Index(const std::vector<Boite>& boites);

    // Gives to recoit(debut, fin), in the order of the list, runs of places that hold every box that touches this one,
    // and some that do not.
    template <class Recoit>
    void cherche(const Boite& boite, Recoit recoit) const {
        if (!etages_.empty()) descend(etages_.size() - 1, 0, boite, recoit);
    }

  private:
    template <class Recoit>
    void descend(std::size_t etage, std::size_t place, const Boite& boite, Recoit& recoit) const {
        if (!etages_[etage][place].touche(boite)) return;
        const std::size_t dessous = etage > 0 ? etages_[etage - 1].size() : nombre_;
        const std::size_t debut = place * kParBoite, fin = std::min(debut + kParBoite, dessous);
        if (etage == 0) return recoit(debut, fin);
        for (std::size_t i = debut; i < fin; ++i) descend(etage - 1, i, boite, recoit);
    }

    std::vector<std::vector<Boite>> etages_; // the lowest one first
    std::size_t nombre_ = 0;                 // of the boxes that were given
};

} // namespace atelier

#endif
