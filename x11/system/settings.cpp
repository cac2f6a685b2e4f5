// The settings of the library: the application and INI_SYST.DAT change them, all of the library reads them.
#include "system/forget_system.h"
#include "xt_ini_f.h"

namespace {

// The colours that the setters without an argument set.
constexpr INT kColourOfCrosshair = 1;
constexpr INT kColourOfSecondCrosshair = 6;
constexpr INT kColourOfNeutral = 4;
constexpr INT kColourOfContrasting = 2;

struct Settings {
    INT character_width = 0;
    INT character_height = 0;
    INT exact_character_height = 0;
    INT extra_width = 0;
    INT scrollbar_width = 0;
    INT border = 0;
    INT border_without_resize = 0;
    INT border_without_title = 0;
    INT border_without_decoration = 0;
    INT title_height = 0;
    INT drawing_colours = 32;
    INT rendering_colours = 0;
    INT reserved_colours = 8;
    INT icon_colours = 16;
    INT application_colour = 0;
    INT background_colour = 0;
    INT application_x = 0;
    INT application_y = 0;
    INT double_click = 200;
    INT icon_margin = 5;
    INT icon_width = 30;
    INT icon_height = 30;
    signed char icon_format = 0;
    INT fixed_menu = 0;
    // KEEP: the neutral and the contrasting colour start at 5, but their setters write 4 and 2.
    INT crosshair = kColourOfCrosshair;
    INT second_crosshair = kColourOfSecondCrosshair;
    INT neutral = 5;
    INT contrasting = 5;
};

constinit Settings settings;

INT set(INT& setting, INT value) {
    setting = value;
    return 0;
}

} // namespace

namespace grx {

void forget_settings() {
    settings = Settings{};
}

} // namespace grx

extern "C" {

// -- sizes

INT grx_recup_lar_carac_alpha(void) {
    return settings.character_width;
}

INT grx_affecte_lar_carac_alpha(INT val) {
    return set(settings.character_width, val);
}

INT grx_recup_hau_carac_alpha(void) {
    return settings.character_height;
}

INT grx_affecte_hau_carac_alpha(INT val) {
    return set(settings.character_height, val);
}

INT grx_recup_hau_exact_carac_alpha(void) {
    return settings.exact_character_height;
}

INT grx_affecte_hau_exact_carac_alpha(INT val) {
    return set(settings.exact_character_height, val);
}

INT grx_recup_lar_sup_alpha(void) {
    return settings.extra_width;
}

INT grx_affecte_lar_sup_alpha(INT val) {
    return set(settings.extra_width, val);
}

INT grx_recup_largeur_scrollbar(void) {
    return settings.scrollbar_width;
}

INT grx_affecte_largeur_scrollbar(INT val) {
    return set(settings.scrollbar_width, val);
}

// -- window borders

INT grx_get_tabord(void) {
    return settings.border;
}

INT grx_set_tabord(INT val) {
    return set(settings.border, val);
}

INT grx_get_tabord_sans_resize(void) {
    return settings.border_without_resize;
}

INT grx_set_tabord_sans_resize(INT val) {
    return set(settings.border_without_resize, val);
}

INT grx_get_tabord_sans_titre(void) {
    return settings.border_without_title;
}

INT grx_set_tabord_sans_titre(INT val) {
    return set(settings.border_without_title, val);
}

INT grx_get_tabord_sans_decor(void) {
    return settings.border_without_decoration;
}

INT grx_set_tabord_sans_decor(INT val) {
    return set(settings.border_without_decoration, val);
}

INT grx_get_tatitre(void) {
    return settings.title_height;
}

INT grx_set_tatitre(INT val) {
    return set(settings.title_height, val);
}

// -- colours

INT grx_recup_max_couleur_trace(void) {
    return settings.drawing_colours;
}

INT grx_affecte_max_couleur_trace(INT val) {
    return set(settings.drawing_colours, val);
}

INT grx_recup_max_couleur_rendu(void) {
    return settings.rendering_colours;
}

INT grx_affecte_max_couleur_rendu(INT val) {
    return set(settings.rendering_colours, val);
}

INT grx_recup_max_couleur_reserve(void) {
    return settings.reserved_colours;
}

INT grx_recup_max_couleur_icone(void) {
    return settings.icon_colours;
}

INT grx_recup_couleur_application(void) {
    return settings.application_colour;
}

INT grx_affecte_couleur_application(INT couleur) {
    return set(settings.application_colour, couleur);
}

INT grx_recup_couleur_fond(void) {
    return settings.background_colour;
}

INT grx_affecte_couleur_fond(INT couleur) {
    return set(settings.background_colour, couleur);
}

INT affecte_couleur_mires(void) {
    return set(settings.crosshair, kColourOfCrosshair);
}

INT affecte_couleur_mire2(void) {
    return set(settings.second_crosshair, kColourOfSecondCrosshair);
}

INT affecte_couleur_neutre(void) {
    return set(settings.neutral, kColourOfNeutral);
}

INT affecte_couleur_contrastee(void) {
    return set(settings.contrasting, kColourOfContrasting);
}

INT recup_couleur_mire(void) {
    return settings.crosshair;
}

INT recup_couleur_mire2(void) {
    return settings.second_crosshair;
}

INT recup_couleur_neutre(void) {
    return settings.neutral;
}

INT recup_couleur_contrastee(void) {
    return settings.contrasting;
}

// -- application, icons, menu

INT grx_get_pos_appli_x(void) {
    return settings.application_x;
}

INT grx_set_pos_appli_x(INT val) {
    return set(settings.application_x, val);
}

INT grx_get_pos_appli_y(void) {
    return settings.application_y;
}

INT grx_set_pos_appli_y(INT val) {
    return set(settings.application_y, val);
}

INT grx_recup_cst_dc(void) {
    return settings.double_click;
}

INT grx_affecte_cst_dc(INT val) {
    return set(settings.double_click, val);
}

INT grx_recup_zone_sensible_icone(void) {
    return settings.icon_margin;
}

INT grx_affecte_zone_sensible_icone(INT val) {
    return set(settings.icon_margin, val);
}

INT grx_recup_taille_icone_x(void) {
    return settings.icon_width;
}

INT grx_recup_taille_icone_y(void) {
    return settings.icon_height;
}

INT grx_affecte_taille_icone(INT x, INT y) {
    settings.icon_width = x;
    settings.icon_height = y;
    return 0;
}

INT grx_recup_format_icone(void) {
    return settings.icon_format;
}

INT grx_affecte_format_icone(INT format) {
    settings.icon_format = static_cast<signed char>(format);
    return 0;
}

INT grx_get_menu_fixe(void) {
    return settings.fixed_menu;
}

INT grx_set_menu_fixe(INT val) {
    return set(settings.fixed_menu, val);
}
}
