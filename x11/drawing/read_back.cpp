// Reads back what a window shows, as colour indices for the application.
#include <X11/Intrinsic.h>

#include <algorithm>
#include <cstring>

#include "pure/pixels.h"
#include "pure/size.h"
#include "display/images.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "toolkit/widgets.h"
#include "drawing/attributes.h"
#include "drawing/layers.h"
#include "drawing/pictures.h"
#include "drawing/transfer.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

uint32_t colour_mask() {
    constexpr uint32_t component = 255;
    return component << dec_red | component << dec_green | component << dec_blue;
}

// Turns rows of pixels from the screen into colour indices.
class RowReader {
  public:
    RowReader() : finder_(trace_pix, known_colours(), colour_mask()) {}
    void read(uchar* out, const XImage* image, int y) const {
        const auto count = static_cast<std::size_t>(image->width);
        if (!grx::deep_screen()) { // KEEP: on 8 planes the application gets the pixel values as they are.
            std::memcpy(out, grx::image_row<uchar>(image, y), count);
        } else if (image->bits_per_pixel == 32 && image->byte_order == grx::native_byte_order()) {
            finder_.row(out, grx::image_row<uint32_t>(image, y), count);
        } else {
            read_pixels(out, image, y);
        }
    }

  private:
    static std::size_t known_colours() {
        const INT known = grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace();
        return static_cast<std::size_t>(std::clamp<INT>(known, 0, GRX_NB_COULEURS));
    }
    void read_pixels(uchar* out, const XImage* image, int y) const {
        for (int x = 0; x < image->width; ++x)
            *out++ = finder_.find(static_cast<uint32_t>(XGetPixel(const_cast<XImage*>(image), x, y)));
    }
    grx::IndexFinder finder_;
};

// The part of a window that is on the screen, in the window's coordinates. The server lets nobody read more.
struct Readable {
    int64_t left, top, right, bottom;
};

Readable readable_part(Widget w, Window window) {
    const grx::Size size = grx::size_of(w);
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(x11_disp, window, grx::root_window(), 0, 0, &x, &y, &child);
    return {std::max(0, -x), std::max(0, -y), std::min(size.width, grx_recup_lar_ecran() - x),
        std::min(size.height, grx_recup_hau_ecran() - y)};
}

} // namespace

extern "C" {

void grx_recup_image(INT x, INT y, INT largeur, INT hauteur, uchar* tab_pix) {
    const INT active = grx_recup_nofen_active();
    Widget w = grx_recup_objet_fen(active);
    const Window window = grx::window_of(w);
    if (window == None || g_c == nullptr || !grx::usable_picture(tab_pix, largeur, hauteur)) return;
    grx::set_copy_function();
    grx::take_layers_off(active);
    const int64_t left = std::max<INT>(x, 0);
    const int64_t top = std::max<INT>(y, 0);
    const Readable part = readable_part(w, window);
    const int64_t from_x = std::max(left, part.left);
    const int64_t from_y = std::max(top, part.top);
    const int64_t width = std::min(left + largeur, part.right) - from_x;
    const int64_t height = std::min(top + hauteur, part.bottom) - from_y;
    if (width <= 0 || height <= 0) return;
    const RowReader reader;
    const auto row_bytes = static_cast<std::size_t>(largeur);
    uchar* const out = tab_pix + static_cast<std::size_t>(from_y - top) * row_bytes + (from_x - left);
    grx::read_rectangle(window, static_cast<int>(from_x), static_cast<int>(from_y),
        {static_cast<int>(width), static_cast<int>(height)}, [&](const XImage* image, int first) {
            for (int row = 0; row < image->height; ++row)
                reader.read(out + static_cast<std::size_t>(first + row) * row_bytes, image, row);
        });
}
}
