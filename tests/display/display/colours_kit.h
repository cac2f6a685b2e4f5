// The standard colours, told once more.
#pragma once

#include "tests/display/drawing/drawing_kit.h"

#include <algorithm>
#include <array>

namespace grxtest {

using Triple = std::array<INT, 3>;

inline constexpr std::array<Triple, 8> reserved_colours{{{134, 123, 66}, {0, 0, 0}, {0, 0, 0}, {228, 225, 159},
    {119, 49, 49}, {255, 255, 255}, {255, 255, 0}, {128, 128, 128}}};

inline constexpr std::array<Triple, 16> hue_factors{{{0, 0, 0}, {0, 0, 2}, {0, 2, 0}, {0, 2, 2}, {2, 0, 0}, {2, 0, 2},
    {2, 2, 0}, {2, 2, 2}, {1, 1, 1}, {0, 0, 4}, {0, 4, 0}, {0, 4, 4}, {4, 0, 0}, {4, 0, 4}, {4, 4, 0}, {4, 4, 4}}};

inline Triple tinted(INT hue, INT factor) {
    Triple result = hue_factors[static_cast<std::size_t>(hue)];
    for (INT& component : result) component = std::min(component * factor, 255);
    return result;
}

inline Triple icon_colour(INT k) {
    return tinted(k, 64);
}

inline Triple drawing_colour(INT k) {
    const INT shade = k / 16;
    return tinted(k % 16, (shade % 2 == 0 ? 64 : 32) - 4 * (shade / 2));
}

inline Triple colour_at(INT index) {
    Triple rgb{-1, -1, -1};
    grx_recup_rgb(index, rgb.data());
    return rgb;
}

class PixelTables : public DisplayTest {};

class ColoursOn24 : public On24 {
  protected:
    static INT pixel(const Triple& rgb) {
        return rgb[0] * (1 << dec_red) + rgb[1] * (1 << dec_green) + rgb[2] * (1 << dec_blue);
    }
};

// What another client sees in the default colormap.
class OtherClient {
  public:
    explicit OtherClient(Display* display) : display_(display) {}

    Triple cell(INT pixel) const {
        XColor asked{};
        asked.pixel = static_cast<unsigned long>(pixel);
        XQueryColor(display_, DefaultColormap(display_, DefaultScreen(display_)), &asked);
        return {asked.red, asked.green, asked.blue};
    }

    static Triple stored(const Triple& rgb) { // what an 8-bit server makes of components times 255
        Triple result{};
        for (std::size_t i = 0; i < 3; ++i) result[i] = (rgb[i] * 255 >> 8) * 257;
        return result;
    }

  private:
    Display* display_;
};

class ColoursOn8 : public On8 {
  protected:
    OtherClient other() { return OtherClient(test_display()); }
    static Colormap shared_map() { return DefaultColormap(x11_disp, DefaultScreen(x11_disp)); }
};

} // namespace grxtest
