// The part of the application that has to do with the colours of layers and pens.
#include "atelier.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "couleurs.h"
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

} // namespace

// That of the layer chosen in the tools, or else of the pen of the grid.
Atelier::CouleurNommee Atelier::couleur_choisie() const {
    const int couleur = couleur_du_calque(dessin_, calque_choisi_);
    if (couleur >= 0)
        return {indices_[static_cast<std::size_t>(couleur)],
            "couche " + dessin_.calques[static_cast<std::size_t>(calque_choisi_)].nom};
    const PlumeNommee plume = plumes()[static_cast<std::size_t>(reglages_.plume)];
    return {plume.couleur, "plume " + plume.nom};
}

void Atelier::ouvre_couleurs() {
    constexpr INT kBord = 40;
    const CouleurNommee c = couleur_choisie();
    grx_affecte_couleur_active(c.indice);
    Titre titre = titre_de(c.nom);
    grx_affiche_fenetre_modif_palette_couleurs(kBord, kBord, titre.data(), principale_);
    suit_choix();
}

// The open window turns to another layer.
void Atelier::suit_choix() {
    if (grx_is_fenetre_modif_palette_ouverte() == 0) return;
    const CouleurNommee c = couleur_choisie();
    grx_affecte_couleur_active(c.indice);
    const Rgb rgb = couleur_de_l_ecran(c.indice);
    std::array<INT, 3> valeurs{rgb.rouge, rgb.vert, rgb.bleu};
    grx_affecte_palette(valeurs.data());
    Titre titre = titre_de(c.nom);
    grx_change_titre_fenetre(grx_recup_no_fenetre_modif_palette(), titre.data());
}

// What was drawn changes with a screen's palette; on others it is drawn again.
bool Atelier::couleurs_prennent(const GRX_EVENEMENT& e) {
    if (grx_gere_action_modif_palette(e) == 0) return false;
    if (e.type_evenement == GRX_EVT_DESTRUCTION) return true;
    note_couleur(grx_recup_couleur_active());
    a_redessiner_ = a_redessiner_ || grx_recup_profondeur_ecran() != GRX_PROFONDEUR_8;
    return true;
}

// Tables and pens tell colours by their values.
void Atelier::note_couleur(int indice) {
    for (std::size_t i = 0; i < dessin_.couleurs.size(); ++i)
        if (indices_[i] == indice) dessin_.couleurs[i] = couleur_de_l_ecran(indice);
}

} // namespace atelier
