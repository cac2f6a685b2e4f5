// The palette window, opened on one colour, and its sliders.
#pragma once

#include "tests/support/control_kit.h"

namespace grxtest {

using Triple = std::array<INT, 3>;

inline constexpr INT colour = 12; // the one edited
inline constexpr Triple start_rvb{200, 100, 50};

inline Triple in_hls(Triple rvb) {
    Triple hls{};
    RVB_to_HLS(rvb.data(), hls.data());
    return hls;
}

inline Triple in_rvb(Triple hls) {
    Triple rvb{};
    EXPECT_EQ(HLS_to_RVB(hls.data(), rvb.data()), 1);
    return rvb;
}

inline Triple values(const INT* three) {
    return {three[0], three[1], three[2]};
}

inline Triple rgb_of(INT index) {
    Triple rgb{-1, -1, -1};
    grx_recup_rgb(index, rgb.data());
    return rgb;
}

// What a triple written into a colour reads back as: an 8-plane server keeps the high byte of 255 times it.
inline Triple read_back(Triple rgb) {
    if (test_planes() == 8)
        for (INT& c : rgb) c = ((c * 255 >> 8) * 257 + 1) / 255;
    return rgb;
}

inline std::array<INT, 3> rvb_sliders() {
    return {Rouge, Vert, Bleu};
}
inline std::array<INT, 3> hls_sliders() {
    return {Bou_h, Bou_l, Bou_s};
}
inline std::array<INT, 7> all_controls() {
    return {Rouge, Vert, Bleu, Bou_reset, Bou_h, Bou_l, Bou_s};
}

inline INT slider_value(INT nobou) {
    return resource<int>(control(nobou), XmNvalue);
}
inline Triple slider_values(const std::array<INT, 3>& sliders) {
    return {slider_value(sliders[0]), slider_value(sliders[1]), slider_value(sliders[2])};
}

inline GRX_EVENEMENT slider_event(INT type, INT nobou, INT value, INT window = No_fen_mod_coul) {
    GRX_EVENEMENT event = patterned_event();
    event.exec_fonction.type_evenement = type;
    event.exec_fonction.nofen = window;
    event.exec_fonction.nobou = nobou;
    event.exec_fonction.valeur = value;
    return event;
}

inline GRX_EVENEMENT end_of(INT window) {
    GRX_EVENEMENT event = patterned_event();
    event.destruction.type_evenement = GRX_EVT_DESTRUCTION;
    event.destruction.nofen = window;
    return event;
}

inline INT given(const GRX_EVENEMENT& event) {
    return grx_gere_action_modif_palette(event);
}

inline void expect_closed() {
    EXPECT_EQ(No_fen_mod_coul, -1);
    EXPECT_EQ(grx_recup_no_fenetre_modif_palette(), -1);
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 0);
    for (INT n : all_controls()) EXPECT_EQ(n, -1);
}

// The thing of a scale that is dragged: where it stands, and how far it can go.
struct Slider {
    Widget bar;
    bool upright;
    long length, value, size, minimum, maximum; // the bar of a scale counts to 1,000,000,000

    int centre() const { return static_cast<int>((value - minimum + size / 2) * length / (maximum - minimum)); }
};

inline Slider slider_of(INT nobou) {
    Widget bar = nullptr;
    for (Widget child : children_of(control(nobou)))
        if (is_a(child, xmScrollBarWidgetClass)) bar = child;
    Slider s{};
    s.bar = bar;
    s.upright = resource<unsigned char>(bar, XmNorientation) == XmVERTICAL;
    s.length = resource<Dimension>(bar, s.upright ? XmNheight : XmNwidth);
    s.value = resource<int>(bar, XmNvalue);
    s.size = resource<int>(bar, XmNsliderSize);
    s.minimum = resource<int>(bar, XmNminimum);
    s.maximum = resource<int>(bar, XmNmaximum);
    const auto direction = resource<unsigned char>(bar, XmNprocessingDirection);
    if (direction == XmMAX_ON_TOP || direction == XmMAX_ON_LEFT) s.value = s.maximum - s.size - (s.value - s.minimum);
    return s;
}

// Opening and handing on the events, for tests under a window manager and without one.
template <class Fixture>
class WithPalette : public Fixture {
  protected:
    INT open(INT index = colour, INT x = 300, INT y = 300) {
        grx_affecte_couleur_active(index);
        char title[256] = "Palette";
        grx_affiche_fenetre_modif_palette_couleurs(x, y, title, main_window);
        EXPECT_GT(No_fen_mod_coul, 0);
        EXPECT_TRUE(this->wait_visible(widget_of(No_fen_mod_coul)));
        this->take_pointer_away();
        follow();
        return No_fen_mod_coul;
    }

    // Gives the palette window every event that came, as an application does.
    void follow() {
        this->drain();
        for (; handled < this->events.seen().size(); ++handled) {
            const GRX_EVENEMENT event = this->events.seen()[handled];
            const INT answer = given(event);
            if (answer) consumed.push_back(event);
        }
    }

    void forget() {
        follow();
        this->events.clear();
        handled = 0;
        consumed.clear();
    }

    INT main_window = -1;
    std::size_t handled = 0;
    std::vector<GRX_EVENEMENT> consumed;
};

class PaletteWindow : public WithPalette<ControlsTest> {
  protected:
    void before_start() override {
        setenv("XCURSOR_CORE", "1", 1);
        ControlsTest::before_start();
    }
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        main_window = shown();
        Triple rgb = start_rvb;
        grx_modif_rgb(colour, rgb.data());
    }

    // Drags a slider by that many pixels; what happens between the steps is checked as an application sees it.
    void drag(INT nobou, int by, const std::function<void()>& between = {}) {
        const Slider s = slider_of(nobou);
        const Point origin = root_position(s.bar);
        const int across = resource<Dimension>(s.bar, s.upright ? XmNwidth : XmNheight) / 2;
        const Point from = s.upright ? Point{origin.x + across, origin.y + s.centre()}
                                     : Point{origin.x + s.centre(), origin.y + across};
        const Point to = s.upright ? Point{from.x, from.y + by} : Point{from.x + by, from.y};
        pointer().drag(from, to, 1, 10, [&] {
            follow();
            if (between) between();
        });
        follow();
    }

    // Towards its other end.
    static int inwards(INT nobou) {
        const Slider s = slider_of(nobou);
        const int way = static_cast<int>(s.length / 4);
        return s.centre() < s.length / 2 ? way : -way;
    }

    void expect_sliders_agree() {
        EXPECT_EQ(slider_values(rvb_sliders()), values(rvb_glob));
        EXPECT_EQ(slider_values(hls_sliders()), values(hls_glob));
    }
    void expect_written() { EXPECT_EQ(rgb_of(colour), read_back(values(rvb_glob))); }
};

class PaletteWindowOn24 : public PaletteWindow {};
class PaletteWindowOn8 : public PaletteWindow {};

} // namespace grxtest
