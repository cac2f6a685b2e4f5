// Icons of controls with transparency: their looks, and how they follow the control.
#include "tests/display/drawing/icon_kit.h"
#include "tests/support/counters.h"
#include "tests/support/heap.h"
#include "tests/support/image_kit.h"

#include <array>

namespace {

using namespace grxtest;

constexpr INT side = 16;

class ControlIconsTest : public IconTest {
  protected:
    // Opaque red in its middle, nothing around.
    static void make_icon(Image& image, unsigned char blue = 0, unsigned char green = 0, unsigned char red = 255) {
        image->largeur = image->hauteur = side;
        image->octets_par_pixel = 4;
        ASSERT_EQ(grx_cree_image(image.get()), 1);
        for (INT y = 4; y < 12; ++y)
            for (INT x = 4; x < 12; ++x) {
                const std::array<unsigned char, 4> pixel{blue, green, red, 255};
                std::memcpy(image->pixels + 4 * (y * side + x), pixel.data(), 4);
            }
    }
    std::string icon_png(
        const std::string& name, unsigned char blue = 0, unsigned char green = 0, unsigned char red = 255) {
        Image image;
        make_icon(image, blue, green, red);
        const std::string file = home().text() + "/" + name;
        EXPECT_EQ(grx_ecrit_image(file.c_str(), image.get(), GRX_IMAGE_PNG), 1);
        return file;
    }

    INT control(INT type, INT attrib = GRX_BOU_ATT_ACTIF) {
        GRX_BOUTON button = button_at(type, window_, {20 + 60 * (made_ % 3), 10 + 50 * (made_ / 3), 50, 40});
        ++made_;
        button.attrib = attrib;
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(button.nobou)));
        return button.nobou;
    }
    static Widget widget(INT nobou) { return grx_recup_objet_bout(nobou); }

    // Red, green, blue of the middle of a control and of beside the icon's opaque part.
    static std::array<int, 3> rgb(std::uint32_t pixel) {
        XColor cell{};
        cell.pixel = pixel;
        XQueryColor(x11_disp, x11_cmap, &cell);
        return {cell.red >> 8, cell.green >> 8, cell.blue >> 8};
    }
    Pixels shown(INT nobou) {
        drain();
        return grab(x11_disp, XtWindow(widget(nobou)));
    }
    // The mean of 4 x 4 pixels: few colours are shown as patterns.
    std::array<int, 3> middle(INT nobou) {
        const Pixels now = shown(nobou);
        std::array<int, 3> sum{};
        for (int y = -2; y < 2; ++y)
            for (int x = -2; x < 2; ++x) {
                const auto colour = rgb(now.at(middle_x(nobou) + x, now.height / 2 + y));
                for (std::size_t c = 0; c < 3; ++c) sum[c] += colour[c];
            }
        for (int& level : sum) level /= 16;
        return sum;
    }
    std::uint32_t beside(INT nobou) {
        const Pixels now = shown(nobou);
        return now.at(middle_x(nobou) - 6, now.height / 2 - 6);
    }
    // Toggles have their indicator before the icon, and labels begin at the left.
    int middle_x(INT nobou) {
        const Widget w = widget(nobou);
        if (XmIsToggleButton(w)) return resource<Dimension>(w, XmNmarginLeft) + 2 + toggle_shift(w);
        unsigned char alignment = resource<unsigned char>(w, XmNalignment);
        return alignment == XmALIGNMENT_BEGINNING ? side / 2 : resource<Dimension>(w, XmNwidth) / 2;
    }
    static int toggle_shift(Widget w) {
        const int free = resource<Dimension>(w, XmNwidth) - resource<Dimension>(w, XmNmarginLeft) - 4 - side;
        return free / 2 + side / 2;
    }

    static bool is_red(const std::array<int, 3>& c) { return c[0] > 200 && c[1] < 40 && c[2] < 40; }
    static bool is_light_red(const std::array<int, 3>& c) { return c[0] > 200 && c[1] > 60 && c[1] < 180; }
    static bool is_grey(const std::array<int, 3>& c) { return std::abs(c[0] - c[1]) < 70 && c[0] < 220; }

    void SetUp() override {
        IconTest::SetUp();
        window_ = visible_window();
    }
    INT window_ = GRX_AUCUN;
    INT made_ = 0;
};

constexpr std::array kKinds{GRX_BOU_DESSINE, GRX_BOU_POUSSOIR, GRX_BOU_SIMPLE, GRX_BOU_LABEL, GRX_BOU_COULEUR};

TEST_F(ControlIconsTest, IsLaidOnTheColourOfTheControl) {
    const std::string file = icon_png("a.png");
    for (const INT kind : kKinds) {
        const INT n = control(kind);
        ASSERT_EQ(grx_affecte_icone_bouton(n, file.c_str()), 1) << kind;
        EXPECT_TRUE(wait_for([&] { return is_red(middle(n)); })) << kind;
        EXPECT_EQ(beside(n), static_cast<std::uint32_t>(grx_recup_couleur_bouton(n))) << kind;
        grx_change_couleur_bouton(n, 6);
        EXPECT_TRUE(wait_for([&] { return beside(n) == colour_pixel(6); })) << kind << ", changed by its number";
        EXPECT_TRUE(is_red(middle(n))) << kind;
        XtVaSetValues(widget(n), XmNbackground, static_cast<Pixel>(colour_pixel(3)), nullptr);
        EXPECT_TRUE(wait_for([&] { return beside(n) == colour_pixel(3); })) << kind << ", changed by the toolkit";
        XmChangeColor(widget(n), static_cast<Pixel>(colour_pixel(5)));
        EXPECT_TRUE(wait_for([&] { return beside(n) == colour_pixel(5); })) << kind << ", with its shadows";
    }
}

TEST_F(ControlIconsTest, HalfTransparentPixelsAreMixed) {
    const INT n = control(GRX_BOU_SIMPLE);
    grx_change_couleur_bouton(n, 5); // white
    Image image;
    make_icon(image, 255, 0, 0);
    for (INT i = 0; i < side * side; ++i) image->pixels[4 * i + 3] = 128;
    for (INT i = 0; i < side * side; ++i) image->pixels[4 * i] = 255;
    ASSERT_EQ(grx_affecte_icone_image_bouton(n, image.get()), 1);
    const auto got = middle(n);
    if (grx_recup_profondeur_ecran() > 8) {
        EXPECT_EQ(got, (std::array<int, 3>{127, 127, 255}));
    } else {
        EXPECT_GT(got[2], got[0] + 10);
    }
}

TEST_F(ControlIconsTest, PressedIsLighter) {
    const std::string file = icon_png("a.png");
    for (const INT kind : {GRX_BOU_DESSINE, GRX_BOU_POUSSOIR, GRX_BOU_SIMPLE}) {
        const INT n = control(kind);
        ASSERT_EQ(grx_affecte_icone_bouton(n, file.c_str()), 1);
        pointer().move_in(widget(n), 10, 10);
        pointer().press(1);
        EXPECT_TRUE(wait_for([&] { return is_light_red(middle(n)); })) << kind;
        pointer().release(1);
        EXPECT_TRUE(wait_for([&] { return is_red(middle(n)); })) << kind;
        EXPECT_TRUE(events.wait(6)) << events.describe();
        grx_enfonce_bouton(n);
        EXPECT_TRUE(wait_for([&] { return is_light_red(middle(n)); })) << kind << ", held";
        grx_change_couleur_bouton(n, 6);
        EXPECT_TRUE(wait_for([&] { return beside(n) == colour_pixel(6); })) << kind;
        EXPECT_TRUE(is_light_red(middle(n))) << kind << ", held in another colour";
        grx_relache_bouton(n);
        EXPECT_TRUE(wait_for([&] { return is_red(middle(n)); })) << kind << ", let go";
    }
}

TEST_F(ControlIconsTest, AToggleThatIsOnIsLighter) {
    const INT n = control(GRX_BOU_BASCULE);
    ASSERT_EQ(grx_affecte_icone_bouton(n, icon_png("a.png").c_str()), 1);
    const auto seen = [&](bool (*is)(const std::array<int, 3>&)) {
        const Pixels now = shown(n);
        int count = 0;
        for (const std::uint32_t pixel : now.values) count += is(rgb(pixel)) ? 1 : 0;
        return count;
    };
    EXPECT_TRUE(wait_for([&] { return seen(is_red) == 64; }));
    pointer().click_in(widget(n), 10, 10);
    const bool deep = grx_recup_profondeur_ecran() > 8;
    EXPECT_TRUE(wait_for([&] { return deep ? seen(is_light_red) == 64 : seen(is_red) < 56; }));
    EXPECT_EQ(seen(is_red) > 0, !deep) << "a pattern on 8 planes";
}

TEST_F(ControlIconsTest, InsensitiveIsGreyAndFaint) {
    const std::string file = icon_png("a.png");
    for (const INT kind : kKinds) {
        const INT n = control(kind);
        ASSERT_EQ(grx_affecte_icone_bouton(n, file.c_str()), 1);
        grx_desactive_bouton(n, 1);
        EXPECT_TRUE(wait_for([&] { return is_grey(middle(n)); })) << kind;
        grx_change_couleur_bouton(n, 6);
        EXPECT_TRUE(wait_for([&] { return beside(n) == colour_pixel(6); })) << kind;
        grx_desactive_bouton(n, 0);
        EXPECT_TRUE(wait_for([&] { return is_red(middle(n)); })) << kind;
    }
}

TEST_F(ControlIconsTest, IsReplacedAndTakenAway) {
    const INT n = control(GRX_BOU_SIMPLE);
    const std::string red = icon_png("a.png"), green = icon_png("b.png", 0, 255, 0);
    EXPECT_EQ(grx_supprime_icone_bouton(n), GRX_ECHEC_ABSENT);
    ASSERT_EQ(grx_affecte_icone_bouton(n, red.c_str()), 1);
    ASSERT_EQ(grx_affecte_icone_bouton(n, green.c_str()), 1);
    EXPECT_TRUE(wait_for([&] { return middle(n)[1] > 200 && middle(n)[0] < 60; }));
    std::string plain = plain_icon("c.bmp", 9);
    grx_change_icone_bouton(n, plain.data());
    EXPECT_TRUE(wait_for([&] { return shown(n).count(icon_pixel(9)) > 50; }));
    EXPECT_EQ(resource<Pixmap>(widget(n), XmNlabelInsensitivePixmap), static_cast<Pixmap>(XmUNSPECIFIED_PIXMAP));
    EXPECT_EQ(grx_supprime_icone_bouton(n), GRX_ECHEC_ABSENT) << "it is the contract's";
    ASSERT_EQ(grx_affecte_icone_bouton(n, red.c_str()), 1);
    EXPECT_TRUE(wait_for([&] { return is_red(middle(n)); }));
    EXPECT_EQ(grx_supprime_icone_bouton(n), 1);
    EXPECT_EQ(resource<unsigned char>(widget(n), XmNlabelType), XmSTRING);
    EXPECT_EQ(button_record(n).image, 0U);
}

TEST_F(ControlIconsTest, WhatIsRefusedLeavesTheIcon) {
    const INT n = control(GRX_BOU_SIMPLE), field = control(GRX_BOU_TEXTE);
    const std::string red = icon_png("a.png");
    ASSERT_EQ(grx_affecte_icone_bouton(n, red.c_str()), 1);
    home().write("bad.png", "no picture");
    EXPECT_EQ(grx_affecte_icone_bouton(n, (home().text() + "/bad.png").c_str()), GRX_ECHEC_FORMAT);
    EXPECT_EQ(grx_affecte_icone_bouton(n, (home().text() + "/none.png").c_str()), GRX_ECHEC_FICHIER);
    EXPECT_EQ(grx_affecte_icone_bouton(n, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_icone_bouton(field, red.c_str()), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_affecte_icone_bouton(998, red.c_str()), GRX_ECHEC_NUMERO);
    Image large;
    large->largeur = 1025;
    large->hauteur = 1;
    large->octets_par_pixel = 3;
    ASSERT_EQ(grx_cree_image(large.get()), 1);
    EXPECT_EQ(grx_affecte_icone_image_bouton(n, large.get()), GRX_ECHEC_PARAMETRE);
    const std::string bytes = home().read("a.png");
    const auto* const data = reinterpret_cast<const unsigned char*>(bytes.data());
    EXPECT_EQ(grx_affecte_icone_memoire_bouton(n, data, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_TRUE(is_red(middle(n)));
    EXPECT_EQ(grx_affecte_icone_memoire_bouton(n, data, static_cast<INT>(bytes.size())), 1);
    fail_each_allocation([&] {
        const INT result = grx_affecte_icone_bouton(n, red.c_str());
        EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
    });
    EXPECT_TRUE(is_red(middle(n)));
}

TEST_F(ControlIconsTest, FiveHundredRoundsLeaveNothing) {
    const std::string red = icon_png("a.png");
    const auto round = [&](bool destroyed_first) {
        GRX_BOUTON button = button_at(GRX_BOU_DESSINE, window_, {20, 20, 50, 40});
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        ASSERT_EQ(grx_affecte_icone_bouton(button.nobou, red.c_str()), 1);
        ASSERT_EQ(grx_affecte_icone_bouton(button.nobou, red.c_str()), 1);
        grx_change_couleur_bouton(button.nobou, 6);
        if (!destroyed_first) ASSERT_EQ(grx_supprime_icone_bouton(button.nobou), 1);
        grx_detruit_bouton(button.nobou);
    };
    round(true);
    round(false);
    drain();
    const unsigned before = pixmaps(test_display(), window_);
    const NoLeak no_leak;
    for (int i = 0; i < 250; ++i) {
        round(true);
        round(false);
    }
    drain();
    EXPECT_EQ(pixmaps(test_display(), window_), before);
}

// --- PNG in the place of bitmap files --------------------------------------------------------------------

TEST_F(ControlIconsTest, PngIsTakenFirstOnlyWhenSwitchedOn) {
    std::string plain = plain_icon("a.bmp", 9);
    icon_png("a.png");
    EXPECT_EQ(grx_recup_icones_png(), 0);
    const auto with_icon = [&] {
        GRX_BOUTON button = button_at(GRX_BOU_DESSINE, window_, {20 + 60 * made_++, 20, 50, 40});
        plain.copy(button.icone, plain.size());
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(widget(button.nobou)));
        return button.nobou;
    };
    const INT first = with_icon();
    EXPECT_TRUE(wait_for([&] { return shown(first).count(icon_pixel(9)) > 50; }));
    ASSERT_EQ(grx_affecte_icones_png(1), 1);
    EXPECT_EQ(grx_recup_icones_png(), 1);
    const INT second = with_icon();
    EXPECT_TRUE(wait_for([&] { return is_red(middle(second)); }));
    EXPECT_EQ(beside(second), static_cast<std::uint32_t>(grx_recup_couleur_bouton(second)));
    grx_desactive_bouton(second, 1);
    EXPECT_TRUE(wait_for([&] { return is_grey(middle(second)); }));
    grx_change_icone_bouton(first, plain.data());
    EXPECT_TRUE(wait_for([&] { return is_red(middle(first)); }));
    std::string only = plain_icon("b.bmp", 10);
    grx_change_icone_bouton(first, only.data());
    EXPECT_TRUE(wait_for([&] { return shown(first).count(icon_pixel(10)) > 50; })) << "there is no PNG";
    ASSERT_EQ(grx_affecte_icones_png(0), 1);
    grx_change_icone_bouton(first, plain.data());
    EXPECT_TRUE(wait_for([&] { return shown(first).count(icon_pixel(9)) > 50; }));
}

TEST_F(ControlIconsTest, WithoutACallNothingIsAskedOfTheServer) {
    std::string plain = plain_icon("a.bmp", 9);
    const INT n = control(GRX_BOU_SIMPLE);
    grx_change_icone_bouton(n, plain.data());
    drain();
    const auto cost_of_change = [&] {
        Cost cost(x11_disp);
        grx_change_couleur_bouton(n, 6);
        grx_change_couleur_bouton(n, 3);
        return std::pair(cost.requests(), cost.round_trips());
    };
    cost_of_change();
    const auto before = cost_of_change();
    const INT other = control(GRX_BOU_SIMPLE);
    ASSERT_EQ(grx_affecte_icone_bouton(other, icon_png("a.png").c_str()), 1);
    drain();
    EXPECT_EQ(cost_of_change(), before) << "an icon of another control";
}

} // namespace
