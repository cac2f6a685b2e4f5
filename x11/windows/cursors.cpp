// Pointer shapes, scroll bars and decorations of windows.
#include "xt_prive.h"

#include <X11/Xlib.h>
#include <X11/cursorfont.h>

#include <array>

#include "display/bitmaps.h"
#include "display/requests.h"
#include "display/pixmaps.h"
#include "toolkit/look.h"
#include "windows/stack_place.h"
#include "toolkit/widgets.h"
#include "pure/axis.h"
#include "pure/cursor_bits.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kLastCursor = GRX_CURS_CENTRE;
constexpr unsigned int kCrossHotSpot = 8;
constexpr unsigned int kSnapHotSpot = 15;

std::array<Cursor, GRX_NB_CURSEURS> curs_pix{};
constexpr INT curseur_graphique = GRX_CURS_CROIX;

// Shapes 2 to 11 are the X cursor font's, 12 to 22 the drafting snap modes.
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

// On a deep screen a pixel says its colour itself; a cell has to be asked for.
XColor colour_of(INT couleur) {
    XColor colour{};
    colour.pixel = static_cast<unsigned long>(static_cast<UNSIGNED_INT>(grx_recup_couleur(couleur)));
    if (grx_recup_profondeur_ecran() <= GRX_PROFONDEUR_8) {
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

// A cursor is made when it is first used: a start that made all of them would send many requests for shapes that are
// seldom shown, and look up those of the cursor font in the files of the user's cursor theme.
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

// --------------------------------------------------------------------------------- scroll bars of graphic windows

namespace {

// The record of a window that is there; a free entry keeps what it holds.
STRUCTURE_FENETRE* flags_of(INT nofen) {
    return grx_recup_objet_fen(nofen) != nullptr ? grx::window_record(nofen) : nullptr;
}

bool has_flag(INT nofen, char flag) {
    const STRUCTURE_FENETRE* const record = flags_of(nofen);
    return record != nullptr && (record->attributs_fen_graph & flag) != 0;
}

void set_flag(INT nofen, char flag, bool on) {
    STRUCTURE_FENETRE* const record = flags_of(nofen);
    if (record == nullptr) return;
    const auto bits = static_cast<uchar>(record->attributs_fen_graph);
    record->attributs_fen_graph = static_cast<char>(on ? bits | flag : bits & ~flag);
}

void show_scroll_bars(INT nofen, bool shown) {
    if (has_flag(nofen, GRX_FENG_SCROLL) == shown) return;
    Widget scrolled = grx::own_scrolled_window(nofen);
    for (const bool vertical : {false, true}) {
        Widget bar = grx::scroll_bar(scrolled, vertical);
        if (bar == nullptr) continue;
        shown ? XtManageChild(bar) : XtUnmanageChild(bar);
    }
    set_flag(nofen, GRX_FENG_SCROLL, shown);
}

} // namespace

extern "C" {

INT grx_is_fenetre_avec_scroll(INT nofen) {
    return has_flag(nofen, GRX_FENG_SCROLL) ? 1 : 0;
}

INT grx_affecte_fenetre_avec_scroll(INT nofen, INT etat) {
    set_flag(nofen, GRX_FENG_SCROLL, etat != 0);
    return 0;
}

INT grx_is_fenetre_avec_bgi(INT nofen) {
    return has_flag(nofen, GRX_FENG_BGI) ? 1 : 0;
}

INT grx_affecte_fenetre_avec_bgi(INT nofen, INT etat) {
    set_flag(nofen, GRX_FENG_BGI, etat != 0);
    return 0;
}

INT grx_cache_scrollbars_fenetre_graphique(INT nofen) {
    show_scroll_bars(nofen, false);
    return 0;
}

INT grx_reaffiche_scrollbars_fenetre_graphique(INT nofen) {
    show_scroll_bars(nofen, true);
    return 0;
}
}

// --------------------------------------------------------------------------------------------------- decorations

namespace {

// Bits of the shell's decorations. With the bit for all of them set, each of the others takes one away.
constexpr INT kBorder = 4;
constexpr INT kTitle = 8;
constexpr INT kTitleAndMenu = 24;

enum class Part { Title, Border };

struct Operation {
    Part part;
    bool removes; // else it toggles
    bool flushes;
};

// How much larger a window without a part of its decoration is than with it, so that its frame stays as it is: its
// left and upper edge go outwards, its size grows.
struct Room {
    int64_t left, top;
    int64_t width, height;
};

Room room_of_title() {
    const int64_t d = int64_t{grx_get_tabord()} - grx_get_tabord_sans_titre();
    const int64_t title = grx_get_tatitre();
    return {d, title + d, 2 * d, title + 2 * d};
}

Room room_of_border(INT decorations) {
    const bool titled = (decorations & kTitle) == 0;
    const int64_t d = titled ? int64_t{grx_get_tabord()} - grx_get_tabord_sans_resize()
                             : int64_t{grx_get_tabord_sans_titre()} - grx_get_tabord_sans_decor();
    return {d, d, 2 * d, 2 * d};
}

INT changed(INT decorations, const Operation& operation) {
    const INT bits = operation.part == Part::Title ? kTitleAndMenu : kBorder;
    return operation.removes ? decorations | bits : decorations ^ bits; // KEEP: showing toggles
}

void resize(Widget shell, int64_t width, int64_t height) {
    grx::set_size(shell, {grx::as_size(width), grx::as_size(height)});
}

// The window manager looks at the decorations of a window when it is mapped.
void map_again(Widget shell) {
    const Window window = grx::window_of(shell);
    XWindowAttributes attributes{};
    if (window == None || XGetWindowAttributes(x11_disp, window, &attributes) == 0) return;
    if (attributes.map_state == IsUnmapped) return; // hidden: the new decorations come when it is shown
    XUnmapWindow(x11_disp, window);
    XMapWindow(x11_disp, window);
}

// Where a window stands, left and upwards from the lower left corner of the screen. A window manager takes the place asked
// for as the frame's, and keeps the frame where it is. Without one the server is asked, not the toolkit, which takes the
// place of the window's contents for that of the shell when the shell is resized.
class Place {
  public:
    Place(INT nofen, Widget shell) : nofen_(nofen), shell_(shell), framed_(grx::in_frame(shell)) {
        grx_recup_position_fenetre(nofen, &left_, &top_);
        seen_top_ = seen_top();
    }
    bool as_before() const { return seen_top() == seen_top_; }
    void keep_frame(int64_t outwards, int64_t upwards) const {
        if (framed_) outwards = upwards = 0;
        grx::move_shell(shell_, grx::saturated(left_ - outwards), grx::saturated(top_ + upwards));
    }

  private:
    INT seen_top() const {
        if (framed_) return grx::resource<Position>(shell_, XmNy);
        INT left = 0, top = 0;
        grx_recup_position_fenetre(nofen_, &left, &top);
        return top;
    }

    INT nofen_;
    Widget shell_;
    bool framed_;
    INT left_ = 0, top_ = 0, seen_top_ = 0;
};

void change_decorations(INT nofen, const Operation& operation) {
    Widget shell = grx_recherche_shell(grx_recup_objet_fen(nofen));
    if (shell == nullptr) return;
    const grx::Size size = grx::size_of(shell);
    const Place place(nofen, shell);
    const INT decorations = changed(grx::resource<int>(shell, XmNmwmDecorations), operation);
    grx::set_resource(shell, XmNmwmDecorations, decorations);
    if (operation.flushes) grx_flush_tous_evenements();
    const Room room = operation.part == Part::Title ? room_of_title() : room_of_border(decorations);
    const INT sign = operation.removes ? 1 : -1;
    if (grx::size_of(shell).height == size.height)
        resize(shell, size.width + sign * room.width, size.height + sign * room.height);
    grx::StackPlace stack(grx::window_of(shell));
    map_again(shell);
    if (place.as_before()) place.keep_frame(sign * room.left, sign * room.top);
    stack.restore();
}

} // namespace

extern "C" {

INT grx_active_modifications_shell(INT nofen) {
    grx_recherche_shell(grx_recup_objet_fen(nofen)); // KEEP: a hook without effect
    return 0;
}

INT grx_supprime_titre_fenetre(INT nofen) {
    change_decorations(nofen, {Part::Title, true, false}); // KEEP: the only one that does not handle the events
    return 0;
}

INT grx_affiche_titre_fenetre(INT nofen) {
    change_decorations(nofen, {Part::Title, false, true});
    return 0;
}

INT grx_supprime_bord_fenetre(INT nofen) {
    change_decorations(nofen, {Part::Border, true, true});
    return 0;
}

INT grx_affiche_bord_fenetre(INT nofen) {
    change_decorations(nofen, {Part::Border, false, true});
    return 0;
}
}
