// Pictures of the application in every form, shown, stretched, laid on what is there; and taken back from windows and screen.
#include "tests/display/drawing/picture_kit.h"
#include "tests/support/counters.h"
#include "tests/support/heap.h"
#include "tests/support/image_kit.h"
#include "tests/support/window_kit.h"

#include <array>
#include <climits>

namespace {

using namespace grxtest;

using Colour = std::array<int, 3>; // blue, green, red

bool deep() {
    return grx_recup_profondeur_ecran() > 8;
}

// What the server says of a pixel.
Colour colour_of(std::uint32_t pixel) {
    if (deep())
        return {static_cast<int>(pixel >> dec_blue & 255), static_cast<int>(pixel >> dec_green & 255),
            static_cast<int>(pixel >> dec_red & 255)};
    XColor cell{};
    cell.pixel = pixel;
    XQueryColor(x11_disp, x11_cmap, &cell);
    return {cell.blue >> 8, cell.green >> 8, cell.red >> 8};
}

int distance(const Colour& a, const Colour& b) {
    int sum = 0;
    for (std::size_t c = 0; c < 3; ++c) sum += (a[c] - b[c]) * (a[c] - b[c]);
    return sum;
}

Colour taken_at(const Image& image, INT x, INT y) {
    const unsigned char* const p = image.record.pixels + 3 * (y * image.record.largeur + x);
    return {p[0], p[1], p[2]};
}

class ImageShowingTest : public PictureTest {
  protected:
    // The nearest of the colours that drawing has.
    static int nearest_distance(const Colour& wanted) {
        int least = INT_MAX;
        const INT count = grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace();
        for (INT i = 0; i < count; ++i) least = std::min(least, distance(colour_of(drawn_pixel(i)), wanted));
        return least;
    }

    static void expect_colour(std::uint32_t pixel, const Colour& wanted, const std::string& what) {
        if (deep()) {
            EXPECT_EQ(colour_of(pixel), wanted) << what;
        } else {
            EXPECT_EQ(distance(colour_of(pixel), wanted), nearest_distance(wanted)) << what;
        }
    }

    static Colour pixel_of(const Image& image, INT x, INT y, const Colour& behind) {
        const GRX_IMAGE& r = image.record;
        const unsigned char* const from = r.pixels + r.octets_par_pixel * (y * r.largeur + x);
        const unsigned char* const p = r.octets_par_pixel == 1 ? r.palette[*from] : from;
        const int alpha = r.octets_par_pixel == 3 ? 255 : p[3];
        Colour result{};
        for (std::size_t c = 0; c < 3; ++c) result[c] = (p[c] * alpha + behind[c] * (255 - alpha) + 127) / 255;
        return result;
    }
};

TEST_F(ImageShowingTest, EveryFormIsShownInWindowAndBackingPicture) {
    for (const INT bytes : {1, 3, 4}) {
        const INT window = graphic_window();
        Image image;
        make_random(image, 19, 11, bytes, 90);
        if (bytes == 1) image->palette[7][3] = 0;
        ASSERT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, window, image.get(), 30, 20), 1);
        drain();
        const Pixels now = screen(window);
        EXPECT_TRUE(same(now, memory(window)));
        for (INT y = 0; y < 11; ++y)
            for (INT x = 0; x < 19; ++x)
                expect_colour(now.at(30 + x, 20 + y), pixel_of(image, x, y, colour_of(background())),
                    std::to_string(bytes) + " bytes at " + std::to_string(x) + "," + std::to_string(y));
        EXPECT_EQ(now.at(29, 20), background());
        EXPECT_EQ(now.at(49, 20), background());
        EXPECT_EQ(now.at(30, 31), background());
        grx_detruit_fenetre(window);
    }
}

TEST_F(ImageShowingTest, WhatIsTransparentLetsThroughWhatWasDrawn) {
    const INT window = graphic_window();
    draw(window, filled(attributes(3), 0, 0, 100, 100));
    grx_memorise_bitmap_backingstore(window);
    Image image;
    make_random(image, 2, 1, 4);
    const std::array<unsigned char, 8> pixels{9, 9, 9, 0, 200, 100, 50, 255};
    std::memcpy(image->pixels, pixels.data(), pixels.size());
    ASSERT_EQ(grx_affiche_image_etiree(GRX_CIBLE_FENETRE, window, image.get(), 10, 10, 20, 10), 1);
    drain();
    const Pixels now = screen(window);
    EXPECT_EQ(now.at(10, 10), drawn_pixel(3));
    EXPECT_EQ(now.at(19, 19), drawn_pixel(3));
    expect_colour(now.at(20, 10), {200, 100, 50}, "opaque");
    expect_colour(now.at(29, 19), {200, 100, 50}, "opaque");
    EXPECT_EQ(now.at(30, 10), drawn_pixel(3));
}

TEST_F(ImageShowingTest, PartsOutsideTheTargetAreCut) {
    const INT window = graphic_window();
    Image image;
    make_random(image, 100, 80, 3);
    struct Place {
        INT x, y, largeur, hauteur;
    };
    for (const Place p : {Place{-50, -40, 100, 80}, {200, 150, 100, 80}, {-1000, 0, 32767, 160}, {0, -3000, 160, 32767},
             {INT_MIN, INT_MIN, 100, 80}, {INT_MAX, INT_MAX, 32767, 32767}, {240, 0, 1, 1}, {-100, -80, 100, 80}}) {
        ASSERT_EQ(grx_affiche_image_etiree(GRX_CIBLE_FENETRE, window, image.get(), p.x, p.y, p.largeur, p.hauteur), 1);
        drain();
        const Pixels now = screen(window);
        EXPECT_TRUE(same(now, memory(window)));
        for (INT y = 0; y < height; y += 7)
            for (INT x = 0; x < width; x += 7) {
                const long from_x = (long{x} - p.x) * 100 / p.largeur, from_y = (long{y} - p.y) * 80 / p.hauteur;
                const bool on = x >= p.x && y >= p.y && from_x < 100 && from_y < 80;
                if (on)
                    expect_colour(now.at(x, y), pixel_of(image, static_cast<INT>(from_x), static_cast<INT>(from_y), {}),
                        std::to_string(p.x) + "," + std::to_string(p.y));
            }
    }
}

TEST_F(ImageShowingTest, DrawingAreasAreTargetsToo) {
    const INT window = graphic_window();
    const INT area = area_in(window, 20, 20, 60, 40);
    Image image, taken;
    make_random(image, 60, 40, 3);
    ASSERT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE + 1, area, image.get(), 0, 0), 1);
    ASSERT_EQ(grx_recup_image_bouton(area, taken.get()), 1);
    EXPECT_EQ(taken->largeur, 60);
    if (deep()) EXPECT_EQ(taken.rows(), image.rows());
    EXPECT_EQ(taken_at(taken, 5, 5), colour_of(grab(x11_disp, x_button(area)).at(5, 5)));
}

TEST_F(ImageShowingTest, WhatCannotBeShownIsAnswered) {
    const INT window = graphic_window();
    Image image, empty;
    make_random(image, 4, 4, 1, 4);
    const INT dialog = window_of(GRX_FEN_BOUTONS, {300, 60, 80, 80});
    GRX_BOUTON label = button_at(GRX_BOU_LABEL, dialog, {5, 5, 40, 30});
    ASSERT_EQ(grx_cree_bouton(&label), 0);
    EXPECT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, 98, image.get(), 0, 0), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_affiche_image(2, 998, image.get(), 0, 0), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_affiche_image(2, label.nobou, image.get(), 0, 0), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, window, nullptr, 0, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, window, empty.get(), 0, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affiche_image_etiree(1, window, image.get(), 0, 0, 0, 5), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affiche_image_etiree(1, window, image.get(), 0, 0, 5, 32768), GRX_ECHEC_PARAMETRE);
    image->pixels[5] = 4;
    EXPECT_EQ(grx_affiche_image(GRX_CIBLE_FENETRE, window, image.get(), 0, 0), GRX_ECHEC_PARAMETRE);
    image->pixels[5] = 3;
    const NoLeak no_leak;
    EXPECT_GT(fail_each_allocation([&] {
        const INT result = grx_affiche_image(GRX_CIBLE_FENETRE, window, image.get(), 0, 0);
        EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE);
    }),
        1);
    drain();
}

// --- taken ---------------------------------------------------------------------------------------------

TEST_F(ImageShowingTest, AWindowIsTakenWhateverCoversIt) {
    const INT window = graphic_window();
    draw(window, filled(attributes(3), 20, 20, 60, 60));
    grx_memorise_bitmap_backingstore(window);
    draw(window, filled(attributes(4), 100, 20, 120, 60)); // on the screen only
    graphic_window({30, 40, 300, 250});                    // covers it
    Image image;
    ASSERT_EQ(grx_recup_image_fenetre(window, image.get()), 1);
    EXPECT_EQ(image->octets_par_pixel, 3);
    const Pixels kept = memory(window);
    ASSERT_EQ(image->largeur, kept.width);
    ASSERT_EQ(image->hauteur, kept.height);
    for (INT y = 0; y < kept.height; y += 5)
        for (INT x = 0; x < kept.width; x += 5)
            EXPECT_EQ(taken_at(image, x, y), colour_of(kept.at(x, y))) << x << "," << y;
    EXPECT_EQ(taken_at(image, 30, 30), colour_of(drawn_pixel(3)));
    EXPECT_EQ(taken_at(image, 110, 30), colour_of(background()));
    EXPECT_EQ(grx_recup_image_fenetre(window, image.get()), GRX_ECHEC_PARAMETRE) << "its pixels would be lost";
}

TEST_F(ImageShowingTest, TheScreenIsTakenAsItIs) {
    const INT window = graphic_window();
    draw(window, filled(attributes(3), 20, 20, 60, 60));
    drain();
    const Pixels root = grab_root(x11_disp);
    struct Asked {
        INT x, y, lar, hau, got_x, got_y, got_lar, got_hau;
    };
    const INT w = grx_recup_lar_ecran(), h = grx_recup_hau_ecran();
    for (const Asked& a : {Asked{50, h - 250, 100, 90, 50, h - 250, 100, 90}, {0, 0, w, h, 0, 0, w, h},
             {-10, -20, 30, 50, 0, 0, 20, 30}, {w - 5, h - 7, 100, 100, w - 5, h - 7, 5, 7}}) {
        Image image;
        std::array<INT, 4> part{};
        ASSERT_EQ(grx_recup_image_ecran(a.x, a.y, a.lar, a.hau, image.get(), part.data()), 1);
        EXPECT_EQ(part, (std::array<INT, 4>{a.got_x, a.got_y, a.got_lar, a.got_hau}));
        ASSERT_EQ(image->largeur, a.got_lar);
        ASSERT_EQ(image->hauteur, a.got_hau);
        const int top = h - a.got_y - a.got_hau;
        for (INT y = 0; y < a.got_hau; y += 3)
            for (INT x = 0; x < a.got_lar; x += 3)
                ASSERT_EQ(taken_at(image, x, y), colour_of(root.at(a.got_x + x, top + y))) << x << "," << y;
    }
    Image image;
    EXPECT_EQ(grx_recup_image_ecran(w, 0, 5, 5, image.get(), nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_image_ecran(INT_MIN, INT_MIN, INT_MAX, INT_MAX, image.get(), nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_image_ecran(0, 0, 0, 5, image.get(), nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_image_ecran(0, 0, 5, 5, nullptr, nullptr), GRX_ECHEC_PARAMETRE);
}

TEST_F(ImageShowingTest, TheScreenOfAWindowHasWhatCoversIt) {
    const INT window = graphic_window({-20, 60, 200, 100});
    draw(window, filled(attributes(3), 100, 20, 120, 60));
    drain();
    const Area at = server_area(x11_disp, x_window(window));
    Image image;
    std::array<INT, 4> part{};
    ASSERT_EQ(grx_recup_image_ecran_fenetre(window, image.get(), part.data()), 1);
    const INT cut = std::max(0, -at.x);
    EXPECT_EQ(part, (std::array<INT, 4>{cut, 0, at.width - cut, at.height}));
    EXPECT_EQ(taken_at(image, 110 - cut, 30), colour_of(drawn_pixel(3)));
    draw(graphic_window({60, 60, 200, 100}), filled(attributes(5), 0, 0, 200, 100));
    drain();
    Image covered;
    ASSERT_EQ(grx_recup_image_ecran_fenetre(window, covered.get(), nullptr), 1);
    EXPECT_EQ(taken_at(covered, 110 - cut, 30), colour_of(drawn_pixel(5)));
    Image hidden;
    grx_cache_fenetre(window);
    drain();
    EXPECT_EQ(grx_recup_image_ecran_fenetre(window, hidden.get(), nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_recup_image_ecran_fenetre(98, hidden.get(), nullptr), GRX_ECHEC_NUMERO);
}

TEST_F(ImageShowingTest, FiveHundredRoundsLeaveNothing) {
    const INT window = graphic_window();
    Image image;
    make_random(image, 64, 48, 4);
    const auto round = [&] {
        Image taken, of_screen;
        ASSERT_EQ(grx_affiche_image_etiree(GRX_CIBLE_FENETRE, window, image.get(), 3, 3, 100, 90), 1);
        ASSERT_EQ(grx_recup_image_fenetre(window, taken.get()), 1);
        ASSERT_EQ(grx_recup_image_ecran(0, 0, 50, 50, of_screen.get(), nullptr), 1);
    };
    round();
    const auto pixmaps = server_resources(test_display(), x_window(window))["PIXMAP"];
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) round();
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(window))["PIXMAP"], pixmaps);
}

class ImageWithoutDisplayTest : public XTest {};

TEST_F(ImageWithoutDisplayTest, NothingIsShownOrTaken) {
    Image image, none;
    make_random(image, 2, 2, 3);
    EXPECT_EQ(grx_affiche_image(1, 1, image.get(), 0, 0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affiche_image_etiree(1, 1, image.get(), 0, 0, 5, 5), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_image_fenetre(1, none.get()), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_image_bouton(1, none.get()), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_image_ecran(0, 0, 1, 1, none.get(), nullptr), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_recup_image_ecran_fenetre(1, none.get(), nullptr), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_affecte_icone_bouton(1, "x.png"), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_supprime_icone_bouton(1), GRX_ECHEC_AFFICHAGE);
}

} // namespace
