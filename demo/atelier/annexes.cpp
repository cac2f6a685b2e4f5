#include "annexes.h"

#include "etat_hote.h"
#include "fonctions.h"
#include "panneau_couleurs.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr INT kEchap = 27;

} // namespace

Annexes::Annexes(Plan& plan, Panneaux& panneaux)
    : plan_(plan), panneaux_(panneaux), reglages_(panneaux), couches_(panneaux), table_(panneaux) {}

// The size of characters is known from start-up on.
void Annexes::prepare() {
    panneaux_.mesure(grx_recup_lar_carac_alpha(), grx_recup_hau_carac_alpha());
    pose_listes();
    grx_alloue_base_items_panels(panneaux_.nombre(), panneaux_.table());
    grx_tbl_init_boutons_choix();
}

void Annexes::libere() {
    ferme();
    grx_desalloue_base_items_panels();
}

void Annexes::ferme() {
    reglages_.ferme();
    couches_.ferme();
    table_.ferme();
    PanneauCouleurs::ferme();
}

bool Annexes::action(INT fonction, INT mere) {
    switch (fonction) {
    case kFonctionReglages: reglages_.ouvre(mere, plan_); return true;
    case kFonctionCouchesPanneau: couches_.ouvre(plan_.dessin.calques); return true;
    case kFonctionNomenclature: table_.ouvre(mere, plan_); return true;
    case kFonctionCouleurs: PanneauCouleurs::ouvre(mere, plan_); return true;
    case kFonctionBande: bande_.bascule(mere, plan_.reglages); return true;
    default: return false;
    }
}

// --- events -------------------------------------------------------------------------------------------------------

// What was drawn in a colour changes with a screen's palette; on others it is drawn again.
Suite Annexes::prend(const GRX_EVENEMENT& e, Feuille& feuille) {
    if (PanneauCouleurs::prend(e, plan_)) {
        if (e.type_evenement != GRX_EVT_DESTRUCTION && grx_recup_profondeur_ecran() != GRX_PROFONDEUR_8)
            feuille.perime();
        return Suite::Fait;
    }
    switch (e.type_evenement) {
    case GRX_EVT_CARAC_APPUI: return touche(e.carac_appui);
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE: return controle(e.exec_fonction, feuille);
    case GRX_EVT_ELEMENT_CLIQUE: return element_choisi(e.element_clique);
    case GRX_EVT_DESTRUCTION: return detruite(e.destruction.nofen);
    default: return Suite::PasPourMoi;
    }
}

bool Annexes::est_panneau(INT nofen) const {
    return reglages_.tient(nofen) || couches_.tient(nofen) || table_.tient(nofen) || PanneauCouleurs::tient(nofen);
}

bool Annexes::tient(INT nofen) const {
    return est_panneau(nofen) || bande_.tient(nofen);
}

// Escape closes a panel; other keys over one are no commands, nor are those that a field of the strip takes.
Suite Annexes::touche(const GRX_CARAC_APPUI& e) {
    if (!est_panneau(e.nofen)) return bande_.est_champ(e.nobou) ? Suite::Fait : Suite::PasPourMoi;
    if (e.carac != kEchap) return Suite::Fait;
    if (reglages_.tient(e.nofen))
        reglages_.ferme();
    else if (couches_.tient(e.nofen))
        couches_.ferme();
    else if (table_.tient(e.nofen))
        table_.ferme();
    else
        PanneauCouleurs::ferme();
    return Suite::Fait;
}

Suite Annexes::controle(const GRX_EXEC_FONCTION& e, Feuille& feuille) {
    if (const Suite s = bande_.controle(e, plan_.reglages, feuille); s != Suite::PasPourMoi) return s;
    if (const Suite s = reglages_.controle(e); s != Suite::PasPourMoi) {
        if (s == Suite::Applique) applique_reglages(feuille);
        return Suite::Fait;
    }
    if (const Suite s = couches_.controle(e, plan_.dessin.calques); s != Suite::PasPourMoi) {
        if (s == Suite::Applique) feuille.perime();
        return s == Suite::Applique ? Suite::Calques : Suite::Fait;
    }
    return table_.controle(e, plan_.dessin);
}

void Annexes::applique_reglages(Feuille& feuille) {
    plan_.reglages = reglages_.reglages();
    table_.mesure_en(plan_.mesure());
    bande_.montre_bascules(plan_.reglages);
    feuille.perime();
}

// A list of a panel tells its slot, a list of the tools does not.
Suite Annexes::element_choisi(const GRX_ELEMENT_CLIQUE& e) {
    if (e.no_fo < 0) return Suite::PasPourMoi;
    if (reglages_.plume_choisie(e.no_fo, e.nobou) == Suite::PasPourMoi) couches_.couche_choisie(e.no_fo);
    return Suite::Fait;
}

Suite Annexes::detruite(INT nofen) {
    if (reglages_.tient(nofen))
        reglages_.oublie();
    else if (couches_.tient(nofen))
        couches_.oublie();
    else if (table_.tient(nofen))
        table_.oublie();
    else if (bande_.tient(nofen))
        bande_.oublie();
    else
        return Suite::PasPourMoi;
    return Suite::Fait;
}

// --- what the windows follow --------------------------------------------------------------------------------------

void Annexes::montre_calques() {
    couches_.montre(plan_.dessin.calques);
}

void Annexes::suit_choix() const {
    PanneauCouleurs::suit(plan_);
}

void Annexes::montre(const Feuille& feuille, INT fonction, const std::string& message) {
    bande_.montre(plan_, feuille, fonction, message);
}

} // namespace atelier
