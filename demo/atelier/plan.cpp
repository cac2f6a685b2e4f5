#include "plan.h"

#include <algorithm>
#include <utility>

#include "couleurs.h"
#include "palette.h"
#include "unites.h"

namespace atelier {

Plan::Plan(Dessin dessin_lu, const std::filesystem::path& fichier)
    : dessin(std::move(dessin_lu)), chemin(std::filesystem::absolute(fichier)), notes(Notes::de(chemin)) {
    reglages.pas = pas_pour(dessin.boite);
}

void Plan::remplace(Dessin dessin_lu, const std::filesystem::path& fichier) {
    dessin = std::move(dessin_lu);
    chemin = fichier;
    notes = Notes::de(fichier);
    prend_couleurs();
    reglages.unite = kUniteDuPlan;
    reglages.pas = pas_pour(dessin.boite);
    reglages.plume = 0;
    calque_choisi = -1;
}

void Plan::prend_couleurs() {
    indices = pose_couleurs(dessin.couleurs);
}

Mesure Plan::mesure() const {
    return {facteur(reglages, dessin.unites), symbole(unite_montree(reglages, dessin.unites))};
}

std::vector<CouleurNommee> Plan::plumes() const {
    constexpr std::size_t kDuPlan = 6;
    std::vector<CouleurNommee> r{
        {"Ardoise", kCoulFilet}, {"Gris", kCoulDiscret}, {"Ambre", kCoulElastique}, {"Blanc", kCoulMire}};
    for (std::size_t i = 0; i < std::min(kDuPlan, dessin.couleurs.size()); ++i) {
        const Rgb c = dessin.couleurs[i];
        const std::string valeurs =
            std::to_string(c.rouge) + " " + std::to_string(c.vert) + " " + std::to_string(c.bleu);
        r.push_back({"Plan " + std::to_string(i + 1) + " (" + valeurs + ")", indices[i]});
    }
    return r;
}

CouleurNommee Plan::plume() const {
    return plumes()[static_cast<std::size_t>(reglages.plume)];
}

CouleurNommee Plan::couleur_choisie() const {
    const int couleur = couleur_du_calque(dessin, calque_choisi);
    if (couleur >= 0)
        return {"couche " + dessin.calques[static_cast<std::size_t>(calque_choisi)].nom,
            indices[static_cast<std::size_t>(couleur)]};
    const CouleurNommee grille = plume();
    return {"plume " + grille.nom, grille.indice};
}

void Plan::montre_calques(bool visibles) {
    for (CalqueVu& calque : dessin.calques) calque.visible = visibles;
}

} // namespace atelier
