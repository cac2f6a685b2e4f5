// Pictures in the forms that the library takes, and the same put pixel by pixel.
#pragma once

#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/controls.h"

#include <random>
#include <string>

namespace grxtest {

using Bytes = std::vector<uchar>;

inline constexpr INT to_window = 1; // type of a target: a window, any other value a button
inline constexpr INT to_button = 2;

// One picture in both forms.
struct Picture {
    INT width = 0, height = 0;
    Bytes deep;    // blue, green, red
    Bytes indices; // colour indices

    std::uint32_t pixel(INT x, INT y) const {
        const auto i = static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
        if (grx_recup_profondeur_ecran() == 8) return drawn_pixel(indices[i]);
        return std::uint32_t{deep[3 * i + 2]} << dec_red | std::uint32_t{deep[3 * i + 1]} << dec_green
               | std::uint32_t{deep[3 * i]} << dec_blue;
    }
};

inline Picture random_picture(INT width, INT height, unsigned seed = 1) {
    std::mt19937 random(seed);
    Picture picture{width, height, {}, {}};
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    for (std::size_t i = 0; i < 3 * count; ++i) picture.deep.push_back(static_cast<uchar>(random()));
    for (std::size_t i = 0; i < count; ++i) picture.indices.push_back(static_cast<uchar>(random() % 32));
    return picture;
}

// What the target shows after the picture was put, or stretched, on it.
inline Pixels with_picture(Pixels target, const Picture& picture, INT x, INT y, INT final_width, INT final_height) {
    for (INT j = 0; j < final_height; ++j)
        for (INT i = 0; i < final_width; ++i) {
            const long tx = long{x} + i, ty = long{y} + j;
            if (tx < 0 || ty < 0 || tx >= target.width || ty >= target.height) continue;
            target.values[static_cast<std::size_t>(ty * target.width + tx)] =
                picture.pixel(static_cast<INT>(long{picture.width} * i / final_width),
                    static_cast<INT>(long{picture.height} * j / final_height));
        }
    return target;
}

inline Pixels with_picture(const Pixels& target, const Picture& picture, INT x, INT y) {
    return with_picture(target, picture, x, y, picture.width, picture.height);
}

inline void put(INT type, INT target, Picture picture, INT x, INT y) {
    grx_trace_image_reel_xy(
        type, target, picture.deep.data(), picture.indices.data(), picture.width, picture.height, x, y);
}

inline void stretch(INT type, INT target, Picture picture, INT x, INT y, INT width, INT height) {
    grx_stretch_image(
        type, target, picture.deep.data(), picture.indices.data(), picture.width, picture.height, x, y, width, height);
}

class PictureTest : public DrawingTest {
  protected:
    void expect_shown(INT window, const Pixels& expected, const std::string& what = "") {
        drain();
        EXPECT_TRUE(same(screen(window), expected)) << what;
        EXPECT_TRUE(same(memory(window), expected)) << what << ", backing picture";
    }

    INT area_in(INT window, INT x, INT y, INT area_width, INT area_height) {
        GRX_BOUTON area = button_at(GRX_BOU_ZONE_DESSIN, window, {x, y, area_width, area_height});
        EXPECT_EQ(grx_cree_bouton(&area), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(area.nobou)));
        drain();
        return area.nobou;
    }
};

} // namespace grxtest
