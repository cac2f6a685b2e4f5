#include "outils.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "controles.h"
#include "fonctions.h"
#include "grx_plus_aide.h"
#include "grx_plus_listes.h"
#include "host_g.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

constexpr int kMarge = 10, kCote = 34, kPas = 38;
constexpr int kYIcones = 12, kYChamps = 100, kYZoom = 188, kYCouches = 254, kHauteurListe = 230;
constexpr int kZoomMax = 100;          // of the scale; its middle is the whole drawing
constexpr double kZoomParMoitie = 2.0; // powers of ten from the middle to an end
constexpr std::string_view kVue = "[x] ", kCachee = "[ ] ";

struct Icone {
    const char* nom;
    INT fonction;
    const char* bulle;
};
constexpr std::array<Icone, 8> kIcones{{{"TOUT", kFonctionToutVoir, "Tout voir (F3)"},
    {"PLUS", kFonctionAgrandir, "Agrandir (Ctrl+F3)"}, {"MOINS", kFonctionReduire, "R\351duire (Ctrl+F4)"},
    {"COUCHES", kFonctionCouchesToutes, "Montrer toutes les couches"},
    {"QUITTER", kFonctionQuitter, "Quitter (Ctrl+Q)"}, {"GRILLE", kFonctionReglages, "R\351glages du dessin (F5)"},
    {"CHOIX", kFonctionCouchesPanneau, "Choix des couches (F6)"},
    {"TABLE", kFonctionNomenclature, "Nomenclature (F7)"}}};
constexpr int kIconesParRangee = 5;

void libelle(INT fenetre, int x, int y, std::string_view texte) {
    GRX_BOUTON b = bouton(fenetre, GRX_BOU_LABEL, x, y, -1, -1);
    copie(b.titre, texte);
    cree_bouton(b);
}

std::string entree_de(const CalqueVu& calque) {
    return std::string(calque.visible ? kVue : kCachee) + calque.nom;
}

// How many times larger than the whole drawing fills the sheet a place of the scale means.
double rapport_de(INT valeur) {
    return std::pow(10.0, kZoomParMoitie * (2.0 * valeur / kZoomMax - 1));
}

} // namespace

bool Outils::cree(INT mere, std::string icones) {
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_BOUTONS;
    f.attrib = GRX_FEN_ATT_FILLE | GRX_FEN_ATT_VISIBLE;
    f.fen_mere = mere;
    f.droite = kLargeur;
    f.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_GAUCHE;
    if (grx_cree_fenetre(&f) != 0) return false;
    nofen_ = f.nofen;
    grx_init_repertoire_icones(icones.data());
    grx_affecte_format_icone(GRX_FORMAT_ICONE_M);
    cree_icones();
    cree_champs();
    cree_zoom();
    cree_couches();
    montre_calques();
    return true;
}

void Outils::cree_icones() {
    std::array<char, HOST_CHEMIN_MAX> repertoire{};
    grx_recup_repertoire_icones(repertoire.data());
    int place = 0;
    for (const Icone& icone : kIcones) {
        const int x = kMarge + kPas * (place % kIconesParRangee), y = kYIcones + kPas * (place / kIconesParRangee);
        GRX_BOUTON b = bouton(nofen_, GRX_BOU_DESSINE, x, y, kCote, kCote);
        b.no_fo = icone.fonction;
        copie(b.titre, icone.nom);
        const INT nobou = cree_bouton(b);
        std::string fichier = std::string(repertoire.data()) + "/" + icone.nom + ".BMP";
        grx_change_icone_bouton(nobou, fichier.data());
        grx_affecte_bulle(nobou, icone.bulle);
        if (premiere_icone_ < 0) premiere_icone_ = nobou;
        ++place;
    }
}

void Outils::cree_champs() {
    constexpr int kXChamp = 40, kLargeurChamp = kLargeur - kXChamp - kMarge, kHauteurChamp = 27, kEntre = 36;
    const auto champ = [&](const char* nom, int y, INT fonction) {
        libelle(nofen_, kMarge, y + 6, nom);
        GRX_BOUTON b = bouton(nofen_, GRX_BOU_TEXTE, kXChamp, y, kLargeurChamp, kHauteurChamp);
        b.tabi[GRX_BOU_TABI_COLONNES] = -1;
        b.no_fo = fonction;
        return cree_bouton(b);
    };
    champ_x_ = champ("X", kYChamps, kFonctionChampX);
    champ_y_ = champ("Y", kYChamps + kEntre, kFonctionChampY);
    for (const INT nobou : {champ_x_, champ_y_})
        grx_affecte_bulle(nobou, "Milieu de la feuille\nRetour : aller \340 ce point");
}

void Outils::cree_zoom() {
    libelle(nofen_, kMarge, kYZoom - 12, "Zoom");
    GRX_BOUTON b = bouton(nofen_, GRX_BOU_ECHELLE, kMarge, kYZoom + 8, kLargeur - 2 * kMarge, 18);
    b.attrib |= GRX_BOU_ATT_ECHELLE_HORIZ;
    b.tabi[GRX_BOU_TABI_MAXI] = kZoomMax;
    b.tabi[GRX_BOU_TABI_INITIAL] = kZoomMax / 2;
    b.no_fo = kFonctionZoom;
    zoom_ = cree_bouton(b);
    grx_affecte_bulle(zoom_, "De 100 fois plus petit \340 100 fois plus grand que tout le dessin");
}

void Outils::cree_couches() {
    libelle(nofen_, kMarge, kYCouches - 20, "Couches (double clic)");
    GRX_BOUTON b = bouton(nofen_, GRX_BOU_LISTE, kMarge, kYCouches, kLargeur - 2 * kMarge - 20, kHauteurListe);
    b.attrib |= GRX_BOU_ATT_LISTE_SCROLL;
    liste_ = cree_bouton(b);
    grx_affecte_bulle(liste_, "Un clic choisit la couche, un double clic la montre ou la cache");
}

// --- what the user does -------------------------------------------------------------------------------------------

Suite Outils::prend(const GRX_EVENEMENT& e, Feuille& feuille) {
    switch (e.type_evenement) {
    case GRX_EVT_CARAC_APPUI: return est_champ(e.carac_appui.nobou) ? Suite::Fait : Suite::PasPourMoi;
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE: return controle(e.exec_fonction, feuille);
    case GRX_EVT_ELEMENT_CLIQUE: return couche_choisie(e.element_clique, feuille);
    default: return Suite::PasPourMoi;
    }
}

Suite Outils::controle(const GRX_EXEC_FONCTION& e, Feuille& feuille) const {
    switch (e.no_fo) {
    case kFonctionZoom: feuille.fixe_rapport(rapport_de(e.valeur)); return Suite::Fait;
    case kFonctionChampX:
    case kFonctionChampY:
        if (const auto p = centre_tape()) feuille.centre_sur(feuille.cotes().du_dessin(*p));
        feuille.perime();
        return Suite::Fait;
    default: return Suite::PasPourMoi;
    }
}

// A click chooses a layer, a double one shows or hides it.
Suite Outils::couche_choisie(const GRX_ELEMENT_CLIQUE& e, Feuille& feuille) {
    const int calque = calque_de(e.nobou, e.chaine);
    if (calque < 0) return Suite::PasPourMoi;
    plan_.calque_choisi = calque;
    if (e.double_click == 0) return Suite::Choix;
    bool& visible = plan_.dessin.calques[static_cast<std::size_t>(calque)].visible;
    visible = !visible;
    montre_calques();
    feuille.perime();
    return Suite::Calques;
}

Suite Outils::action(INT fonction, Feuille& feuille) {
    switch (fonction) {
    case kFonctionCouchesToutes:
    case kFonctionCouchesAucune:
        plan_.montre_calques(fonction == kFonctionCouchesToutes);
        montre_calques();
        feuille.perime();
        return Suite::Calques;
    case kFonctionModuleCommun:
    case kFonctionModuleMeca:
    case kFonctionModuleArch: change_module(fonction - kFonctionModuleCommun); return Suite::Fait;
    default: return Suite::PasPourMoi;
    }
}

// The menus of another module, in the bar that is there.
void Outils::change_module(INT module) {
    constexpr int kSelecteur = 233; // of the host's state: which menu file is read
    if (module == module_) return;
    module_ = module;
    istate[kSelecteur] = module;
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
}

// The layer that an entry of the list stands for, -1 for an entry of another list.
int Outils::calque_de(INT nobou, const char* entree) const {
    const std::vector<CalqueVu>& calques = plan_.dessin.calques;
    if (nobou != liste_) return -1;
    const auto trouve =
        std::ranges::find_if(calques, [&](const CalqueVu& calque) { return entree_de(calque) == entree; });
    return trouve != calques.end() ? static_cast<int>(trouve - calques.begin()) : -1;
}

// The numbers that the fields hold, nothing when they hold none.
std::optional<Point> Outils::centre_tape() const {
    const auto x = lit_nombre(texte_de(champ_x_)), y = lit_nombre(texte_de(champ_y_));
    return x && y ? std::optional(Point{*x, *y}) : std::nullopt;
}

void Outils::rend_le_clavier() const {
    grx_force_focus_sur_bouton(premiere_icone_);
}

// --- what they show -----------------------------------------------------------------------------------------------

// Of the layers that were there, each entry in its place: what is chosen and the view stay.
void Outils::montre_calques() {
    std::vector<std::string> entrees;
    std::vector<const char*> textes;
    for (const CalqueVu& calque : plan_.dessin.calques) entrees.push_back(entree_de(calque));
    for (const std::string& entree : entrees) textes.push_back(entree.c_str());
    const INT nombre = static_cast<INT>(textes.size());
    if (nombre > 0 && grx_recup_nombre_elements_liste(liste_) == nombre)
        grx_remplace_elements_liste(liste_, 1, nombre, textes.data());
    else
        grx_remplit_liste(liste_, nombre, textes.data());
}

void Outils::montre(const Feuille& feuille) {
    const Cotes cotes = feuille.cotes();
    const Point centre = cotes.lues(feuille.vue().centre());
    montre_zoom(feuille.vue().rapport());
    montre_champ(champ_x_, x_, cotes.texte(centre.x));
    montre_champ(champ_y_, y_, cotes.texte(centre.y));
}

void Outils::montre_zoom(double rapport) {
    const double place = kZoomMax / 2.0 * (1 + std::log10(std::max(rapport, 1e-9)) / kZoomParMoitie);
    const int valeur = static_cast<int>(std::lround(std::clamp<double>(place, 0, kZoomMax)));
    if (valeur == valeur_zoom_) return;
    valeur_zoom_ = valeur;
    grx_change_valeur_echelle(zoom_, valeur);
}

// What is typed in the field stays until the number changes.
void Outils::montre_champ(INT nobou, std::string& connu, const std::string& nouveau) {
    if (connu == nouveau) return;
    connu = nouveau;
    std::string texte = nouveau;
    grx_change_texte(nobou, texte.data());
}

} // namespace atelier
