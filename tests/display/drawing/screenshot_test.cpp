// A picture of the drawing, kept in a file, and pictures on a screen that other windows come and go on.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/window_kit.h"
#include "tests/support/temp_dir.h"

#include <cstdio>
#include <vector>

namespace {

using namespace grxtest;
using Bytes = std::vector<uchar>;

constexpr INT to_window = 1;

class ScreenshotOn24 : public DrawingTest {
  protected:
    static constexpr INT shot_width = 128, shot_height = 90; // rows of whole words in every format

    // Lines and boxes in the sixteen colours that every format has room for.
    INT drawing() {
        const INT window = graphic_window();
        RandomPrimitives random(3, shot_width, shot_height);
        for (int i = 0; i < 60; ++i) {
            Primitive box{Primitive::Kind::filled_rectangle, attributes(random.number(0, 15)), {}, {}};
            box.v = {random.number(0, 100), random.number(0, 70), random.number(0, 127), random.number(0, 89)};
            draw(window, box);
        }
        drain();
        return window;
    }

    Bytes shot_of(INT window) {
        Bytes shot(shot_width * shot_height, 0xEE);
        grx_affecte_nofen_active(window);
        grx_recup_image(0, 0, shot_width, shot_height, shot.data());
        return shot;
    }

    Bytes read_back(const char* name, INT colours) {
        uchar* data = nullptr;
        UNSIGNED_INT4 width = 0, height = 0, bytes = 0;
        INT found = 0;
        std::string file = name;
        EXPECT_EQ(lit_fichier_bitmap(directory_.data(), file.data(), &data, &width, &height, &bytes, &found), 0);
        EXPECT_EQ(found, colours);
        EXPECT_EQ(width, UNSIGNED_INT4{shot_width});
        EXPECT_EQ(height, UNSIGNED_INT4{shot_height});
        if (data == nullptr) return {};
        const Bytes result(data, data + shot_width * shot_height);
        grx_free(reinterpret_cast<char*>(data), bytes);
        return result;
    }

    TempDir place_;
    std::string directory_ = place_.text();
};

TEST_F(ScreenshotOn24, IsReadBackFromFilesOf256And16Colours) {
    Bytes shot = shot_of(drawing());
    std::string name = "DESSIN.BMP";
    ASSERT_EQ(ecrit_fichier_bitmap_256(directory_.data(), name.data(), shot.data(), shot_width, shot_height), 0);
    EXPECT_EQ(read_back("DESSIN.BMP", 256), shot);
    ASSERT_EQ(ecrit_fichier_bitmap(directory_.data(), name.data(), shot.data(), shot_width, shot_height), 0);
    EXPECT_EQ(read_back("DESSIN.BMP", 16), shot);
}

// One bit a pixel, the bottom row first: white where nothing is drawn.
TEST_F(ScreenshotOn24, ItsMonochromeFileHasABitForEachPixel) {
    Bytes shot = shot_of(drawing());
    std::string name = "MONO.BMP";
    ASSERT_EQ(ecrit_fichier_bitmap_mono(directory_.data(), name.data(), shot.data(), shot_width, shot_height), 0);
    const std::string file = place_.read("MONO.BMP");
    constexpr std::size_t head = 62, row_bytes = shot_width / 8;
    ASSERT_EQ(file.size(), head + row_bytes * shot_height);
    int white = 0;
    for (INT y = 0; y < shot_height; ++y)
        for (INT x = 0; x < shot_width; ++x) {
            const auto byte = static_cast<uchar>(file[head + static_cast<std::size_t>(shot_height - 1 - y) * row_bytes
                                                      + static_cast<std::size_t>(x / 8)]);
            const bool set = (byte >> (7 - x % 8) & 1) != 0;
            const bool blank = shot[static_cast<std::size_t>(y * shot_width + x)] == 0;
            ASSERT_EQ(set, blank) << x << ", " << y;
            white += set;
        }
    EXPECT_GT(white, 0);
    EXPECT_LT(white, shot_width * shot_height);
}

class LargePicture : public DrawingTest {
  protected:
    static constexpr INT wide = 800, high = 600;

    static Bytes indices(INT width, INT height) {
        Bytes result;
        for (INT i = 0; i < width * height; ++i) result.push_back(static_cast<uchar>((i % width + i / width) % 16));
        return result;
    }
    static Bytes deep(const Bytes& indices) {
        Bytes result;
        for (const uchar index : indices) {
            INT rgb[3] = {};
            grx_recup_rgb(index, rgb);
            for (const INT component : {rgb[2], rgb[1], rgb[0]}) result.push_back(static_cast<uchar>(component));
        }
        return result;
    }

    static constexpr Area place{40, 60, wide, high};
    static constexpr Area over_it{200, 150, 300, 250};
    Pixels seen() { return grab_root(test_display()).part(over_it); }
    static Pixels before_cover(const Pixels& picture) {
        return picture.part({over_it.x - place.x, over_it.y - place.y, over_it.width, over_it.height});
    }

    // Covered by a window that then goes away again; the application does nothing about it.
    void expect_the_same_after_covering(INT window) {
        drain();
        const Pixels before = screen(window);
        const INT cover = window_of(GRX_FEN_ALPHA, over_it);
        ASSERT_TRUE(wait_visible(widget_of(cover)));
        ASSERT_TRUE(wait_for([&] { return !same(seen(), before_cover(before)); }));
        grx_detruit_fenetre(cover);
        EXPECT_TRUE(wait_for([&] { return same(seen(), before_cover(before)); }));
        EXPECT_TRUE(same(screen(window), before));
    }
};

TEST_F(LargePicture, ShownAndStretchedItComesBackWhenItIsUncovered) {
    const INT window = graphic_window(place);
    Bytes shallow = indices(wide, high), full = deep(shallow);
    grx_trace_image_reel_xy(to_window, window, full.data(), shallow.data(), wide, high, 0, 0);
    expect_the_same_after_covering(window);
    Bytes small = indices(wide / 4, high / 4), small_deep = deep(small);
    const Pixels before = screen(window);
    grx_stretch_image(to_window, window, small_deep.data(), small.data(), wide / 4, high / 4, 0, 0, wide, high);
    drain();
    EXPECT_FALSE(same(screen(window), before));
    expect_the_same_after_covering(window);
}

} // namespace
