// The pointer shapes that the application gives to windows and colours.
#include <X11/Intrinsic.h>
#include <X11/cursorfont.h>

#include <array>

#include "pure/cursor_bits.h"
#include "display/bitmaps.h"
#include "display/pixmaps.h"
#include "display/requests.h"
#include "display/screen.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kLastCursor = GRX_CURS_CENTRE;
constexpr unsigned int kCrossHotSpot = 8;
constexpr unsigned int kSnapHotSpot = 15;

std::array<Cursor, GRX_NB_CURSEURS> curs_pix{};
constexpr INT curseur_graphique = GRX_CURS_CROIX;

// Shapes 2 to 11 come from the cursor font of X. Shapes 12 to 22 are the snap modes of drafting.
constexpr std::array<unsigned int, 10> kFontShapes{
    XC_watch, XC_left_ptr, XC_hand2, XC_question_arrow, XC_pirate, XC_pencil, XC_fleur, XC_mouse, XC_hand1, XC_cross};
constexpr std::array<const std::array<uchar, 128>*, 11> kSnapShapes{&grx::concentr_bits, &grx::extrem_bits,
    &grx::milieu_bits, &grx::paral_bits, &grx::perp_bits, &grx::tangent_bits, &grx::intersection_bits,
    &grx::interdit_bits, &grx::angle_bits, &grx::cercle_bits, &grx::centre_bits};

XColor white() {
    XColor colour{};
    colour.red = colour.green = colour.blue = 0xFFFF;
    return colour;
}

template <std::size_t N>
Cursor bitmap_cursor(const std::array<uchar, N>& bits, unsigned int side, unsigned int hot_spot) {
    const Pixmap shape = grx::make_bitmap(bits, side);
    const Cursor cursor = grx::new_bitmap_cursor(shape, {white(), white()}, hot_spot);
    grx::free_pixmap(shape);
    return cursor;
}

bool known_cursor(INT curseur) {
    return curseur >= GRX_CURS_AUCUN && curseur <= kLastCursor;
}

// On a deep screen the colour can be read from the pixel. On 8 planes the server must be asked for the cell.
XColor colour_of(INT couleur) {
    XColor colour{};
    colour.pixel = static_cast<unsigned long>(static_cast<UNSIGNED_INT>(grx_recup_couleur(couleur)));
    if (!grx::deep_screen()) {
        XQueryColor(x11_disp, x11_cmap, &colour);
        return colour;
    }
    constexpr INT widen = 257; // 8 to 16 bits
    INT rgb[3] = {};
    grx_recup_rgb(couleur, rgb);
    colour.red = static_cast<unsigned short>(rgb[GRX_ROUGE] * widen);
    colour.green = static_cast<unsigned short>(rgb[GRX_VERT] * widen);
    colour.blue = static_cast<unsigned short>(rgb[GRX_BLEU] * widen);
    return colour;
}

constexpr INT kFirstFontCursor = GRX_CURS_MONTRE;

bool font_cursor(INT curseur) {
    return curseur >= kFirstFontCursor && curseur < GRX_CURS_CONCENTRIQUE;
}

Cursor new_cursor(INT curseur) {
    if (font_cursor(curseur))
        return XCreateFontCursor(x11_disp, kFontShapes[static_cast<std::size_t>(curseur - kFirstFontCursor)]);
    if (curseur == GRX_CURS_CROIX) return bitmap_cursor(grx::bits_curseur_croix, grx::kCrossSide, kCrossHotSpot);
    const auto snap = static_cast<std::size_t>(curseur - GRX_CURS_CONCENTRIQUE);
    return bitmap_cursor(*kSnapShapes[snap], grx::kSnapSide, kSnapHotSpot);
}

// A cursor is made when it is first used. If the start made all of them it would send many requests for shapes that are
// seldom shown, and the client library would look for those of the cursor font in the files of the user's cursor theme.
Cursor cursor_of(INT curseur) {
    if (!known_cursor(curseur) || curseur == GRX_CURS_AUCUN || x11_disp == nullptr) return None;
    Cursor& cursor = curs_pix[static_cast<std::size_t>(curseur)];
    if (cursor == None) cursor = new_cursor(curseur);
    return cursor;
}

} // namespace

extern "C" {

INT grx_definit_tous_curseurs(void) {
    curs_pix = {};
    return 0;
}

INT grx_affecte_curseur(INT curseur, Widget w) {
    const Window window = grx::window_of(w);
    if (window != None && known_cursor(curseur)) XDefineCursor(x11_disp, window, cursor_of(curseur));
    return 0;
}

INT grx_change_curseur(INT curseur, INT nofen) {
    grx_affecte_curseur(curseur, grx_recherche_shell(grx_recup_objet_fen(nofen)));
    return 0;
}

INT grx_change_couleur_curseur(INT curseur, INT couleur) {
    const Cursor cursor = cursor_of(curseur);
    if (cursor == None) return 0;
    XColor foreground = colour_of(couleur);
    XColor background = white();
    XRecolorCursor(x11_disp, cursor, &foreground, &background);
    return 0;
}

INT grx_recup_curseur_graphique(void) {
    return curseur_graphique;
}
}
