// Draws texts of the application into windows and buttons and measures them.
#include <X11/Xlib.h>

#include <cstring>

#include "pure/axis.h"
#include "pure/clip.h"
#include "display/context.h"
#include "display/pixmaps.h"
#include "drawing/attributes.h"
#include "drawing/receiver.h"
#include "drawing/target.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"

namespace {

int text_length(const GRX_TEXTE& texte) {
    return static_cast<int>(strnlen(texte.chaine, sizeof texte.chaine));
}

// Of letters that lean out of their places, too.
grx::Area covered_by(const GRX_TEXTE& texte) {
    if (fontstruct == nullptr) return grx::kEverywhere;
    int direction = 0, ascent = 0, descent = 0;
    XCharStruct ink{};
    XTextExtents(fontstruct, texte.chaine, text_length(texte), &direction, &ascent, &descent, &ink);
    const grx::Area letters{ink.lbearing, -ink.ascent, ink.rbearing, ink.descent};
    return letters.moved(texte.x, texte.y);
}

INT font_descent() {
    return fontstruct != nullptr ? fontstruct->descent : 0;
}

} // namespace

extern "C" {

void grx_trace_texte_bouton(GRX_TEXTE texte) {
    if (grx::received(&GRX_RECEPTEUR::texte, GRX_CIBLE_BOUTON, texte)) return;
    const Drawable target = grx::button_target(texte.nofen, texte.attrib);
    if (target == None || !grx::fits16({texte.x, texte.y})) return;
    XDrawString(x11_disp, target, g_c, texte.x, texte.y - font_descent(), texte.chaine, text_length(texte));
}

void grx_trace_texte(GRX_TEXTE) {
    // KEEP: this draws nothing; grx_ecrit_fenetre writes the texts of windows
}

void grx_ecrit_fenetre(GRX_TEXTE texte) {
    if (grx::received(&GRX_RECEPTEUR::texte, GRX_CIBLE_FENETRE, texte)) return;
    constexpr unsigned long low_byte = 0xFF; // KEEP: only the low eight bits of a pixel of a deep screen are used
    const Window window = g_c != nullptr ? grx::window_of(grx_recup_objet_fen(texte.nofen)) : None;
    if (window == None || grx::kept_in_layer<grx_ecrit_fenetre>(texte, covered_by)) return;
    const Drawable target = grx::screen_target(texte.nofen, window);
    XGCValues values{};
    values.function = GXcopy;
    values.foreground = grx::drawing_pixel(texte.coul_trace) & low_byte;
    values.background = grx::drawing_pixel(texte.coul_fond) & low_byte;
    XChangeGC(x11_disp, g_c, GCFunction | GCForeground | GCBackground, &values);
    grx::context_changed();
    if (grx::fits16({texte.x, texte.y}))
        XDrawString(x11_disp, target, g_c, texte.x, texte.y, texte.chaine, text_length(texte));
}

void grx_recup_taille_chaine(char* chaine, INT* largeur, INT* haut, INT* bas) {
    int direction = 0, ascent = 0, descent = 0;
    XCharStruct overall{};
    if (fontstruct != nullptr && chaine != nullptr)
        XTextExtents(
            fontstruct, chaine, static_cast<int>(std::strlen(chaine)), &direction, &ascent, &descent, &overall);
    if (largeur != nullptr) *largeur = overall.width;
    if (haut != nullptr) *haut = ascent;
    if (bas != nullptr) *bas = descent;
}

void grx_efface_chaine(GRX_TEXTE texte) {
    INT width = 0, above = 0, below = 0;
    char* const text = texte.chaine;
    text[sizeof texte.chaine - 1] = '\0';
    grx_recup_taille_chaine(text, &width, &above, &below);
    const auto add = [](INT a, INT b) { return grx::saturated(int64_t{a} + b); };
    GRX_RECTANGLE box{};
    box.nofen = texte.nofen;
    box.x1 = texte.x;
    box.x2 = add(texte.x, width);
    box.y1 = add(texte.y, below);
    box.y2 = add(texte.y, -(above + below)); // KEEP: the box is one descent higher than the letters
    box.coul_trace = box.coul_fond = texte.coul_fond;
    box.attrib = grx::plain_attributes(texte.coul_fond, texte.coul_fond);
    grx_remplit_rectangle(box);
}
}
