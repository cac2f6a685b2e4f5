#include "panneau_couleurs.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "xt_f.h"

namespace atelier {

namespace {

using Titre = std::array<char, 256>; // as the window takes it

Titre titre_de(const std::string& nom) {
    Titre t{};
    std::snprintf(t.data(), t.size(), "Couleur - %s", nom.c_str());
    return t;
}

// As the screen has it; a full component of a screen with a palette reads as a little more.
Rgb couleur_de_l_ecran(int indice) {
    std::array<INT, 3> rgb{};
    grx_recup_rgb(indice, rgb.data());
    for (INT& c : rgb) c = std::clamp(c, 0, 255);
    return {rgb[0], rgb[1], rgb[2]};
}

// Tables and pens tell colours by their values.
void note_couleur(Plan& plan, int indice) {
    for (std::size_t i = 0; i < plan.dessin.couleurs.size(); ++i)
        if (plan.indices[i] == indice) plan.dessin.couleurs[i] = couleur_de_l_ecran(indice);
}

} // namespace

void PanneauCouleurs::ouvre(INT mere, const Plan& plan) {
    constexpr INT kBord = 40;
    const CouleurNommee couleur = plan.couleur_choisie();
    grx_affecte_couleur_active(couleur.indice);
    Titre titre = titre_de(couleur.nom);
    grx_affiche_fenetre_modif_palette_couleurs(kBord, kBord, titre.data(), mere);
    suit(plan);
}

void PanneauCouleurs::ferme() {
    grx_detruit_fenetre_modif_palette_couleurs();
}

bool PanneauCouleurs::tient(INT nofen) {
    return nofen == grx_recup_no_fenetre_modif_palette();
}

void PanneauCouleurs::suit(const Plan& plan) {
    if (grx_is_fenetre_modif_palette_ouverte() == 0) return;
    const CouleurNommee couleur = plan.couleur_choisie();
    grx_affecte_couleur_active(couleur.indice);
    const Rgb rgb = couleur_de_l_ecran(couleur.indice);
    std::array<INT, 3> valeurs{rgb.rouge, rgb.vert, rgb.bleu};
    grx_affecte_palette(valeurs.data());
    Titre titre = titre_de(couleur.nom);
    grx_change_titre_fenetre(grx_recup_no_fenetre_modif_palette(), titre.data());
}

bool PanneauCouleurs::prend(const GRX_EVENEMENT& e, Plan& plan) {
    if (grx_gere_action_modif_palette(e) == 0) return false;
    if (e.type_evenement != GRX_EVT_DESTRUCTION) note_couleur(plan, grx_recup_couleur_active());
    return true;
}

} // namespace atelier
