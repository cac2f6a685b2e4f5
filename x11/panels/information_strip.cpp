// The message and information strip below the drawing: one row of controls, or two.
#include <X11/Xlib.h>

#include <algorithm>
#include <array>

#include "pure/axis.h"
#include "pure/out.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "toolkit/control_parts.h"
#include "registry/control_table.h"
#include "controls/menu_texts.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_fme_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kRows = 2;
constexpr INT kRowMargin = 4;    // a row is that much higher than a line of text
constexpr INT kWindowMargin = 6; // and the window than its lines
constexpr INT kFrame = 2;        // thickness of the frame around a field
constexpr INT kSeparatorTop = 2; // below the line of text
constexpr INT kSeparatorWidth = 4000;
constexpr INT kSeparatorHeight = 2;

void forget_own_controls();

// A control of the strip that the application does not know: its number goes with its widget, and may be another's
// then.
class OwnControl {
  public:
    OwnControl() = default;
    explicit OwnControl(INT nobou) : nobou_(nobou), widget_(grx::control_widget_if_any(nobou)) {
        grx::at_shut_down(forget_own_controls);
        grx::free_with_widget(nobou);
    }
    INT number() const {
        return widget_ != nullptr && grx::control_widget_if_any(nobou_) == widget_ ? nobou_ : GRX_AUCUN;
    }

  private:
    INT nobou_ = GRX_AUCUN;
    Widget widget_ = nullptr;
};

std::array<OwnControl, kRows> Bou_sep;
OwnControl support_x;
OwnControl support_y;

using Field = GRX_BOUTON GRX_ZONE_INFO::*;

// KEEP: the second row is made with the force before the altitude, shown and hidden with the altitude first.
constexpr std::array<Field, 13> kSecondRowAsMade{&GRX_ZONE_INFO::Bou_fleche_bas, &GRX_ZONE_INFO::Bou_fen,
    &GRX_ZONE_INFO::Bou_saisie_fen, &GRX_ZONE_INFO::Bou_plan, &GRX_ZONE_INFO::Bou_saisie_plan,
    &GRX_ZONE_INFO::Bou_couche, &GRX_ZONE_INFO::Bou_saisie_couche, &GRX_ZONE_INFO::Bou_force,
    &GRX_ZONE_INFO::Bou_saisie_force, &GRX_ZONE_INFO::Bou_alt, &GRX_ZONE_INFO::Bou_saisie_alt,
    &GRX_ZONE_INFO::Bou_grille, &GRX_ZONE_INFO::Bou_polaire};
constexpr std::array<Field, 13> kSecondRowAsShown{&GRX_ZONE_INFO::Bou_fleche_bas, &GRX_ZONE_INFO::Bou_fen,
    &GRX_ZONE_INFO::Bou_saisie_fen, &GRX_ZONE_INFO::Bou_plan, &GRX_ZONE_INFO::Bou_saisie_plan,
    &GRX_ZONE_INFO::Bou_couche, &GRX_ZONE_INFO::Bou_saisie_couche, &GRX_ZONE_INFO::Bou_alt,
    &GRX_ZONE_INFO::Bou_saisie_alt, &GRX_ZONE_INFO::Bou_force, &GRX_ZONE_INFO::Bou_saisie_force,
    &GRX_ZONE_INFO::Bou_grille, &GRX_ZONE_INFO::Bou_polaire};

INT line_height() {
    return grx_recup_hau_carac_alpha();
}

void create_hidden(GRX_BOUTON& bou) {
    if (grx_cree_bouton(&bou) == 0) grx_cache_bouton(bou.nobou);
}

// A line wider than any screen, across the window that `neighbour` stands in.
GRX_BOUTON separator(const GRX_BOUTON& neighbour, INT y) {
    GRX_BOUTON line;
    grx_init_bouton(&line);
    line.fen_mere = neighbour.fen_mere;
    line.ref_fen_mere = neighbour.ref_fen_mere;
    line.x = 0;
    line.y = y;
    line.largeur = kSeparatorWidth;
    line.hauteur = kSeparatorHeight;
    line.type = GRX_BOU_SEPARATEUR;
    line.attrib = GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_SEPARATEUR_HORIZ;
    return line;
}

OwnControl create_separator(const GRX_BOUTON& neighbour, INT y) {
    GRX_BOUTON line = separator(neighbour, y);
    return grx_cree_bouton(&line) == 0 ? OwnControl(line.nobou) : OwnControl();
}

// A sunken frame in the place of a field.
OwnControl create_frame(const GRX_BOUTON& field) {
    GRX_BOUTON frame;
    grx_init_bouton(&frame);
    frame.fen_mere = field.fen_mere;
    frame.ref_fen_mere = field.ref_fen_mere;
    frame.x = field.x;
    frame.y = field.y;
    frame.largeur = field.largeur;
    frame.hauteur = field.hauteur;
    frame.type = GRX_BOU_DESSINE;
    frame.attrib = GRX_BOU_ATT_ACTIF;
    if (grx_cree_bouton(&frame) != 0) return {};
    grx_enfonce_bouton(frame.nobou);
    return OwnControl(frame.nobou);
}

void move_inside(GRX_BOUTON& field) {
    for (INT* const edge : {&field.x, &field.y}) *edge = grx::saturated(int64_t{*edge} + kFrame);
    for (INT* const size : {&field.largeur, &field.hauteur}) *size = grx::saturated(int64_t{*size} - 2 * kFrame);
}

// The toolkit is not asked for a negative size: a field that has none stays without.
INT create_sized(GRX_BOUTON& field) {
    GRX_BOUTON bou = field;
    bou.largeur = std::max<INT>(bou.largeur, GRX_AUCUN);
    bou.hauteur = std::max<INT>(bou.hauteur, GRX_AUCUN);
    if (grx_cree_bouton(&bou) != 0) return GRX_AUCUN;
    return field.nobou = bou.nobou;
}

OwnControl create_framed(GRX_BOUTON& field) {
    const OwnControl frame = create_frame(field);
    move_inside(field);
    const Window window = grx::window_of(grx::with_scroll_bars(grx_recup_objet_bout(create_sized(field))));
    if (window != None) XRaiseWindow(x11_disp, window);
    return frame;
}

void create_first_row(GRX_ZONE_INFO& zone) {
    grx_cree_bouton(&zone.Bou_fleche_haut);
    create_framed(zone.Bou_fonction);
    create_framed(zone.Bou_mess);
    grx::note_message_field(zone.Bou_mess.nobou);
    grx_cree_bouton(&zone.Bou_saisie);
    support_x = create_framed(zone.Bou_aff_x);
    support_y = create_framed(zone.Bou_aff_y);
}

void show_all(const GRX_ZONE_INFO& zone, INT (*show)(INT nobou)) {
    for (const Field field : kSecondRowAsShown) show((zone.*field).nobou);
}

void forget_own_controls() {
    Bou_sep.fill({});
    support_x = support_y = {};
}

} // namespace

extern "C" {

void grx_recup_taille_position_fenetre_message_plein_ecran(INT* x, INT* y, INT* lar, INT* hau) {
    const INT border = grx_get_tabord();
    const int64_t borders = 2 * int64_t{border};
    grx::give(x, border);
    grx::give(y, border);
    grx::give(lar, grx::saturated(grx_recup_lar_ecran() - borders));
    grx::give(hau, grx::saturated(grx_recup_hau_ecran() - borders - grx_get_tatitre()));
}

void grx_cree_fenetre_info(GRX_FENETRE* fen_info) {
    if (fen_info == nullptr) return;
    fen_info->haut = grx::saturated(int64_t{kRows} * line_height() + kWindowMargin);
    grx_cree_fenetre(fen_info);
}

void grx_cree_boutons_fenetre_info(GRX_ZONE_INFO* zone_info, INT* haut_fenetre) {
    if (zone_info == nullptr) return;
    Bou_sep[0] = create_separator(zone_info->Bou_fleche_haut, grx::saturated(int64_t{line_height()} + kSeparatorTop));
    create_first_row(*zone_info);
    Bou_sep[1] = create_separator(zone_info->Bou_fleche_haut, 0);
    grx_cache_bouton(Bou_sep[1].number());
    for (const Field field : kSecondRowAsMade) create_hidden(zone_info->*field);
    grx::give(haut_fenetre, grx::saturated(int64_t{line_height()} + kRowMargin));
}

void grx_agrandit_fenetre_info(GRX_FENETRE fen_liste, GRX_ZONE_INFO zone_info, INT* haut_fenetre) {
    grx_cache_bouton(zone_info.Bou_fleche_haut.nobou);
    show_all(zone_info, grx_affiche_bouton);
    grx_cache_bouton(Bou_sep[0].number());
    grx_affiche_bouton(Bou_sep[1].number());
    INT width = 0;
    if (haut_fenetre != nullptr) grx_recup_taille_fenetre_fille(fen_liste.nofen, &width, haut_fenetre);
}

void grx_reduit_fenetre_info(GRX_FENETRE fen_liste, GRX_ZONE_INFO zone_info, INT* haut_fenetre) {
    show_all(zone_info, grx_cache_bouton);
    grx_affiche_bouton(zone_info.Bou_fleche_haut.nobou);
    grx_cache_bouton(Bou_sep[1].number());
    grx_affiche_bouton(Bou_sep[0].number());
    INT width = 0;
    if (haut_fenetre == nullptr || grx_recup_objet_fen(fen_liste.nofen) == nullptr) return;
    grx_recup_taille_fenetre_fille(fen_liste.nofen, &width, haut_fenetre);
    *haut_fenetre /= kRows;
}

void grx_affiche_cache_xy(INT cas, GRX_ZONE_INFO zone_info) {
    const auto show = cas == GRX_XY_CACHE ? grx_cache_bouton : grx_affiche_bouton;
    for (const INT nobou :
        {zone_info.Bou_aff_x.nobou, zone_info.Bou_aff_y.nobou, support_x.number(), support_y.number()})
        show(nobou);
}
}
