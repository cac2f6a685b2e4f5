// Checks the record that a paper begins with, and lays the drawing on sheets.
#include "papier/setup.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "grx_plus_erreurs.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_t.h"
#include "xt_ini_t.h"

namespace {

constexpr double kLeastSide = 10, kMostSide = 5000; // of a sheet, mm
constexpr double kLeastRoom = 5;                    // between margins
constexpr double kWidest = 100;                     // line
constexpr double kLargest = 100000;                 // drawing
constexpr INT kMostTable = 65536;
constexpr INT kMostPens = 99;
constexpr INT kMostCopies = 999;

bool between(double value, double least, double most) {
    return value >= least && value <= most; // not for what is no number
}

bool within(INT value, INT least, INT most) {
    return value >= least && value <= most;
}

bool is_switch(INT value) {
    return within(value, 0, 1);
}

template <class T>
bool table_given(INT count, const T* table) {
    return within(count, 0, kMostTable) && (count == 0 || table != nullptr);
}

bool good_target(const GRX_PAPIER& p) {
    if (!within(p.genre, GRX_PAPIER_PDF, GRX_PAPIER_IMPRIMANTE)) return false;
    if (p.genre == GRX_PAPIER_IMPRIMANTE) return within(p.copies, 1, kMostCopies);
    return p.fichier != nullptr && p.fichier[0] != '\0';
}

bool good_sheet(const GRX_PAPIER& p) {
    if (p.format == GRX_PAPIER_LIBRE)
        return between(p.largeur, kLeastSide, kMostSide) && between(p.hauteur, kLeastSide, kMostSide);
    return within(p.format, GRX_PAPIER_A0, GRX_PAPIER_A4)
           && within(p.orientation, GRX_PAPIER_PORTRAIT, GRX_PAPIER_PAYSAGE);
}

bool good_margins(const GRX_PAPIER& p) {
    for (const double margin : {p.marge_gauche, p.marge_droite, p.marge_haut, p.marge_bas})
        if (!between(margin, 0, kMostSide)) return false;
    return true;
}

bool good_scale(const GRX_PAPIER& p) {
    if (!(std::isfinite(p.mm_par_pixel) && p.mm_par_pixel > 0)) return false;
    return p.echelle == GRX_PAPIER_AJUSTE || (std::isfinite(p.echelle) && p.echelle > 0);
}

bool good_area(const GRX_PAPIER& p) {
    if (p.cible != GRX_CIBLE_FENETRE && p.cible != GRX_CIBLE_BOUTON) return false;
    return (p.largeur_zone > 0 && p.hauteur_zone > 0) || (p.largeur_zone == 0 && p.hauteur_zone == 0);
}

bool good_choices(const GRX_PAPIER& p) {
    return is_switch(p.centre) && is_switch(p.plusieurs_feuilles) && is_switch(p.blanc_en_noir)
           && within(p.reperes, 0, 2) && within(p.couleurs, GRX_PAPIER_COULEURS_ECRAN, GRX_PAPIER_COULEURS_TABLE)
           && between(p.recouvrement, 0, kMostSide);
}

bool good_widths(const GRX_PAPIER& p) {
    for (const double width : p.epaisseurs)
        if (!(width > 0 && width <= kWidest)) return false;
    if (!table_given(p.nb_epaisseurs, p.epaisseurs_couleur)) return false;
    return std::all_of(p.epaisseurs_couleur, p.epaisseurs_couleur + p.nb_epaisseurs,
        [](double width) { return between(width, 0, kWidest); });
}

bool good_pens(const GRX_PAPIER& p) {
    if (!table_given(p.nb_plumes, p.plumes) || !table_given(p.nb_couleurs, p.couleurs_table)) return false;
    return std::all_of(p.plumes, p.plumes + p.nb_plumes, [](INT pen) { return within(pen, 0, kMostPens); });
}

bool good_rest(const GRX_PAPIER& p) {
    return between(p.unite_tirets, .001, kWidest) && between(p.hauteur_texte, 0, kMostSide)
           && (p.hachures == 0 || between(p.hachures, .05, kMostSide));
}

constexpr std::array kChecks{
    good_target, good_sheet, good_margins, good_scale, good_area, good_choices, good_widths, good_pens, good_rest};

// --- the rectangle ------------------------------------------------------------------------------------------------

struct Area {
    INT width = 0, height = 0;
};

INT area_of_window(const GRX_PAPIER& p, Area& area) {
    if (p.numero == GRX_AUCUN) return GRX_ECHEC_PARAMETRE;
    if (p.cible == GRX_CIBLE_FENETRE) {
        if (grx_recup_objet_fen(p.numero) == nullptr) return GRX_ECHEC_NUMERO;
        grx_recup_taille_fenetre_fille(p.numero, &area.width, &area.height);
    } else {
        if (grx_recup_objet_bout(p.numero) == nullptr) return GRX_ECHEC_NUMERO;
        grx_recup_taille_bouton(p.numero, &area.width, &area.height);
    }
    return area.width > 0 && area.height > 0 ? 1 : GRX_ECHEC_NUMERO;
}

INT area_of(const GRX_PAPIER& p, Area& area) {
    area = {p.largeur_zone, p.hauteur_zone};
    return p.largeur_zone > 0 ? 1 : area_of_window(p, area);
}

// --- sheets -------------------------------------------------------------------------------------------------------

void measure_sheet(const GRX_PAPIER& p, papier::Layout& l) {
    l.sheet_width = p.largeur;
    l.sheet_height = p.hauteur;
    if (p.format != GRX_PAPIER_LIBRE) {
        grx_recup_taille_papier(p.format, &l.sheet_width, &l.sheet_height);
        if (p.orientation == GRX_PAPIER_PAYSAGE) std::swap(l.sheet_width, l.sheet_height);
    }
    l.printable = {p.marge_gauche, p.marge_haut, l.sheet_width - p.marge_droite, l.sheet_height - p.marge_bas};
}

bool room_left(const papier::Layout& l) {
    return l.printable.width() >= kLeastRoom && l.printable.height() >= kLeastRoom;
}

void scale(const GRX_PAPIER& p, const Area& area, papier::Layout& l) {
    l.mm_per_pixel = p.echelle == GRX_PAPIER_AJUSTE
                         ? std::min(l.printable.width() / area.width, l.printable.height() / area.height)
                         : p.mm_par_pixel / p.echelle;
    l.width = area.width * l.mm_per_pixel;
    l.height = area.height * l.mm_per_pixel;
}

constexpr double kRounding = 1e-6; // mm by which a drawing that fills a sheet may be larger

// One side of the drawing: how many sheets it takes, how far they are apart, and where it begins on the first.
struct Side {
    double sheets, step, begin;
};

Side lay_side(double length, double room, const GRX_PAPIER& p) {
    if (length <= room + kRounding) return {1, room, p.centre != 0 ? (room - length) / 2 : 0};
    if (p.plusieurs_feuilles == 0) return {1, room, 0};
    const double step = room - p.recouvrement;
    return {std::ceil((length - p.recouvrement - kRounding) / step), step, 0};
}

bool overlap_fits(const GRX_PAPIER& p, const papier::Layout& l) {
    return p.recouvrement < std::min(l.printable.width(), l.printable.height()) / 2;
}

INT count_sheets(const GRX_PAPIER& p, papier::Layout& l) {
    const bool divided = l.width > l.printable.width() + kRounding || l.height > l.printable.height() + kRounding;
    if (p.plusieurs_feuilles != 0 && divided && !overlap_fits(p, l)) return GRX_ECHEC_PARAMETRE;
    const Side across = lay_side(l.width, l.printable.width(), p);
    const Side down = lay_side(l.height, l.printable.height(), p);
    if (across.sheets * down.sheets > GRX_PAPIER_FEUILLES_MAX) return GRX_ECHEC_PARAMETRE;
    l.columns = static_cast<INT>(across.sheets);
    l.rows = static_cast<INT>(down.sheets);
    l.step_x = across.step;
    l.step_y = down.step;
    l.left = l.printable.left + across.begin;
    l.top = l.printable.top + down.begin;
    return p.genre == GRX_PAPIER_SVG && l.sheets() > 1 ? GRX_ECHEC_GENRE : 1;
}

} // namespace

namespace papier {

INT read_record(const GRX_PAPIER* given, GRX_PAPIER& into) {
    if (given == nullptr || given->taille < static_cast<INT>(sizeof into)) return GRX_ECHEC_PARAMETRE;
    std::memcpy(&into, given, sizeof into);
    const bool good = std::all_of(kChecks.begin(), kChecks.end(), [&](auto check) { return check(into); });
    return good ? 1 : GRX_ECHEC_PARAMETRE;
}

Box Layout::shown(INT column, INT row) const {
    const Point from = origin(column, row);
    return printable.moved(-from.x, -from.y).common(drawing());
}

INT lay_out(const GRX_PAPIER& paper, Layout& into) {
    Area area;
    measure_sheet(paper, into);
    if (!room_left(into)) return GRX_ECHEC_PARAMETRE;
    if (const INT code = area_of(paper, area); code != 1) return code;
    into.x = paper.x;
    into.y = paper.y;
    scale(paper, area, into);
    if (!(into.width <= kLargest && into.height <= kLargest && into.mm_per_pixel > 0)) return GRX_ECHEC_PARAMETRE;
    return count_sheets(paper, into);
}

} // namespace papier

extern "C" {

INT grx_init_papier(GRX_PAPIER* papier) {
    constexpr double kWidths[GRX_PAPIER_NB_EPAISSEURS] = {.18, .25, .35, .5, .7, 1, 1.4, 2};
    if (papier == nullptr) return GRX_ECHEC_PARAMETRE;
    *papier = {};
    papier->taille = static_cast<INT>(sizeof *papier);
    papier->copies = 1;
    papier->format = GRX_PAPIER_A4;
    papier->marge_gauche = papier->marge_droite = papier->marge_haut = papier->marge_bas = 10;
    papier->cible = GRX_CIBLE_FENETRE;
    papier->numero = GRX_AUCUN;
    papier->mm_par_pixel = 1;
    papier->echelle = GRX_PAPIER_AJUSTE;
    papier->centre = papier->plusieurs_feuilles = papier->reperes = papier->blanc_en_noir = 1;
    papier->recouvrement = 10;
    std::copy(std::begin(kWidths), std::end(kWidths), papier->epaisseurs);
    papier->unite_tirets = .25;
    return 1;
}

INT grx_init_feuilles_papier(GRX_FEUILLES_PAPIER* feuilles) {
    if (feuilles == nullptr) return GRX_ECHEC_PARAMETRE;
    *feuilles = {};
    feuilles->taille = static_cast<INT>(sizeof *feuilles);
    return 1;
}

INT grx_recup_feuilles_papier(const GRX_PAPIER* papier, GRX_FEUILLES_PAPIER* feuilles) {
    GRX_PAPIER read{};
    papier::Layout layout{};
    if (feuilles == nullptr || feuilles->taille < static_cast<INT>(sizeof *feuilles)) return GRX_ECHEC_PARAMETRE;
    if (const INT code = papier::read_record(papier, read); code != 1) return code;
    if (const INT code = papier::lay_out(read, layout); code != 1) return code;
    feuilles->colonnes = layout.columns;
    feuilles->lignes = layout.rows;
    feuilles->echelle = read.mm_par_pixel / layout.mm_per_pixel;
    feuilles->largeur = layout.sheet_width;
    feuilles->hauteur = layout.sheet_height;
    feuilles->mm_par_pixel = layout.mm_per_pixel;
    feuilles->gauche = layout.left;
    feuilles->haut = layout.top;
    return 1;
}
}
