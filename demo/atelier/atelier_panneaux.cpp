// The part of the application that has to do with panels.
#include "atelier.h"

#include <algorithm>

#include "etat_hote.h"
#include "palette.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr INT kEchap = 27;

} // namespace

// The size of characters is known from start-up on.
void Atelier::prepare_panneaux() {
    panneaux_.mesure(grx_recup_lar_carac_alpha(), grx_recup_hau_carac_alpha());
    pose_listes();
    grx_alloue_base_items_panels(panneaux_.nombre(), panneaux_.table());
    grx_tbl_init_boutons_choix();
    reglages_.pas = pas_pour(dessin_.boite);
    panneau_table_.mesure_en({1, symbole(dessin_.unites)});
}

void Atelier::ferme_panneaux() {
    panneau_reglages_.ferme();
    panneau_couches_.ferme();
    panneau_table_.ferme();
    grx_detruit_fenetre_modif_palette_couleurs();
}

void Atelier::libere_panneaux() {
    ferme_panneaux();
    grx_desalloue_base_items_panels();
}

// Pens of the strip, which every screen has, then the most used colours of the drawing.
std::vector<PlumeNommee> Atelier::plumes() const {
    constexpr std::size_t kDuPlan = 6;
    std::vector<PlumeNommee> r{
        {"Ardoise", kCoulFilet}, {"Gris", kCoulDiscret}, {"Ambre", kCoulElastique}, {"Blanc", kCoulMire}};
    for (std::size_t i = 0; i < std::min(kDuPlan, dessin_.couleurs.size()); ++i) {
        const Rgb c = dessin_.couleurs[i];
        const std::string valeurs =
            std::to_string(c.rouge) + " " + std::to_string(c.vert) + " " + std::to_string(c.bleu);
        r.push_back({"Plan " + std::to_string(i + 1) + " (" + valeurs + ")", indices_[i]});
    }
    return r;
}

void Atelier::ouvre_reglages() {
    panneau_reglages_.ouvre(principale_, reglages_, dessin_.unites, plumes());
}

bool Atelier::panneau_controle(const GRX_EXEC_FONCTION& e) {
    const Suite reglages = panneau_reglages_.controle(e);
    if (reglages == Suite::Applique) applique_reglages();
    const Suite couches = panneau_couches_.controle(e, dessin_.calques);
    if (couches == Suite::Applique) outils_.montre_calques(dessin_.calques);
    a_redessiner_ = a_redessiner_ || couches == Suite::Applique;
    const Suite table = panneau_table_.controle(e, dessin_);
    return reglages != Suite::PasPourMoi || couches != Suite::PasPourMoi || table != Suite::PasPourMoi;
}

void Atelier::applique_reglages() {
    reglages_ = panneau_reglages_.reglages();
    panneau_table_.mesure_en({montre_en(), symbole(unite_montree(reglages_, dessin_.unites))});
    bande_.montre_bascules(reglages_.grille, polaire_);
    a_redessiner_ = true;
}

// A list of a panel tells its slot, a list of the tools does not.
void Atelier::element_choisi(const GRX_ELEMENT_CLIQUE& e) {
    if (e.no_fo < 0) return couche_choisie(e);
    if (panneau_reglages_.plume_choisie(e.no_fo, e.nobou) == Suite::PasPourMoi)
        panneau_couches_.couche_choisie(e.no_fo);
}

bool Atelier::panneau_tient(INT nofen) const {
    return panneau_reglages_.tient(nofen) || panneau_couches_.tient(nofen) || panneau_table_.tient(nofen)
           || nofen == grx_recup_no_fenetre_modif_palette();
}

void Atelier::panneau_touche(const GRX_CARAC_APPUI& e) {
    if (e.carac != kEchap) return;
    if (panneau_reglages_.tient(e.nofen)) return panneau_reglages_.ferme();
    if (panneau_couches_.tient(e.nofen)) return panneau_couches_.ferme();
    if (panneau_table_.tient(e.nofen)) return panneau_table_.ferme();
    grx_detruit_fenetre_modif_palette_couleurs();
}

void Atelier::detruite(INT nofen) {
    if (panneau_reglages_.tient(nofen)) return panneau_reglages_.oublie();
    if (panneau_couches_.tient(nofen)) return panneau_couches_.oublie();
    if (panneau_table_.tient(nofen)) return panneau_table_.oublie();
    if (bande_.tient(nofen)) return bande_.oublie();
    fini_ = fini_ || nofen == principale_;
}

} // namespace atelier
