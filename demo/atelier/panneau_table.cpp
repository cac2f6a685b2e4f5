#include "panneau_table.h"

#include <algorithm>
#include <array>

#include "fonctions.h"
#include "host_g.h"
#include "controles.h"
#include "palette.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr std::size_t kRangees = 14;
constexpr INT kTable = 0; // of the library's table display

// In tenths of a character and of a line, as the panel files measure.
constexpr int kXTable = 10, kYTable = 20, kHauteurRangee = 8, kXChoix = 90, kYChoix = 4;
constexpr int kDixiemes = 10;

INT en_largeur(int dixiemes) {
    return dixiemes * grx_recup_lar_carac_alpha() / kDixiemes;
}

INT en_hauteur(int dixiemes) {
    return dixiemes * grx_recup_hau_carac_alpha() / kDixiemes;
}

INT cree_case(INT fenetre, std::size_t colonne, std::size_t rangee, INT x, const std::string& texte) {
    const bool entete = rangee == 0;
    const INT largeur = kColonnes[colonne].caracteres * grx_recup_lar_carac_alpha();
    GRX_BOUTON b = bouton(fenetre, GRX_BOU_LABEL, x, en_hauteur(kYTable + kHauteurRangee * static_cast<int>(rangee)),
        largeur - 1, en_hauteur(kHauteurRangee) - 1);
    b.coul_fond = entete ? kCoulFilet : kCoulTexte;
    b.coul_trace = entete ? kCoulMire : kCoulFond;
    copie(b.titre, texte);
    return cree_bouton(b);
}

void change(INT nobou, std::string texte) {
    grx_change_texte(nobou, texte.data());
}

} // namespace

void PanneauTable::ouvre(INT mere, const Plan& plan) {
    constexpr INT kBord = 40;
    if (panneau_.ouvert() || !panneau_.ouvre(mere, kBord, kBord)) return;
    cree_choix();
    cree_cases();
    mesure_ = plan.mesure();
    compte(plan.dessin);
}

// The choice that the last opening ended with is shown first.
void PanneauTable::cree_choix() const {
    std::array<std::string, 3> textes{"par couche", "par nature", "par couleur"};
    std::array<char*, 3> choix{textes[0].data(), textes[1].data(), textes[2].data()};
    Itbl = kTable;
    grx_tbl_cree_boutons_choix(panneau_.nofen(), en_largeur(kXChoix), en_hauteur(kYChoix), kFonctionTableCritere,
        static_cast<INT>(choix.size()), choix.data(), static_cast<INT>(critere_) + 1);
}

void PanneauTable::cree_cases() {
    vide_table();
    for (std::size_t rangee = 0; rangee <= kRangees; ++rangee) {
        INT x = en_largeur(kXTable);
        for (std::size_t colonne = 0; colonne < kColonnes.size(); ++colonne) {
            const std::string texte = aligne(rangee == 0 ? kColonnes[colonne].titre : "", colonne);
            (rangee == 0 ? entetes_ : cases_).push_back(cree_case(panneau_.nofen(), colonne, rangee, x, texte));
            x += kColonnes[colonne].caracteres * grx_recup_lar_carac_alpha();
        }
    }
    TBL_TABLEUR_AFF& t = Taffiche[kTable];
    t.nofen = panneau_.nofen();
    t.nb_col = static_cast<INT>(kColonnes.size());
    t.nb_lig = static_cast<INT>(kRangees);
    t.tbou_col = entetes_.data();
    t.tbou_champ = cases_.data();
}

// The cells are gone, or about to go, with their window; their numbers are given back.
void PanneauTable::vide_table() {
    for (const std::vector<INT>* const boutons : {&entetes_, &cases_})
        for (const INT nobou : *boutons) grx_libere_indice_objet_bout(nobou);
    entetes_.clear();
    cases_.clear();
    Taffiche[kTable].nb_col = Taffiche[kTable].nb_lig = 0;
    Taffiche[kTable].tbou_col = Taffiche[kTable].tbou_champ = nullptr;
}

void PanneauTable::ferme() {
    if (!panneau_.ouvert()) return;
    Itbl = kTable;
    grx_tbl_detruit_boutons_choix();
    vide_table();
    panneau_.ferme();
}

void PanneauTable::oublie() {
    if (!panneau_.ouvert()) return;
    vide_table();
    panneau_.oublie();
}

void PanneauTable::mesure_en(const Mesure& mesure) {
    mesure_ = mesure;
    if (panneau_.ouvert()) montre();
}

Suite PanneauTable::controle(const GRX_EXEC_FONCTION& e, const Dessin& dessin) {
    if (!panneau_.ouvert()) return Suite::PasPourMoi;
    switch (e.no_fo) {
    case kFonctionTableCritere:
        critere_ = static_cast<Critere>(std::clamp(e.valeur - 1, 0, static_cast<INT>(Critere::Couleur)));
        compte(dessin);
        break;
    case kFonctionTablePrecedents: tourne(-1); break;
    case kFonctionTableSuivants: tourne(1); break;
    case kFonctionTableFermer: ferme(); break;
    default: return Suite::PasPourMoi;
    }
    return Suite::Fait;
}

void PanneauTable::compte(const Dessin& dessin) {
    lignes_ = nomenclature(dessin, critere_);
    premiere_ = 0;
    montre();
}

void PanneauTable::tourne(int pages) {
    if (pages < 0) premiere_ -= std::min(premiere_, kRangees);
    if (pages > 0 && premiere_ + kRangees < lignes_.size()) premiere_ += kRangees;
    montre();
}

void PanneauTable::montre() {
    for (std::size_t i = 0; i < cases_.size(); ++i) {
        const std::size_t ligne = premiere_ + i / kColonnes.size(), colonne = i % kColonnes.size();
        change(cases_[i], aligne(ligne < lignes_.size() ? case_(lignes_[ligne], colonne, mesure_) : "", colonne));
    }
    grx_desactive_bouton(panneau_.bouton(kFonctionTablePrecedents), premiere_ == 0 ? 1 : 0);
    grx_desactive_bouton(panneau_.bouton(kFonctionTableSuivants), premiere_ + kRangees < lignes_.size() ? 0 : 1);
}

} // namespace atelier
