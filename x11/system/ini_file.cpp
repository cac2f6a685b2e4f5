// Reads INI_SYST.DAT at start-up and gives what it says to the settings.
#include <algorithm>
#include <array>
#include <string_view>

#include "pure/ini_line.h"
#include "pure/number.h"
#include "pure/text.h"
#include "host_f.h"
#include "host_g.h"
#include "xt_ini_f.h"

namespace {

using Line = std::array<char, HOST_LIGNE_MAX>;

// Writes the value of a key without blanks around it to `out`. Blanks at the end of a line are taken off here, because
// the host's reader may keep them.
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

// The first colour that is not 0 is kept; later lines do not change it.
INT keep_first_application_colour(INT colour) {
    return grx_recup_couleur_application() == 0 ? grx_affecte_couleur_application(colour) : 0;
}

struct Setter {
    std::string_view key;
    INT (*set)(INT);
};

constexpr std::array<Setter, grx::kIniNumberKeys.size()> kNumberSetters{{
    {"LARG_CARACTERE", grx_affecte_lar_carac_alpha},
    {"HAUT_CARACTERE", grx_affecte_hau_carac_alpha},
    {"ESPA_CARACTERE", grx_affecte_lar_sup_alpha},
    {"LARG_SCROLLBAR", grx_affecte_largeur_scrollbar},
    {"BORD_NORMAL", grx_set_tabord},
    {"BORD_SANS_RESIZE", grx_set_tabord_sans_resize},
    {"BORD_SANS_TITRE", grx_set_tabord_sans_titre},
    {"BORD_SANS_DECOR", grx_set_tabord_sans_decor},
    {"TITRE", grx_set_tatitre},
    {"MAX_COULEUR_TRACE", grx_affecte_max_couleur_trace},
    {"MAX_COULEUR_RENDU", grx_affecte_max_couleur_rendu},
    {"COULEUR_APPLICATION", keep_first_application_colour},
}};

static_assert(std::equal(kNumberSetters.begin(), kNumberSetters.end(), grx::kIniNumberKeys.begin(),
                  [](const Setter& setter, const grx::IniKey& key) { return setter.key == key.name; }),
    "both tables name the keys in the order in which a line is tried");

bool take_font(const char* line) {
    Line font;
    if (!value_of(line, grx::kIniFontKey, font)) return false;
    grx_affecte_font(font.data());
    return true;
}

// When a key refuses its value the line goes on to the keys that follow.
void take_line(const char* line) {
    if (take_font(line)) return;
    for (std::size_t i = 0; i < kNumberSetters.size(); ++i) {
        const auto& key = grx::kIniNumberKeys[i];
        const auto value = integer_of(line, key.name);
        if (!grx::ini_accepts(key.rule, value)) continue;
        kNumberSetters[i].set(value);
        return;
    }
}

} // namespace

extern "C" {

INT traite_entier_chaine(char* ligne, char* clef) {
    return integer_of(ligne, clef);
}

INT traite_chaine_chaine(char* ligne, char* clef, char* chaine) {
    Line value;
    if (chaine == nullptr || !value_of(ligne, clef, value)) return 0;
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

INT grx_initialise_globales(void) {
    char here[] = "";
    char name[sizeof(grx::kIniFileName)];
    grx::copy_text(name, sizeof(name), grx::kIniFileName);
    char* const directory = sstate[SST_REP_SYSTEME];
    if (text_open(directory != nullptr ? directory : here, name, HOST_MODE_LECTURE) != 0) return -1;
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
