// INI_SYST.DAT: the lines from which settings come.
#include <array>

#include "pure/clip.h"
#include "pure/ini_line.h"
#include "pure/number.h"
#include "pure/text.h"
#include "host_f.h"
#include "host_g.h"
#include "xt_ini_f.h"

namespace {

using Line = std::array<char, HOST_LIGNE_MAX>;

// The value of key in a line, trimmed, in out. Blanks of a line end are stripped here whatever the host's reader keeps.
bool value_of(const char* line, const char* key, Line& out) {
    const auto value = grx::ini_value(grx::view(line), grx::view(key));
    if (!value) return false;
    grx::copy_text(out.data(), out.size(), value->substr(0, value->find_last_not_of("\r\n") + 1));
    str_trim(out.data(), out.data());
    return true;
}

INT integer_of(const char* line, const char* key) {
    Line value;
    return value_of(line, key, value) ? grx::number_of(value.data()) : 0;
}

} // namespace

extern "C" {

// --- the file ----------------------------------------------------------------------------------------------------

INT traite_entier_chaine(char* ligne, char* clef) {
    return integer_of(ligne, clef);
}

INT traite_chaine_chaine(char* ligne, char* clef, char* chaine) {
    Line value;
    if (!chaine || !value_of(ligne, clef, value)) return 0;
    grx::copy_text(chaine, value.size(), value.data());
    return 1;
}

// KEEP: class S, M, L is 1, 2, 3 here and 2, 3, 4 in grx_recup_repertoire_icones.
INT traite_taille_icone(char* ligne, char* clef) {
    Line value;
    if (!value_of(ligne, clef, value)) return 0;
    const auto size = grx::ini_icon_size(value.data());
    if (size.size_class > 0) grx_affecte_format_icone(size.size_class);
    if (size.has_size) grx_affecte_taille_icone(size.width, size.height);
    return 1;
}
}

namespace {

// Only the first colour that is not 0 stays.
INT keep_first_application_colour(INT colour) {
    return grx_recup_couleur_application() == 0 ? grx_affecte_couleur_application(colour) : 0;
}

// In the order of grx::ini_number_keys.
constexpr std::array<INT (*)(INT), grx::ini_number_keys.size()> number_setters{
    grx_affecte_lar_carac_alpha,
    grx_affecte_hau_carac_alpha,
    grx_affecte_lar_sup_alpha,
    grx_affecte_largeur_scrollbar,
    grx_set_tabord,
    grx_set_tabord_sans_resize,
    grx_set_tabord_sans_titre,
    grx_set_tabord_sans_decor,
    grx_set_tatitre,
    grx_affecte_max_couleur_trace,
    grx_affecte_max_couleur_rendu,
    keep_first_application_colour,
};

bool take_font(const char* line) {
    Line font;
    if (!value_of(line, grx::ini_font_key, font)) return false;
    grx_affecte_font(font.data());
    return true;
}

// A refused value counts as no match, so that the line goes on to the keys that follow.
void take_line(const char* line) {
    if (take_font(line)) return;
    for (std::size_t i = 0; i < number_setters.size(); ++i) {
        const auto& key = grx::ini_number_keys[i];
        const auto value = integer_of(line, key.name);
        if (!grx::ini_accepts(key.rule, value)) continue;
        number_setters[i](value);
        return;
    }
}

} // namespace

extern "C" {

INT grx_initialise_globales(void) {
    char here[] = "";
    char name[sizeof(grx::ini_file_name)];
    grx::copy_text(name, sizeof(name), grx::ini_file_name);
    char* const directory = sstate[SST_REP_SYSTEME];
    if (text_open(directory ? directory : here, name, HOST_MODE_LECTURE) != 0) return -1;
    grx_initialise_globales_systeme();
    Line line;
    while (text_lec(line.data())) take_line(line.data());
    text_close();
    return 0;
}

INT grx_initialise_globales_systeme(void) {
    return grx_affecte_format_icone(0);
}
}
