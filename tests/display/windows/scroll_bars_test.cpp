// Scroll bars of windows: what they post, their values, hidden and shown.
#include "tests/display/registry/windows_kit.h"

#include <Xm/XmAll.h>

#include <algorithm>
#include <climits>

namespace {

using namespace grxtest;

constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

class ScrollTest : public WindowsTest {
  protected:
    Widget bar(INT window, const char* side) {
        Widget w = widget_of(window);
        while (!XmIsScrolledWindow(w)) w = XtParent(w);
        return resource<Widget>(w, side);
    }

    // Both bars from 0 to 1000 with a slider of 100.
    INT scrolled() {
        const INT n = shown(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit);
        for (const char* side : {XmNverticalScrollBar, XmNhorizontalScrollBar})
            XtVaSetValues(bar(n, side), XmNminimum, 0, XmNmaximum, 1000, XmNsliderSize, 100, XmNvalue, 0, nullptr);
        settle();
        return n;
    }
};

TEST_F(ScrollTest, AnArrowIsOneStep) {
    const INT n = scrolled();
    grx_affecte_increment_scrollbar(n, 25);
    struct Side {
        const char* name;
        INT nobou;
    };
    for (const Side& side : {Side{XmNverticalScrollBar, 1}, Side{XmNhorizontalScrollBar, 0}}) {
        Widget w = bar(n, side.name);
        const Area place = server_area(test_display(), XtWindow(w));
        pointer().click(place.x + place.width - 7, place.y + place.height - 7);
        const auto scroll = events.wait(GRX_EVT_ECHELLE);
        ASSERT_TRUE(scroll) << events.describe();
        EXPECT_EQ(scroll->exec_fonction.nofen, n);
        EXPECT_EQ(scroll->exec_fonction.nobou, side.nobou);
        EXPECT_EQ(scroll->exec_fonction.valeur, 25);
        EXPECT_EQ(resource<int>(w, XmNvalue), 25);
    }
}

TEST_F(ScrollTest, ADragIsToldWhileItGoesOn) {
    const INT n = scrolled();
    Widget w = bar(n, XmNverticalScrollBar);
    const Area place = server_area(test_display(), XtWindow(w));
    const Point grip{place.x + place.width / 2, place.y + place.width + 8};
    int before_release = 0;
    pointer().drag(grip, {grip.x, grip.y + 120}, 1, 6, [&] {
        drain();
        before_release = std::max(before_release, events.count(GRX_EVT_ECHELLE));
    });
    EXPECT_GE(before_release, 3) << events.describe();
    INT last = 0;
    for (const GRX_EVENEMENT& e : events.seen()) {
        if (e.type_evenement != GRX_EVT_ECHELLE) continue;
        EXPECT_EQ(e.exec_fonction.nofen, n);
        EXPECT_EQ(e.exec_fonction.nobou, 1);
        EXPECT_GE(e.exec_fonction.valeur, last);
        last = e.exec_fonction.valeur;
    }
    EXPECT_GT(last, 0);
    EXPECT_EQ(last, resource<int>(w, XmNvalue)) << "the last one is the final value";
}

TEST_F(ScrollTest, TheCallbackWritesItsFieldsOnly) {
    const INT n = scrolled();
    INT number = n;
    XmScrollBarCallbackStruct call{};
    call.value = 77;
    evt_global = patterned_event();
    grx_scroll_change(bar(n, XmNhorizontalScrollBar), &number, &call);
    GRX_EVENEMENT wanted = patterned_event();
    wanted.exec_fonction.type_evenement = GRX_EVT_ECHELLE;
    wanted.exec_fonction.nofen = n;
    wanted.exec_fonction.nobou = 0;
    wanted.exec_fonction.valeur = 77;
    EXPECT_EQ(std::memcmp(&evt_global, &wanted, sizeof wanted), 0);
    grx_scroll_change(bar(n, XmNverticalScrollBar), &number, &call);
    EXPECT_EQ(evt_global.exec_fonction.nobou, 1);
}

TEST_F(ScrollTest, SetValuesAreReadBackAndPostNothing) {
    const INT n = scrolled();
    for (INT orient : {0, 1, 7, -1}) {
        EXPECT_EQ(grx_affecte_carac_scroll_fenetre(n, orient, 555, -50, 800, 300), 0);
        INT len = 1, min = 2, max = 3, value = 4;
        EXPECT_EQ(grx_recup_carac_scroll_fenetre(n, orient, &len, &min, &max, &value), 0);
        EXPECT_EQ(len, 100) << "never set here";
        EXPECT_EQ(min, -50);
        EXPECT_EQ(max, 800);
        EXPECT_EQ(value, 300);
        Widget w = bar(n, orient ? XmNverticalScrollBar : XmNhorizontalScrollBar);
        EXPECT_EQ(resource<int>(w, XmNvalue), 300);
        EXPECT_EQ(resource<int>(w, XmNminimum), -50);
        EXPECT_EQ(resource<int>(w, XmNmaximum), 800);
        grx_affecte_carac_scroll_fenetre(n, orient, 0, 0, 1000, 0);
    }
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ECHELLE), 0);
}

TEST_F(ScrollTest, OneBarDoesNotTouchTheOther) {
    const INT n = scrolled();
    grx_affecte_carac_scroll_fenetre(n, 0, 0, 10, 500, 200);
    INT len = 0, min = 0, max = 0, value = 0;
    grx_recup_carac_scroll_fenetre(n, 1, &len, &min, &max, &value);
    EXPECT_EQ(min, 0);
    EXPECT_EQ(max, 1000);
    EXPECT_EQ(value, 0);
}

TEST_F(ScrollTest, WithoutABarAllIsZero) {
    const INT plain = shown();
    const INT menu = shown(GRX_FEN_ALPHA, visible_bit | main_bit);
    for (INT n : {plain, menu, 0, -1, 50, 100}) {
        INT len = 1, min = 2, max = 3, value = 4;
        EXPECT_EQ(grx_recup_carac_scroll_fenetre(n, 1, &len, &min, &max, &value), 0);
        EXPECT_EQ(len, 0) << n;
        EXPECT_EQ(min, 0) << n;
        EXPECT_EQ(max, 0) << n;
        EXPECT_EQ(value, 0) << n;
        EXPECT_EQ(grx_affecte_carac_scroll_fenetre(n, 1, 1, 2, 3, 2), 0);
        INT width = 11, height = 12;
        EXPECT_EQ(grx_recup_taille_scrollbars_fenetre(n, &width, &height), 0);
        EXPECT_EQ(width, 11) << n;
        EXPECT_EQ(height, 12) << n;
        EXPECT_EQ(grx_affecte_increment_scrollbar(n, 5), 0);
    }
}

TEST_F(ScrollTest, ABarOfTheWindowAroundIsNotItsOwn) {
    const INT around = scrolled();
    GRX_FENETRE description = described(GRX_FEN_ALPHA);
    description.fen_mere = around;
    for (INT n : {make(nested_in(around, GRX_FEN_ALPHA)), make(description)}) {
        ASSERT_TRUE(wait_visible(widget_of(n)));
        for (INT side : {0, 1}) {
            INT len = 1, min = 2, max = 3, value = 4;
            grx_recup_carac_scroll_fenetre(n, side, &len, &min, &max, &value);
            EXPECT_EQ((std::array{len, min, max, value}), (std::array<INT, 4>{})) << side;
            grx_affecte_carac_scroll_fenetre(n, side, 0, 5, 700, 40);
            grx_recup_carac_scroll_fenetre(around, side, &len, &min, &max, &value);
            EXPECT_EQ((std::array{min, max, value}), (std::array<INT, 3>{0, 1000, 0})) << side;
        }
        INT width = 11, height = 12;
        grx_recup_taille_scrollbars_fenetre(n, &width, &height);
        EXPECT_EQ(std::pair(width, height), std::pair(11, 12));
    }
}

TEST_F(ScrollTest, BothIncrementsOfBothBars) {
    for (INT kind : {GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA}) {
        const INT n = shown(kind, visible_bit | scroll_bit);
        EXPECT_EQ(grx_affecte_increment_scrollbar(n, 31), 0);
        for (const char* side : {XmNverticalScrollBar, XmNhorizontalScrollBar}) {
            EXPECT_EQ(resource<int>(bar(n, side), XmNincrement), 31);
            EXPECT_EQ(resource<int>(bar(n, side), XmNpageIncrement), 31);
        }
    }
}

TEST_F(ScrollTest, SizesAreTheThicknesses) {
    for (INT kind : {GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA}) {
        const INT n = shown(kind, visible_bit | scroll_bit);
        INT width = 0, height = 0;
        EXPECT_EQ(grx_recup_taille_scrollbars_fenetre(n, &width, &height), 0);
        EXPECT_EQ(width, resource<Dimension>(bar(n, XmNhorizontalScrollBar), XmNheight)) << "of the horizontal one";
        EXPECT_EQ(height, resource<Dimension>(bar(n, XmNverticalScrollBar), XmNwidth)) << "of the vertical one";
        EXPECT_GT(width, 0);
        EXPECT_GT(height, 0);
    }
}

constexpr std::array<INT, 7> no_windows{-1, 0, 50, 99, 100, INT_MIN, INT_MAX};

class ScrollBars : public DisplayTest {
  protected:
    INT graphic(INT attrib = visible_bit | GRX_FEN_ATT_SCROLL) {
        const INT n = make(GRX_FEN_GRAPHIQUE, attrib, 300, 200);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        drain();
        return n;
    }

    static Widget bar(INT nofen, const char* which) {
        Widget w = widget_of(nofen);
        while (w && !XmIsScrolledWindow(w)) w = XtParent(w);
        return w ? resource<Widget>(w, which) : nullptr;
    }
    static Widget across(INT nofen) { return bar(nofen, XmNhorizontalScrollBar); }
    static Widget upright(INT nofen) { return bar(nofen, XmNverticalScrollBar); }

    void expect_bars(INT nofen, bool shown) {
        for (Widget w : {across(nofen), upright(nofen)}) {
            ASSERT_NE(w, nullptr);
            EXPECT_EQ(XtIsManaged(w), shown);
            EXPECT_EQ(visible(XtWindow(w)), shown);
        }
        EXPECT_EQ(grx_is_fenetre_avec_scroll(nofen), shown ? 1 : 0);
    }

    // The order in which the server unmapped or mapped the two.
    std::vector<Window> order_of(int type) {
        std::vector<Window> order;
        XSync(test_display(), False);
        XEvent event{};
        while (XCheckTypedEvent(test_display(), type, &event))
            order.push_back(type == MapNotify ? event.xmap.window : event.xunmap.window);
        return order;
    }
};

TEST_F(ScrollBars, AreHiddenAndShownAgainAndAgain) {
    const INT n = graphic();
    expect_bars(n, true);
    const Area before = server_area(test_display(), x_window(n));
    for (int turn = 0; turn < 3; ++turn) {
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0);
        drain();
        expect_bars(n, false);
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0) << "once more";
        drain();
        expect_bars(n, false);
        EXPECT_EQ(grx_reaffiche_scrollbars_fenetre_graphique(n), 0);
        drain();
        expect_bars(n, true);
        EXPECT_EQ(grx_reaffiche_scrollbars_fenetre_graphique(n), 0) << "once more";
        drain();
        expect_bars(n, true);
        EXPECT_EQ(server_area(test_display(), x_window(n)), before);
    }
}

TEST_F(ScrollBars, TheHorizontalOneComesFirst) {
    const INT n = graphic();
    const Window first = XtWindow(across(n)), second = XtWindow(upright(n));
    for (Window w : {first, second}) XSelectInput(test_display(), w, StructureNotifyMask);
    XSync(test_display(), False);
    grx_cache_scrollbars_fenetre_graphique(n);
    drain();
    EXPECT_EQ(order_of(UnmapNotify), (std::vector{first, second}));
    grx_reaffiche_scrollbars_fenetre_graphique(n);
    drain();
    EXPECT_EQ(order_of(MapNotify), (std::vector{first, second}));
}

TEST_F(ScrollBars, TheFlagDecides) {
    const INT n = graphic();
    EXPECT_EQ(grx_affecte_fenetre_avec_scroll(n, 0), 0);
    grx_cache_scrollbars_fenetre_graphique(n);
    EXPECT_TRUE(XtIsManaged(across(n)) && XtIsManaged(upright(n))) << "not shown, says the flag";
    XtUnmanageChild(across(n));
    XtUnmanageChild(upright(n));
    grx_affecte_fenetre_avec_scroll(n, 1);
    grx_reaffiche_scrollbars_fenetre_graphique(n);
    EXPECT_FALSE(XtIsManaged(across(n)) || XtIsManaged(upright(n))) << "shown, says the flag";
}

TEST_F(ScrollBars, TheFlagsAreApart) {
    const INT n = graphic();
    record_of(n).attributs_fen_graph = static_cast<char>(0xF8);
    for (INT on : {1, -1, 256, INT_MIN, INT_MAX}) {
        grx_affecte_fenetre_avec_scroll(n, 0);
        grx_affecte_fenetre_avec_bgi(n, 0);
        EXPECT_EQ(record_of(n).attributs_fen_graph, static_cast<char>(0xF8));
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 0);
        EXPECT_EQ(grx_is_fenetre_avec_bgi(n), 0);
        EXPECT_EQ(grx_affecte_fenetre_avec_bgi(n, on), 0);
        EXPECT_EQ(record_of(n).attributs_fen_graph, static_cast<char>(0xFA)) << on;
        EXPECT_EQ(grx_is_fenetre_avec_bgi(n), 1);
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 0);
        grx_affecte_fenetre_avec_scroll(n, on);
        EXPECT_EQ(record_of(n).attributs_fen_graph, static_cast<char>(0xFB)) << on;
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 1);
        grx_affecte_fenetre_avec_bgi(n, 0);
        EXPECT_EQ(record_of(n).attributs_fen_graph, static_cast<char>(0xF9));
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 1);
    }
}

TEST_F(ScrollBars, NumbersOutsideTheBaseHaveNoFlags) {
    for (INT n : {-1, 100, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grx_affecte_fenetre_avec_scroll(n, 1), 0) << n;
        EXPECT_EQ(grx_affecte_fenetre_avec_bgi(n, 1), 0) << n;
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 0) << n;
        EXPECT_EQ(grx_is_fenetre_avec_bgi(n), 0) << n;
    }
}

TEST_F(ScrollBars, HidingLeavesTheOtherFlag) {
    const INT n = graphic();
    grx_affecte_fenetre_avec_bgi(n, 1);
    grx_cache_scrollbars_fenetre_graphique(n);
    EXPECT_EQ(grx_is_fenetre_avec_bgi(n), 1);
    grx_reaffiche_scrollbars_fenetre_graphique(n);
    EXPECT_EQ(grx_is_fenetre_avec_bgi(n), 1);
}

TEST_F(ScrollBars, OfTheWindowAroundAreLeftAlone) {
    const INT around = graphic();
    const INT nested = make(nested_in(around, GRX_FEN_ALPHA));
    GRX_FENETRE description = described(GRX_FEN_ALPHA);
    description.fen_mere = around;
    const INT dialog = make(description);
    for (INT n : {nested, dialog}) {
        ASSERT_TRUE(wait_visible(widget_of(n)));
        grx_affecte_fenetre_avec_scroll(n, 1);
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0);
        drain();
        expect_bars(around, true);
    }
    grx_cache_scrollbars_fenetre_graphique(around);
    for (INT n : {nested, dialog}) {
        grx_affecte_fenetre_avec_scroll(n, 0);
        EXPECT_EQ(grx_reaffiche_scrollbars_fenetre_graphique(n), 0);
        drain();
        expect_bars(around, false);
    }
}

TEST_F(ScrollBars, TheFlagFollowsInWindowsWithoutThem) {
    for (INT kind : all_kinds) {
        const INT n = make(kind);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        ASSERT_EQ(grx_is_fenetre_avec_scroll(n), 0) << kind;
        grx_reaffiche_scrollbars_fenetre_graphique(n);
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 1) << kind;
        grx_cache_scrollbars_fenetre_graphique(n);
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 0) << kind;
    }
}

TEST_F(ScrollBars, NumbersWithoutAWindowKeepTheirRecord) {
    const INT gone = make(GRX_FEN_ALPHA);
    ASSERT_TRUE(wait_visible(widget_of(gone)));
    grx_detruit_fenetre(gone);
    drain();
    for (INT n : {gone, 50, 99}) {
        const char before = record_of(n).attributs_fen_graph;
        for (INT on : {1, 0}) {
            grx_affecte_fenetre_avec_scroll(n, on);
            grx_affecte_fenetre_avec_bgi(n, on);
            EXPECT_EQ(record_of(n).attributs_fen_graph, before) << n;
        }
    }
}

TEST_F(ScrollBars, WindowsWithoutThemAreSurvived) {
    for (INT kind : all_kinds) {
        const INT n = make(kind);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        EXPECT_EQ(grx_is_fenetre_avec_scroll(n), 0) << kind;
        EXPECT_EQ(grx_reaffiche_scrollbars_fenetre_graphique(n), 0) << kind;
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0) << kind;
        grx_affecte_fenetre_avec_scroll(n, 1);
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0) << kind;
        EXPECT_TRUE(visible(x_window(n))) << kind;
    }
    for (INT n : no_windows) {
        EXPECT_EQ(grx_cache_scrollbars_fenetre_graphique(n), 0) << n;
        EXPECT_EQ(grx_reaffiche_scrollbars_fenetre_graphique(n), 0) << n;
    }
}

} // namespace
