// Scrolls what a graphic window shows, on the screen and in its backing picture.
#include <X11/Xlib.h>

#include <algorithm>
#include <span>

#include "display/pixmaps.h"
#include "drawing/attributes.h"
#include "drawing/backing.h"
#include "drawing/layers.h"
#include "pure/area.h"
#include "pure/out.h"
#include "pure/size.h"
#include "registry/window_table.h"
#include "system/trace.h"
#include "toolkit/widgets.h"
#include "grx_plus_calques.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace {

struct Scroll {
    int dx, dy; // no more than the size
    grx::Size size;
    grx::Uncovered uncovered;
};

Scroll scroll_by(INT dx, INT dy, grx::Size size) {
    Scroll s{std::clamp(dx, -size.width, size.width), std::clamp(dy, -size.height, size.height), size, {}};
    s.uncovered = grx::uncovered_by(s.dx, s.dy, size.width, size.height);
    return s;
}

std::span<const grx::Area> parts_of(const Scroll& s) {
    return {s.uncovered.parts, s.uncovered.count};
}

void empty_uncovered(Drawable to, GC context, const Scroll& s) {
    for (const grx::Area& part : parts_of(s))
        XFillRectangle(x11_disp, to, context, static_cast<int>(part.left), static_cast<int>(part.top),
            static_cast<unsigned int>(part.width()), static_cast<unsigned int>(part.height()));
}

void move_picture(Drawable from, Drawable to, GC context, const Scroll& s) {
    const grx::Area all{0, 0, s.size.width, s.size.height};
    const grx::Area moved = grx::cut_area(all, all.moved(s.dx, s.dy));
    if (!moved.empty())
        XCopyArea(x11_disp, from, to, context, static_cast<int>(moved.left) - s.dx, static_cast<int>(moved.top) - s.dy,
            static_cast<unsigned int>(moved.width()), static_cast<unsigned int>(moved.height()),
            static_cast<int>(moved.left), static_cast<int>(moved.top));
    empty_uncovered(to, context, s);
}

INT scroll_window(INT nofen, Window window, const Scroll& s) {
    const grx::CleanPicture clean = grx::clean_picture(nofen, s.size);
    if (clean.pixmap == None) return grx::refused(GRX_ECHEC_MEMOIRE, "nofen", nofen);
    const Pixmap picture = *grx::window_record(nofen)->image;
    GC const context = grx::plain_copies();
    XSetForeground(x11_disp, context, grx::drawing_pixel(grx_recup_couleur_fond()));
    move_picture(picture, picture, context, s);
    move_picture(clean.pixmap, clean.base ? clean.pixmap : window, context, s);
    if (clean.base) grx::show_all_again(nofen);
    return 1;
}

void give_zones(const Scroll& s, GRX_ZONE* zones, INT* nb) {
    grx::give(nb, s.uncovered.count);
    if (zones == nullptr) return;
    for (const grx::Area& part : parts_of(s))
        *zones++ = {static_cast<INT>(part.left), static_cast<INT>(part.top), static_cast<INT>(part.width()),
            static_cast<INT>(part.height())};
}

} // namespace

extern "C" {

INT grx_defile_fenetre(INT nofen, INT dx, INT dy, GRX_ZONE* zones, INT* nb) {
    grx::give(nb, 0);
    if (zones != nullptr) zones[0] = zones[1] = GRX_ZONE{};
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nofen", nofen);
    Widget const w = grx::window_widget_if_any(nofen);
    const Window window = grx::window_of(w);
    if (window == None) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (g_c == nullptr || !grx::has_backing_picture(nofen)) return grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
    if (dx == 0 && dy == 0) return 1;
    const Scroll s = scroll_by(dx, dy, grx::size_of(w));
    const INT code = scroll_window(nofen, window, s);
    if (code == 1) give_zones(s, zones, nb);
    return code;
}
}
