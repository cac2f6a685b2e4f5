#include "index.h"

namespace atelier {

namespace {

std::vector<Boite> etage_sur(const std::vector<Boite>& dessous) {
    std::vector<Boite> r((dessous.size() + Index::kParBoite - 1) / Index::kParBoite);
    for (std::size_t i = 0; i < dessous.size(); ++i) r[i / Index::kParBoite].ajoute(dessous[i]);
    return r;
}

} // namespace

Index::Index(const std::vector<Boite>& boites) : nombre_(boites.size()) {
    if (boites.empty()) return;
    etages_.push_back(etage_sur(boites));
    while (etages_.back().size() > 1) etages_.push_back(etage_sur(etages_.back()));
}

} // namespace atelier
