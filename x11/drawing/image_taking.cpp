// Takes pictures of what is on show, for the application: of backing pictures and of the screen, in true colours.
#include <X11/Intrinsic.h>
#include <X11/Xutil.h>

#include <algorithm>

#include "display/images.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/backing.h"
#include "drawing/screen_colours.h"
#include "drawing/transfer.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "pure/size.h"
#include "registry/window_table.h"
#include "system/picture_record.h"
#include "system/trace.h"
#include "toolkit/widgets.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

using grx::Block;

// A record of its own while the picture is made; the application's is filled at the end.
struct Taken {
    GRX_IMAGE image;
    Block<uchar> pixels;

    bool make(const grx::Size& size) {
        grx_init_image(&image);
        image.largeur = size.width;
        image.hauteur = size.height;
        image.octets_par_pixel = grx::kTrueBytes;
        pixels = grx::picture_block(grx::form_of(image));
        return static_cast<bool>(pixels);
    }
    uchar* row(int y) {
        return pixels.data() + grx::kTrueBytes * static_cast<std::size_t>(image.largeur) * static_cast<std::size_t>(y);
    }
    void give(GRX_IMAGE& into) {
        image.octets_voulus = into.octets_voulus;
        image.pixels = pixels.release();
        into = image;
    }
};

INT ready(const GRX_IMAGE* image) {
    if (x11_disp == nullptr || x11_vis == nullptr) return GRX_ECHEC_AFFICHAGE;
    return grx::is_empty_image(image) ? 1 : grx::refused(GRX_ECHEC_PARAMETRE, "image");
}

INT take_backing(Pixmap backing, GRX_IMAGE& image) {
    const grx::Size size = grx::pixmap_size(backing);
    if (size == grx::Size{}) return GRX_ECHEC_ABSENT;
    Taken taken;
    if (!taken.make(size)) return GRX_ECHEC_MEMOIRE;
    const grx::PixelColours colours = grx::window_colours();
    int read = 0;
    grx::read_rectangle(backing, 0, 0, {size.width, size.height}, [&](const XImage* part, int first) {
        for (int y = 0; y < part->height; ++y, ++read) colours.row(taken.row(first + y), part, y);
    });
    if (read < size.height) return GRX_ECHEC_MEMOIRE;
    taken.give(image);
    return 1;
}

// -- the screen

// A rectangle, y downwards from the top of the screen.
struct Area {
    int64_t x, y, width, height;
};

Area on_screen(const Area& asked) {
    const int64_t left = std::max<int64_t>(asked.x, 0), top = std::max<int64_t>(asked.y, 0);
    const int64_t right = std::min<int64_t>(asked.x + asked.width, DisplayWidth(x11_disp, x11_screen));
    const int64_t bottom = std::min<int64_t>(asked.y + asked.height, DisplayHeight(x11_disp, x11_screen));
    return {left, top, std::max<int64_t>(0, right - left), std::max<int64_t>(0, bottom - top)};
}

// The colormap that the screen shows its pixels by.
Colormap shown_colormap() {
    int count = 0;
    Colormap* const installed = XListInstalledColormaps(x11_disp, grx::root_window(), &count);
    const bool own = installed != nullptr && std::find(installed, installed + count, x11_cmap) != installed + count;
    if (installed != nullptr) XFree(installed);
    return own ? x11_cmap : DefaultColormap(x11_disp, x11_screen);
}

// In one request, so that nothing moves between its rows.
INT take_screen(const Area& part, GRX_IMAGE& image) {
    if (part.width == 0 || part.height == 0) return GRX_ECHEC_ABSENT;
    Taken taken;
    if (!taken.make({static_cast<int32_t>(part.width), static_cast<int32_t>(part.height)})) return GRX_ECHEC_MEMOIRE;
    XImage* const shown = XGetImage(x11_disp, grx::root_window(), static_cast<int>(part.x), static_cast<int>(part.y),
        static_cast<unsigned int>(part.width), static_cast<unsigned int>(part.height), AllPlanes, ZPixmap);
    if (shown == nullptr) return GRX_ECHEC_MEMOIRE;
    const Visual& visual = *DefaultVisual(x11_disp, x11_screen);
    const grx::PixelColours colours(visual, visual.c_class == TrueColor ? None : shown_colormap());
    for (int y = 0; y < shown->height; ++y) colours.row(taken.row(y), shown, y);
    XDestroyImage(shown);
    taken.give(image);
    return 1;
}

void give_part(INT* partie, int64_t x, int64_t y, const Area& part) {
    if (partie == nullptr) return;
    const std::array<int64_t, 4> values{x, y, part.width, part.height};
    std::transform(values.begin(), values.end(), partie, [](int64_t value) { return static_cast<INT>(value); });
}

} // namespace

extern "C" {

INT grx_recup_image_fenetre(INT nofen, GRX_IMAGE* image) {
    if (const INT fault = ready(image); fault != 1) return fault;
    const grx::Backing backing = grx::backing_of(nofen);
    if (backing.window == None) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (!backing || *backing.holder == None || grx::holds_dead_pixmap(nofen)) return GRX_ECHEC_ABSENT;
    return take_backing(*backing.holder, *image);
}

INT grx_recup_image_bouton(INT nobou, GRX_IMAGE* image) {
    if (const INT fault = ready(image); fault != 1) return fault;
    const grx::ButtonBacking backing = grx::button_backing(nobou);
    if (backing.window == None || backing.record == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
    return backing ? take_backing(backing.record->image, *image) : GRX_ECHEC_ABSENT;
}

INT grx_recup_image_ecran_fenetre(INT nofen, GRX_IMAGE* image, INT partie[4]) {
    if (const INT fault = ready(image); fault != 1) return fault;
    Widget w = grx_recup_objet_fen(nofen);
    const Window window = grx::window_of(w);
    if (window == None) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    XWindowAttributes shown{};
    if (XGetWindowAttributes(x11_disp, window, &shown) == 0 || shown.map_state != IsViewable) return GRX_ECHEC_ABSENT;
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(x11_disp, window, grx::root_window(), 0, 0, &x, &y, &child);
    const Area part = on_screen({x, y, shown.width, shown.height});
    const INT result = take_screen(part, *image);
    if (result == 1) give_part(partie, part.x - x, part.y - y, part);
    return result;
}

INT grx_recup_image_ecran(INT x, INT y, INT lar, INT hau, GRX_IMAGE* image, INT partie[4]) {
    if (const INT fault = ready(image); fault != 1) return fault;
    if (lar < 1 || hau < 1) return grx::refused(GRX_ECHEC_PARAMETRE, "lar, hau");
    const int64_t height = DisplayHeight(x11_disp, x11_screen);
    const Area part = on_screen({x, height - y - hau, lar, hau});
    const INT result = take_screen(part, *image);
    if (result == 1) give_part(partie, part.x, height - part.y - part.height, part);
    return result;
}
}
