// The setting of the interface's font: the application and INI_SYST.DAT change it, start-up reads it. Names of fonts that
// are asked for by the additions, and those of outline fonts, are kept whole.
#include "system/font_setting.h"

#include <array>
#include <cstring>
#include <string_view>

#include "pure/font_name.h"
#include "pure/text.h"
#include "pure/text_out.h"
#include "system/block.h"
#include "system/forget_system.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_polices.h"
#include "xt_ini_f.h"

namespace {

std::array<char, GRX_FONTE_MAX> font{};
grx::Block<char> whole; // a name that has no room there

void set_short(std::string_view name) {
    grx::copy_text(font.data(), font.size(), name);
    whole.reset();
}

bool set_whole(std::string_view name) {
    if (name.size() < font.size()) {
        set_short(name);
        return true;
    }
    grx::Block<char> kept(name.size() + 1);
    if (!kept) return false;
    name.copy(kept.data(), name.size());
    set_short(name);
    whole = std::move(kept);
    return true;
}

} // namespace

namespace grx {

const char* font_setting() {
    return whole ? whole.data() : font.data();
}

void forget_font_setting() {
    font = {};
    whole.reset();
}

} // namespace grx

extern "C" {

INT grx_recup_font(char* out) {
    grx::copy_text(out, font.size(), font.data());
    return 0;
}

INT grx_affecte_font(char* name) {
    const std::string_view given = grx::view(name);
    if (!grx::names_outline_font(given) || !set_whole(given)) set_short(given);
    return 0;
}

INT grx_affecte_police(const char* police) {
    return set_whole(grx::view(police)) ? 1 : grx::refused(GRX_ECHEC_MEMOIRE, "police");
}

INT grx_recup_police(char* police, INT taille) {
    return grx::give_text(grx::font_setting(), police, taille);
}
}
