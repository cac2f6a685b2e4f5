// The window in which one colour of the palette is edited: sliders of two colour models that follow each other.
#include <algorithm>
#include <array>
#include <cstring>

#include "pure/colour_model.h"
#include "pure/text.h"
#include "system/shut_down.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_pan_f.h"

INT No_fen_mod_coul = GRX_AUCUN;
INT Rouge = GRX_AUCUN;
INT Vert = GRX_AUCUN;
INT Bleu = GRX_AUCUN;
INT Bou_h = GRX_AUCUN;
INT Bou_l = GRX_AUCUN;
INT Bou_s = GRX_AUCUN;
INT Bou_reset = GRX_AUCUN;
INT Couleur_active = 0;
INT rvb_glob[3] = {};
INT hls_glob[3] = {};
INT memo_rvb[3] = {};

namespace {

using Triple = grx::Triple;

constexpr std::array<INT*, 3> kRgbSliders{&Rouge, &Vert, &Bleu};
constexpr std::array<INT*, 3> kHlsSliders{&Bou_h, &Bou_l, &Bou_s};
constexpr std::array<INT*, 7> kButtons{&Rouge, &Vert, &Bleu, &Bou_reset, &Bou_h, &Bou_l, &Bou_s};

INT former_window = GRX_AUCUN;   // that was to be digitized before
Widget palette_widget = nullptr; // what the window's number named when it was opened

bool is_open() {
    return No_fen_mod_coul != GRX_AUCUN;
}

// The window to act on; GRX_AUCUN once it is gone, for its number may be another window's before its end was told.
INT own_window() {
    return grx::window_widget_if_any(No_fen_mod_coul) == palette_widget ? No_fen_mod_coul : GRX_AUCUN;
}

Triple triple(const INT* values) {
    return {values[0], values[1], values[2]};
}

void store(INT* where, const Triple& values) {
    std::copy(values.begin(), values.end(), where);
}

// -- sliders

void move_sliders(const std::array<INT*, 3>& sliders, const Triple& values, const Triple& most) {
    for (std::size_t i = 0; is_open() && i < sliders.size(); ++i) {
        if (*sliders[i] != GRX_AUCUN) grx_change_valeur_echelle(*sliders[i], std::clamp(values[i], 0, most[i]));
    }
}

constexpr Triple kMostRgb{GRX_RVB_MAX, GRX_RVB_MAX, GRX_RVB_MAX};
constexpr Triple kMostHls{GRX_H_MAX, GRX_L_MAX, GRX_S_MAX};

void move_rgb() {
    move_sliders(kRgbSliders, triple(rvb_glob), kMostRgb);
}

void move_hls() {
    move_sliders(kHlsSliders, triple(hls_glob), kMostHls);
}

// -- layout, in characters and lines

struct Slider {
    INT* number;
    const char* title;
    INT most;
    INT column, row;
    Triple colour; // of its text; black: the toolkit's own
};
constexpr Triple kOwnColour{0, 0, 0};
constexpr std::array<Slider, 3> kRgbLayout{{{&Rouge, "Rouge", GRX_RVB_MAX, 0, 0, {255, 0, 0}},
    {&Vert, "Vert", GRX_RVB_MAX, 0, 1, {0, 128, 0}}, {&Bleu, "Bleu", GRX_RVB_MAX, 0, 2, {0, 0, 255}}}};
constexpr std::array<Slider, 3> kHlsLayout{{{&Bou_h, "Teinte", GRX_H_MAX, 1, 0, kOwnColour},
    {&Bou_l, "Luminance", GRX_L_MAX, 1, 1, kOwnColour}, {&Bou_s, "Saturation", GRX_S_MAX, 1, 2, kOwnColour}}};

constexpr INT kMargin = 12;
constexpr INT kSliderCharacters = 30;
constexpr INT kSliderLines = 3; // value, slider, title
constexpr INT kRowsOfSliders = 3;
constexpr INT kSliderHeight = 18;

// Of a character, within what a window can hold.
constexpr INT kLargestCell = 200;

INT cell_width() {
    return std::clamp<INT>(grx_recup_lar_carac_alpha(), 1, kLargestCell);
}

INT cell_height() {
    return std::clamp<INT>(grx_recup_hau_carac_alpha(), 1, kLargestCell);
}

INT slider_width() {
    return kSliderCharacters * cell_width();
}

INT row_height() {
    return kSliderLines * cell_height();
}

bool is_colour(const INT (&rgb)[3], const Triple& colour) {
    return std::equal(colour.begin(), colour.end(), rgb);
}

// Index of a colour among the first `count` of a palette, -1 when it is not there.
template <std::size_t N>
INT index_in(const INT (&palette)[N][3], INT count, const Triple& colour) {
    const INT known = std::clamp<INT>(count, 0, static_cast<INT>(N));
    for (INT i = 0; i < known; ++i) {
        if (is_colour(palette[i], colour)) return i;
    }
    return GRX_AUCUN;
}

// Searches the palettes, not the cells of the screen: those hold not quite what was asked for.
INT colour_index(const Triple& colour) {
    if (colour == kOwnColour) return GRX_AUCUN;
    const INT reserved = grx_recup_max_couleur_reserve();
    const INT first = index_in(palette_reserve, reserved, colour);
    if (first != GRX_AUCUN) return first;
    const INT drawing = index_in(palette_trace, grx_recup_max_couleur_trace(), colour);
    return drawing != GRX_AUCUN ? reserved + drawing : GRX_AUCUN;
}

GRX_BOUTON control(INT type) {
    GRX_BOUTON bou;
    grx_init_bouton(&bou);
    bou.fen_mere = No_fen_mod_coul;
    bou.type = type;
    return bou;
}

void create(INT* number, GRX_BOUTON& bou) {
    *number = grx_cree_bouton(&bou) == 0 ? bou.nobou : GRX_AUCUN;
}

void create_slider(const Slider& slider) {
    GRX_BOUTON bou = control(GRX_BOU_ECHELLE);
    bou.attrib = GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_ECHELLE_HORIZ | GRX_BOU_ATT_ECHELLE_VALEUR;
    bou.x = kMargin + slider.column * (slider_width() + 2 * kMargin);
    bou.y = kMargin + slider.row * row_height();
    bou.largeur = slider_width();
    bou.hauteur = kSliderHeight;
    bou.coul_trace = colour_index(slider.colour);
    bou.tabi[GRX_BOU_TABI_MAXI] = slider.most;
    grx::copy_text(bou.titre, slider.title);
    create(slider.number, bou);
}

void create_reset() {
    constexpr INT characters = 14;
    GRX_BOUTON bou = control(GRX_BOU_SIMPLE);
    bou.attrib = GRX_BOU_ATT_ACTIF;
    bou.largeur = characters * cell_width();
    bou.hauteur = cell_height() + kMargin / 2;
    bou.x = kMargin + slider_width() + kMargin - bou.largeur / 2;
    bou.y = 2 * kMargin + kRowsOfSliders * row_height();
    grx::copy_text(bou.titre, "R\351tablir");
    create(&Bou_reset, bou);
}

void create_controls() {
    for (const Slider& slider : kRgbLayout) create_slider(slider);
    create_reset();
    for (const Slider& slider : kHlsLayout) create_slider(slider);
}

bool create_window(INT x, INT y, const char* titre, INT parent) {
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.attrib = GRX_FEN_ATT_VISIBLE;
    fenetre.x = x;
    fenetre.y = y;
    fenetre.droite = 2 * slider_width() + 4 * kMargin;
    fenetre.haut = 3 * kMargin + kRowsOfSliders * row_height() + cell_height() + kMargin / 2;
    fenetre.fen_mere = grx_recup_objet_fen(parent) != nullptr ? parent : grx_recup_nofen_principale();
    constexpr std::size_t room = 256; // of the application's field, which need not be ended
    if (titre != nullptr) grx::copy_text(fenetre.titre, {titre, strnlen(titre, room)});
    if (grx_cree_fenetre(&fenetre) < 0) return false;
    No_fen_mod_coul = fenetre.nofen;
    palette_widget = grx_recup_objet_fen(fenetre.nofen);
    return true;
}

void make_it_digitized() {
    former_window = grx_recup_fenetre_a_digitaliser();
    grx_affecte_fenetre_a_digitaliser(No_fen_mod_coul);
}

// The window is gone: what was to be digitized before is so again, unless the application chose another by then.
void forget_window() {
    if (grx_recup_fenetre_a_digitaliser() == No_fen_mod_coul) grx_affecte_fenetre_a_digitaliser(former_window);
    for (INT* const number : kButtons) *number = GRX_AUCUN;
    No_fen_mod_coul = GRX_AUCUN;
}

// -- what the user does

void write_colour() {
    grx_modif_rgb(Couleur_active, rvb_glob);
    if (Couleur_active == recup_couleur_mire()) grx_change_couleur_curseur(GRX_CURS_CROIX, Couleur_active);
}

INT* component_of(const std::array<INT*, 3>& sliders, INT* components, INT nobou) {
    for (std::size_t i = 0; i < sliders.size(); ++i) {
        if (nobou != GRX_AUCUN && *sliders[i] == nobou) return &components[i];
    }
    return nullptr;
}

bool change_component(INT nobou, INT valeur) {
    if (INT* const component = component_of(kRgbSliders, rvb_glob, nobou)) {
        *component = valeur;
        RVB_to_HLS(rvb_glob, hls_glob);
        move_hls();
        return true;
    }
    INT* const component = component_of(kHlsSliders, hls_glob, nobou);
    if (component == nullptr) return false;
    *component = valeur;
    HLS_to_RVB(hls_glob, rvb_glob); // a colour refused leaves what was
    move_rgb();
    return true;
}

bool is_reset(const GRX_EXEC_FONCTION& e) {
    return e.type_evenement == GRX_EVT_EXEC_FONCTION && Bou_reset != GRX_AUCUN && e.nobou == Bou_reset;
}

void reset() {
    store(rvb_glob, triple(memo_rvb));
    RVB_to_HLS(rvb_glob, hls_glob);
    grx_affecte_palette(rvb_glob);
}

INT on_control(const GRX_EXEC_FONCTION& e) {
    if (e.nofen != No_fen_mod_coul || e.valeur < 0) return 0;
    if (is_reset(e))
        reset();
    else if (!change_component(e.nobou, e.valeur))
        return 0;
    write_colour();
    return 1;
}

INT on_end(const GRX_DESTRUCTION& e) {
    if (e.nofen != No_fen_mod_coul) return 0;
    for (const INT* const number : kButtons) grx_libere_indice_objet_bout(*number); // the widgets are gone
    forget_window();
    return 1;
}

// The window itself is destroyed with all others.
void forget_palette_window() {
    for (INT* const number : kButtons) *number = GRX_AUCUN;
    No_fen_mod_coul = former_window = GRX_AUCUN;
    palette_widget = nullptr;
    Couleur_active = 0;
    for (INT* const triple : {rvb_glob, hls_glob, memo_rvb}) store(triple, {});
}

} // namespace

extern "C" {

INT RVB_to_HLS(INT* rvb, INT* hls) {
    if (rvb != nullptr && hls != nullptr) store(hls, grx::hls_of(triple(rvb)));
    return 1;
}

INT HLS_to_RVB(INT* hls, INT* rvb) {
    if (hls == nullptr || rvb == nullptr) return 0;
    const auto rgb = grx::rgb_of(triple(hls));
    if (rgb) store(rvb, *rgb);
    return rgb ? 1 : 0;
}

INT grx_affiche_fenetre_modif_palette_couleurs(INT a1, INT a2, char titre[256], INT a4) {
    if (is_open()) return grx_retrace_fenetre_modif_palette_couleurs();
    grx::at_shut_down(forget_palette_window);
    if (!create_window(a1, a2, titre, a4)) return 0;
    create_controls();
    grx_affecte_couleur_active(Couleur_active);
    grx_affecte_palette(rvb_glob);
    make_it_digitized();
    return 0;
}

INT grx_detruit_fenetre_modif_palette_couleurs(void) {
    if (!is_open()) return 0;
    for (const INT* const number : kButtons) grx_detruit_bouton(*number);
    const INT window = own_window();
    forget_window();
    grx_detruit_fenetre(window);
    return 1;
}

INT grx_cache_retrace_fenetre_modif_palette_couleurs(INT cache) {
    if (!is_open()) return 0;
    return cache != 0 ? grx_cache_fenetre(own_window()) : grx_affiche_fenetre(own_window());
}

INT grx_retrace_fenetre_modif_palette_couleurs(void) {
    if (!is_open()) return 0;
    grx_affiche_fenetre(own_window());
    grx::redraw(grx::window_widget_if_any(own_window()));
    return 0;
}

INT grx_affecte_couleur_active(INT couleur) {
    grx::at_shut_down(forget_palette_window);
    Couleur_active = couleur;
    grx_recup_rgb(couleur, rvb_glob);
    store(memo_rvb, triple(rvb_glob));
    return RVB_to_HLS(rvb_glob, hls_glob);
}

INT grx_recup_couleur_active(void) {
    return Couleur_active;
}

INT grx_recup_no_fenetre_modif_palette(void) {
    return No_fen_mod_coul;
}

INT grx_is_fenetre_modif_palette_ouverte(void) {
    return is_open() ? 1 : 0;
}

void grx_affecte_palette_rvb(INT r, INT v, INT b) {
    move_sliders(kRgbSliders, {r, v, b}, kMostRgb);
}

void grx_affecte_palette_hls(INT h, INT l, INT s) {
    move_sliders(kHlsSliders, {h, l, s}, kMostHls);
}

INT grx_affecte_palette(INT* rvb) {
    if (rvb == nullptr) return 0;
    INT hls[3] = {};
    const INT result = RVB_to_HLS(rvb, hls);
    grx_affecte_palette_rvb(rvb[0], rvb[1], rvb[2]);
    grx_affecte_palette_hls(hls[0], hls[1], hls[2]);
    return result;
}

INT grx_gere_action_modif_palette(GRX_EVENEMENT evt) {
    if (!is_open()) return 0;
    switch (evt.type_evenement) {
    case GRX_EVT_DESTRUCTION: return on_end(evt.destruction);
    case GRX_EVT_ECHELLE:
    case GRX_EVT_EXEC_FONCTION: return on_control(evt.exec_fonction);
    default: return 0;
    }
}
}
