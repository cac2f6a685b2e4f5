#include "panneau_couches.h"

#include <algorithm>

#include "etat_hote.h"
#include "fonctions.h"
#include "traits.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr int kListe = GRX_CLEF_LISTE_SELECT - GRX_BASE_CLEF_LISTE;

} // namespace

INT PanneauCouches::fenetre() const {
    const PANEL* const p = panneaux_.panneau(GRX_PANNEAU_SELECTION);
    return p != nullptr ? p->nofen : -1;
}

INT PanneauCouches::liste() const {
    return ouvert_ ? test_liste_deja_affichee(GRX_PANNEAU_SELECTION, GRX_CLEF_LISTE_SELECT) : -1;
}

void PanneauCouches::ouvre(const std::vector<CalqueVu>& calques) {
    if (ouvert_ || panneaux_.panneau(GRX_PANNEAU_SELECTION) == nullptr) return;
    noms_.clear();
    for (const CalqueVu& calque : calques) noms_.push_back(calque.nom);
    filtre("");
    montre(calques);
    grx_affiche_panel_selection();
    ouvert_ = grx_test_liste_ouverte(kListe) != 0;
}

void PanneauCouches::ferme() {
    const INT nofen = fenetre();
    if (!ouvert_) return;
    oublie();
    grx_detruit_fenetre(nofen);
}

void PanneauCouches::oublie() {
    if (!ouvert_) return;
    ouvert_ = false;
    grx_supprime_items(GRX_PANNEAU_SELECTION);
    grx_supprime_item_liste(GRX_PANNEAU_SELECTION, kListe);
}

void PanneauCouches::montre(const std::vector<CalqueVu>& calques) {
    choisies_.clear();
    for (const CalqueVu& calque : calques) choisies_.push_back(calque.visible);
    pose_entrees();
}

void PanneauCouches::pose_entrees() const {
    std::vector<std::string> entrees;
    std::vector<int> places;
    for (const std::size_t calque : montrees_) {
        if (choisies_.size() > calque && choisies_[calque]) places.push_back(static_cast<int>(entrees.size()));
        entrees.push_back(noms_[calque]);
    }
    pose_liste(kListe, entrees, places);
    if (ouvert_) grx_modif_items_liste(kListe);
}

void PanneauCouches::filtre(const std::string& texte) {
    const std::string cherche = majuscules(texte);
    montrees_.clear();
    for (std::size_t i = 0; i < noms_.size(); ++i)
        if (majuscules(noms_[i]).find(cherche) != std::string::npos) montrees_.push_back(i);
    pose_entrees();
}

void PanneauCouches::choisit(const std::string& texte) {
    const std::string cherche = majuscules(texte);
    for (const std::size_t i : montrees_) choisies_[i] = majuscules(noms_[i]).find(cherche) != std::string::npos;
    pose_entrees();
}

Suite PanneauCouches::rend_visibles(std::vector<CalqueVu>& calques) const {
    for (std::size_t i = 0; i < calques.size() && i < choisies_.size(); ++i) calques[i].visible = choisies_[i];
    return Suite::Applique;
}

Suite PanneauCouches::rend_tout(std::vector<CalqueVu>& calques, bool visible) {
    for (CalqueVu& calque : calques) calque.visible = visible;
    montre(calques);
    return Suite::Applique;
}

Suite PanneauCouches::controle(const GRX_EXEC_FONCTION& e, std::vector<CalqueVu>& calques) {
    if (!tient(e.nofen) || e.type_evenement != GRX_EVT_EXEC_FONCTION) return Suite::PasPourMoi;
    switch (e.no_fo) {
    case kFonctionCouchesChoisies: return rend_visibles(calques);
    case kFonctionCouchesFiltre: filtre(e.chaine); return Suite::Fait;
    case kFonctionCouchesChoisir: choisit(e.chaine); return Suite::Fait;
    case kFonctionCouchesPanneauToutes: return rend_tout(calques, true);
    case kFonctionCouchesPanneauAucune: return rend_tout(calques, false);
    case kFonctionCouchesFermer: ferme(); return Suite::Fait;
    default: return Suite::Fait;
    }
}

// The library keeps the places of the selected entries.
Suite PanneauCouches::couche_choisie(INT slot) {
    if (slot < 0 || slot != liste()) return Suite::PasPourMoi;
    for (const std::size_t calque : montrees_) choisies_[calque] = false;
    const LISTE_PANEL& l = Tab_liste[slot];
    for (INT i = 0; i < l.nb_choix; ++i) choisies_[montrees_[static_cast<std::size_t>(l.tab_choix[i])]] = true;
    return Suite::Fait;
}

} // namespace atelier
