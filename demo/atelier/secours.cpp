#include "secours.h"

#include <cstdio>
#include <fstream>
#include <utility>

#include "grx_plus_diagnostic.h"

namespace atelier {

namespace {

struct Secours {
    Plan* plan = nullptr;
    std::function<Critere()> critere;
};

// No windows are left, and nobody to ask: beside the drawing, under names of their own.
void sauve(void* donnee) {
    const Secours& s = *static_cast<const Secours*>(donnee);
    Plan& plan = *s.plan;
    if (plan.notes.modifiees()) plan.notes.ecrit(plan.chemin);
    const auto fichier = std::filesystem::path(plan.chemin).replace_extension(".secours.txt");
    std::ofstream(fichier, std::ios::binary)
        << texte_nomenclature("Nomenclature de " + plan.nom(), nomenclature(plan.dessin, s.critere()), plan.mesure());
    std::fprintf(stderr, "atelier: l'ecran est perdu ; liste des pieces : %s\n", fichier.c_str());
}

} // namespace

void prepare_secours(Plan& plan, std::function<Critere()> critere) {
    static Secours secours;
    secours = {&plan, std::move(critere)};
    grx_affecte_fonction_secours(sauve, &secours);
}

} // namespace atelier
