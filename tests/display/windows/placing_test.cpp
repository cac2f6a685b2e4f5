// Place and size of a window when it is made, without a window manager and under one.
#include "tests/support/control_kit.h"
#include "tests/display/windows/window_creation_kit.h"

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

// --- place and size -----------------------------------------------------------------------------------------

struct Decoration {
    INT attrib, dx, dy;
};

void set_decoration_sizes(INT title, INT border, INT no_resize, INT no_title, INT nothing) {
    grx_set_tatitre(title);
    grx_set_tabord(border);
    grx_set_tabord_sans_resize(no_resize);
    grx_set_tabord_sans_titre(no_title);
    grx_set_tabord_sans_decor(nothing);
}

TEST_F(Creation, TheLowerEdgeIsWhereYSaysWithTheDecorationAllowedFor) {
    set_decoration_sizes(17, 9, 5, 6, 3);
    for (const Decoration& d : {Decoration{0, 9, 26}, Decoration{1, 6, 6}, Decoration{2, 0, 17}, Decoration{3, 0, 0},
             Decoration{4, 9, 26}, Decoration{8, 5, 22}, Decoration{9, 5, 5}, Decoration{10, 0, 17},
             Decoration{32, 9, 26}, Decoration{64, 9, 26}, Decoration{5, 6, 6}}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit | d.attrib, 200, 150);
        window.y = 300;
        const INT n = make(window);
        EXPECT_EQ(area(n), (Area{100 - d.dx, 1024 - 300 - 150 - d.dy, 200, 150})) << "attrib " << d.attrib;
        GRX_FENETRE child = window;
        child.fen_mere = n;
        const INT m = make(child);
        ASSERT_TRUE(wait_visible(widget_of(m)));
        EXPECT_EQ(area(m), (Area{100 - d.dx, 1024 - 300 - 150 - d.dy, 200, 150})) << "child, attrib " << d.attrib;
        grx_detruit_fenetre(m);
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, WithoutDecorationSizesTheWindowIsWhereItSays) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.x = 33;
    window.y = 0;
    EXPECT_EQ(area(make(window)), (Area{33, 1024 - 150, 200, 150})) << "lower edge on the bottom of the screen";
}

TEST_F(Creation, APlaceBeyondTheTopOrTheLeftIsTheEdge) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.x = 6;
    window.y = 900;
    EXPECT_EQ(area(make(window)), (Area{0, 0, 200, 150}));
    window.x = 7;
    window.y = 1024 - 150 - 24 - 1;
    EXPECT_EQ(area(make(window)), (Area{0, 1, 200, 150}));
    window.x = -400;
    window.y = 1024;
    EXPECT_EQ(area(make(window)), (Area{0, 0, 200, 150}));
}

TEST_F(Creation, AWindowBelowTheScreenIsThere) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA, visible_bit, 200, 150);
    window.y = -100;
    EXPECT_EQ(area(make(window)), (Area{100, 1024 + 100 - 150, 200, 150}));
}

TEST_F(Creation, ARecordWithOnlyItsKindIsShownAtTheTopLeft) {
    for (INT kind : all_kinds) {
        GRX_FENETRE window{};
        grx_init_fenetre(&window);
        window.type = kind;
        const INT n = make(window);
        ASSERT_TRUE(wait_visible(widget_of(n))) << kind;
        const Area place = area(n);
        EXPECT_EQ(place.x, 0) << kind;
        EXPECT_EQ(place.y, 0) << kind;
        EXPECT_GT(place.width, 1) << kind;
        EXPECT_GT(place.height, 1) << kind;
        grx_detruit_fenetre(n);
    }
}

TEST_F(Creation, EachSizeIsGivenForItself) {
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.haut = -1;
    const Area wide = area(make(window));
    EXPECT_EQ(wide.width, 200);
    EXPECT_EQ(wide.x, 100);
    EXPECT_EQ(wide.y, 0) << "without a height the lower edge cannot be placed";
    window = described(GRX_FEN_ALPHA);
    window.droite = -1;
    const Area high = area(make(window));
    EXPECT_EQ(high.height, 150);
    EXPECT_EQ(high.y, 120);
}

TEST_F(Creation, EveryKindGetsTheSizeItAskedFor) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, scroll_bit | main_bit}) {
            const INT n = make(kind, visible_bit | extra, 410, 320);
            ASSERT_TRUE(wait_visible(widget_of(n)));
            EXPECT_EQ(area(n), (Area{100, 120, 410, 320})) << "kind " << kind << " extra " << extra;
            INT width = 0, height = 0;
            grx_recup_taille_fenetre(n, &width, &height);
            EXPECT_EQ(width, 410);
            EXPECT_EQ(height, 320);
            grx_detruit_fenetre(n);
            drain();
        }
}

TEST_F(Creation, ANestedWindowIsPlacedFromTheBottomOfItsParent) {
    for (INT parent_kind : {GRX_FEN_ALPHA, GRX_FEN_GRAPHIQUE}) {
        const INT outer = make(parent_kind, visible_bit, 400, 300);
        ASSERT_TRUE(wait_visible(widget_of(outer)));
        for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MENU}) {
            const INT inner = make(nested_in(outer, kind, 30, 0, 80, 50));
            ASSERT_TRUE(wait_visible(widget_of(inner)));
            EXPECT_EQ(server_area(test_display(), x_window(inner)), (Area{130, 120 + 300 - 50, 80, 50}))
                << "kind " << kind << " sits on the bottom of kind " << parent_kind;
            const INT higher = make(nested_in(outer, kind, 5, 70, 80, 50));
            ASSERT_TRUE(wait_visible(widget_of(higher)));
            EXPECT_EQ(server_area(test_display(), x_window(higher)), (Area{105, 120 + 300 - 70 - 50, 80, 50}));
            grx_detruit_fenetre_fille(inner);
            grx_detruit_fenetre_fille(higher);
        }
        grx_detruit_fenetre(outer);
        drain();
    }
}

TEST_F(Creation, NestedWindowsIgnoreTheDecorationSizes) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(outer)));
    const Area around = server_area(test_display(), x_window(outer));
    const INT inner = make(nested_in(outer, GRX_FEN_ALPHA, 30, 0, 80, 50));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    EXPECT_EQ(server_area(test_display(), x_window(inner)), (Area{around.x + 30, around.y + 250, 80, 50}));
}

TEST_F(Creation, ANestedWindowAboveItsParentKeepsTheToolkitsPlace) {
    const INT outer = make(GRX_FEN_GRAPHIQUE, visible_bit, 400, 300);
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE, -20, 290, 80, 50));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    const Area place = server_area(test_display(), x_window(inner));
    EXPECT_GE(place.x, 100) << "a negative x is not given";
    EXPECT_GE(place.y, 120) << "nor is a negative y";
    EXPECT_EQ(place.width, 80);
}

TEST_F(Creation, AttachmentsNameTheSidesOfTheParentForm) {
    struct Side {
        INT bit;
        const char* attachment;
    };
    const std::array sides{Side{GRX_ATTACHE_BAS, XmNbottomAttachment}, Side{GRX_ATTACHE_HAUT, XmNtopAttachment},
        Side{GRX_ATTACHE_DROITE, XmNrightAttachment}, Side{GRX_ATTACHE_GAUCHE, XmNleftAttachment}};
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT bits = 1; bits < 16; ++bits) {
        GRX_FENETRE window = nested_in(outer, GRX_FEN_ALPHA);
        window.attache = bits;
        const INT inner = make(window);
        for (const Side& side : sides) {
            const bool attached = resource<unsigned char>(widget_of(inner), side.attachment) == XmATTACH_FORM;
            // The form itself holds a child with a place by its top and its left.
            const bool by_the_form = side.bit == GRX_ATTACHE_HAUT || side.bit == GRX_ATTACHE_GAUCHE;
            if ((bits & side.bit) != 0 || !by_the_form)
                EXPECT_EQ(attached, (bits & side.bit) != 0) << side.attachment << " bits " << bits;
        }
        grx_detruit_fenetre_fille(inner);
        drain();
    }
}

TEST_F(Creation, AnAttachedWindowFollowsItsParent) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    GRX_FENETRE window = nested_in(outer, GRX_FEN_GRAPHIQUE);
    window.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_DROITE | GRX_ATTACHE_GAUCHE;
    const INT inner = make(window);
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    const auto fills = [&](Area wanted) {
        return wait_for([&] { return server_area(test_display(), x_window(inner)) == wanted; });
    };
    EXPECT_TRUE(fills({100, 120, 400, 300}));
    grx_change_taille_fenetre(outer, 350, 260);
    EXPECT_TRUE(fills({100, 120, 350, 260}));
}

// --- under mwm ------------------------------------------------------------------------------------------------

class CreationWmTest : public WmTest {};

TEST_F(CreationWmTest, TheClientIsWhereTheRecordSays) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    struct Frame {
        INT attrib;
        int left, top;
    };
    for (const Frame& f :
        {Frame{0, 7, 24}, Frame{8, 5, 22}, Frame{1 | 4, 7, 7}, Frame{1 | 4 | 8, 5, 5}, Frame{2, 0, 17},
            Frame{1 | 2 | 4, 0, 0}, Frame{4, 7, 24}, Frame{32, 7, 24}, Frame{64, 7, 24}, Frame{32 | 64, 7, 24}}) {
        const INT n = make(GRX_FEN_ALPHA, visible_bit | f.attrib);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        const Area wanted{100 - f.left, 120 - f.top, 200 + 2 * f.left, 150 + f.top + f.left};
        EXPECT_TRUE(wait_for([&] {
            return server_area(test_display(), x_window(n)) == Area{100, 120, 200, 150};
        })) << "attrib "
            << f.attrib << " client at " << server_area(test_display(), x_window(n)).x << ","
            << server_area(test_display(), x_window(n)).y;
        if (frame(shell_of(n)) != None) {
            EXPECT_EQ(frame_area(shell_of(n)), wanted) << "attrib " << f.attrib;
        }
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(CreationWmTest, AChildWindowIsPlacedTheSameWay) {
    set_decoration_sizes(17, 7, 5, 7, 5);
    const INT top = make(GRX_FEN_ALPHA);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = top;
    window.x = 400;
    const INT child = make(window);
    ASSERT_TRUE(wait_visible(widget_of(child)));
    EXPECT_TRUE(wait_for([&] { return server_area(test_display(), x_window(child)) == Area{400, 120, 200, 150}; }));
}

TEST_F(CreationWmTest, AWindowWithoutASizeIsLargeEnoughToSee) {
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_BOUTONS;
    const INT n = make(window);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    EXPECT_GT(server_area(test_display(), x_window(n)).width, 1);
}

class Whole : public ControlsInWindowTest {
  protected:
    static Widget outermost_in(Widget parent, Widget w) {
        while (w != nullptr && XtParent(w) != parent) w = XtParent(w);
        return w;
    }
    Widget whole(INT nofen) { return outermost_in(widget_of(window), widget_of(nofen)); }
    Area place(INT nofen) { return server_area(test_display(), XtWindow(whole(nofen))); }

    // Windows of the screen in the nested window that can be seen.
    bool anything_seen(INT nofen) {
        XWindowAttributes attributes{};
        XSync(x11_disp, False);
        return XGetWindowAttributes(test_display(), XtWindow(whole(nofen)), &attributes) != 0
               && attributes.map_state == IsViewable;
    }
};

constexpr std::array bars{0, GRX_FEN_ATT_SCROLL};

TEST_F(Whole, HasThePlaceAndSizeAskedFor) {
    const Area around = server_area(test_display(), x_window(window));
    for (const INT kind : all_kinds)
        for (const INT extra : bars) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            GRX_FENETRE inner = nested_in(window, kind, 30, 0, 180, 140);
            inner.attrib |= extra;
            const INT n = make(inner);
            ASSERT_TRUE(wait_visible(widget_of(n)));
            drain();
            EXPECT_EQ(place(n), (Area{around.x + 30, around.y + around.height - 140, 180, 140}));
            INT x = 0, y = 0, width = 0, height = 0;
            grx_recup_taille_fenetre_fille(n, &width, &height);
            EXPECT_EQ(width, 180);
            EXPECT_EQ(height, 140);
            grx_recup_position_fenetre_fille(n, &x, &y);
            EXPECT_EQ(x, 30);
            EXPECT_EQ(y, around.height - 140);
            grx_change_taille_fenetre_fille(n, 150, 120);
            EXPECT_TRUE(wait_for([&] { return place(n).width == 150 && place(n).height == 120; }));
            grx_detruit_fenetre_fille(n);
            settle();
        }
}

TEST_F(Whole, IsHiddenWithoutItsBitAndShownByItsNumber) {
    for (const INT kind : all_kinds)
        for (const INT extra : bars) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            GRX_FENETRE inner = nested_in(window, kind, 30, 0, 180, 140);
            inner.attrib = GRX_FEN_ATT_FILLE | extra;
            const INT n = make(inner);
            ASSERT_GT(n, 0);
            drain();
            EXPECT_FALSE(anything_seen(n));
            for (int turn = 0; turn < 2; ++turn) {
                grx_affiche_fenetre_fille(n);
                EXPECT_TRUE(wait_for([&] { return anything_seen(n) && visible(x_window(n)); }));
                EXPECT_EQ(place(n).width, 180);
                EXPECT_EQ(place(n).height, 140);
                grx_cache_fenetre_fille(n);
                EXPECT_TRUE(wait_for([&] { return !anything_seen(n); }));
            }
            grx_detruit_fenetre_fille(n);
            settle();
        }
}

} // namespace
