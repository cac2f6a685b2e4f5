// The colours behind the pixels of the screen, and pixels for colours, for pictures in true colours.
#pragma once

#include <X11/Xlib.h>

#include <array>
#include <cstdint>

#include "pure/true_colour.h"

namespace grx {

/// Turns pixels into colours: by the masks of a visual with true colours, else by the cells of a colormap as they are now.
class PixelColours {
  public:
    PixelColours(const Visual& visual, Colormap colormap);
    Bgr colour_of(unsigned long pixel) const {
        return by_cells_ ? cells_[pixel & 255UL] : Bgr{level(pixel, 0), level(pixel, 1), level(pixel, 2)};
    }
    /// A row of an image, as blue, green, red.
    void row(uchar* out, const XImage* image, int y) const;

  private:
    struct Channel {
        unsigned long mask;
        int shift;
        unsigned long most;
    };
    uchar level(unsigned long pixel, std::size_t channel) const {
        const Channel& c = channels_[channel];
        return static_cast<uchar>((((pixel & c.mask) >> c.shift) * kOpaque + c.most / 2) / c.most);
    }

    bool by_cells_;
    std::array<Channel, 3> channels_{};
    std::array<Bgr, 256> cells_{};
};

/// The visual and the colormap of the library's windows.
PixelColours window_colours();

} // namespace grx
