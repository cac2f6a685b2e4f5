// The colours behind the pixels of the screen, and pixels for colours, for pictures in true colours.
#include "drawing/screen_colours.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <bit>

#include "display/images.h"
#include "xt_ini_t.h"

namespace grx {

PixelColours::PixelColours(const Visual& visual, Colormap colormap) : by_cells_(visual.c_class != TrueColor) {
    if (!by_cells_) {
        const std::array<unsigned long, 3> masks{visual.blue_mask, visual.green_mask, visual.red_mask};
        for (std::size_t i = 0; i < masks.size(); ++i) {
            const int shift = masks[i] != 0 ? std::countr_zero(masks[i]) : 0;
            channels_[i] = {masks[i], shift, std::max(masks[i] >> shift, 1UL)};
        }
        return;
    }
    std::array<XColor, 256> cells{};
    const int count = std::clamp(visual.map_entries, 1, 256);
    for (int i = 0; i < count; ++i) cells[static_cast<std::size_t>(i)].pixel = static_cast<unsigned long>(i);
    XQueryColors(x11_disp, colormap, cells.data(), count);
    const auto eight_bits = [](unsigned short level) { return static_cast<uchar>(level >> 8); };
    std::transform(cells.begin(), cells.end(), cells_.begin(), [&](const XColor& c) {
        return Bgr{eight_bits(c.blue), eight_bits(c.green), eight_bits(c.red)};
    });
}

void PixelColours::row(uchar* out, const XImage* image, int y) const {
    const bool direct = image->bits_per_pixel == 32 && image->byte_order == native_byte_order();
    for (int x = 0; x < image->width; ++x, out += kTrueBytes) {
        const unsigned long pixel =
            direct ? image_row<uint32_t>(image, y)[x] : XGetPixel(const_cast<XImage*>(image), x, y);
        put_bgr(out, colour_of(pixel));
    }
}

PixelColours window_colours() {
    return {*x11_vis, x11_cmap};
}

} // namespace grx
