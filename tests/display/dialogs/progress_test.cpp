// Work in progress: an application that computes, a window that says how far it is, and a user who does things meanwhile.
#include "tests/display/dialogs/box_kit.h"
#include "tests/support/controls.h"
#include "tests/support/counters.h"
#include "tests/support/heap.h"
#include "tests/support/sanitized.h"

#include <cmath>
#include <limits>

namespace {
using namespace grxtest;

template <class Base>
class Computing : public Dialogs<Base> {
  protected:
    void TearDown() override {
        while (grx_avancement_finit() == 1) continue;
        Dialogs<Base>::TearDown();
    }

    static GRX_AVANCEMENT work(DOUBLE most = 0, INT delay = 0) {
        GRX_AVANCEMENT told{};
        EXPECT_EQ(grx_init_avancement(&told), 1);
        told.texte = "Lecture du plan";
        told.maximum = most;
        told.delai = delay;
        return told;
    }
    static void begin(const GRX_AVANCEMENT& told) { ASSERT_EQ(grx_avancement_commence(&told), 1); }

    Widget window() const { return widget_called("avancement"); }
    Widget part(const char* name) const { return widget_called(name); }
    bool shown() const { return window() != nullptr && is_viewable(window()); }
    static std::string line(Widget label) { return text_resource(label, XmNlabelString); }

    // Computes until something holds, at most ten seconds; false when it never did.
    static bool compute_until(const std::function<bool()>& condition, DOUBLE done = 1) {
        return wait_until(condition, [done] {
            for (int i = 0; i < 2000; ++i) grx_avancement_avance(done, nullptr);
        });
    }
    // Long enough for the window to have been looked after.
    static void compute(DOUBLE done = 1, Milliseconds span = Milliseconds(200)) {
        const auto start = Clock::now();
        wait_until([&] { return Clock::now() - start > span; }, [&] { grx_avancement_avance(done, nullptr); });
    }
    bool cancelled_by(const std::function<void()>& act) {
        act();
        return compute_until([] { return grx_avancement_abandonne() == 1; });
    }
};

class Progress : public Computing<DisplayTest> {};
class ProgressWmTest : public Computing<WmTest>, public testing::WithParamInterface<WindowManager::Kind> {
  protected:
    WindowManager::Kind manager_kind() const override { return GetParam(); }
};

TEST_F(Progress, ShortWorkShowsNothing) {
    const auto before = windows_on_screen();
    Cost cost(x11_disp);
    begin(work(100, 60000));
    for (int i = 0; i <= 100000; ++i) EXPECT_EQ(grx_avancement_avance(i / 1000.0, nullptr), 1);
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(windows_on_screen(), before);
}

TEST_F(Progress, TheWindowComesAfterHalfASecond) {
    GRX_AVANCEMENT told{};
    ASSERT_EQ(grx_init_avancement(&told), 1);
    EXPECT_EQ(told.delai, 500);
    told.maximum = 100;
    begin(told);
    const auto start = Clock::now();
    ASSERT_TRUE(compute_until([&] { return window() != nullptr; }));
    const auto waited = std::chrono::duration_cast<Milliseconds>(Clock::now() - start).count();
    EXPECT_GE(waited, 490);
    EXPECT_LT(waited, 3000);
    EXPECT_EQ(grx_avancement_finit(), 1);
    drain();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(Progress, AMillionStepsCostNextToNothing) {
    begin(work(1000000, 500));
    const auto start = Clock::now();
    for (int i = 0; i < 1000000; ++i) grx_avancement_avance(i, nullptr);
    const auto spent = std::chrono::duration_cast<Milliseconds>(Clock::now() - start).count();
    RecordProperty("milliseconds", static_cast<int>(spent));
    EXPECT_LT(spent, 400) << "400 nanoseconds each, on a busy machine";
    EXPECT_EQ(grx_avancement_finit(), 1);
}

TEST_F(Progress, SaysTextAndShare) {
    begin(work(200));
    ASSERT_TRUE(compute_until([&] { return shown(); }, 50));
    EXPECT_EQ(line(part("texte")), "Lecture du plan");
    compute(50);
    const Pixels quarter = grab(x11_disp, XtWindow(part("barre")));
    const unsigned long fill = quarter.at(20, 3);
    EXPECT_EQ(quarter.at(104, 3), fill);
    EXPECT_NE(quarter.at(106, 3), fill);
    grx_avancement_avance(50, "Tri des \xc3\xa9l\xc3\xa9ments");
    compute(150);
    const Pixels later = grab(x11_disp, XtWindow(part("barre")));
    EXPECT_EQ(later.at(314, 3), fill);
    EXPECT_NE(later.at(316, 3), fill);
    EXPECT_EQ(line(part("texte")), "Tri des \xe9l\xe9ments");
    compute(20);
    EXPECT_NE(grab(x11_disp, XtWindow(part("barre"))).at(60, 3), fill) << "it goes back as well";
}

TEST_F(Progress, ATextThatChangesWithEachStepIsSeen) {
    begin(work(0));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    const auto written = [&] {
        const Pixels label = grab(x11_disp, XtWindow(part("texte")));
        int ink = 0;
        for (int y = 0; y < label.height; ++y)
            for (int x = 0; x < label.width; ++x) ink += label.at(x, y) != label.at(label.width - 1, 0) ? 1 : 0;
        return ink;
    };
    int looks = 0, seen = 0;
    const auto start = Clock::now();
    while (Clock::now() - start < Milliseconds(400)) {
        grx_avancement_avance(0, ("Piece " + std::to_string(++looks)).c_str());
        seen += written() > 50 ? 1 : 0;
    }
    EXPECT_GT(looks, 5);
    EXPECT_GT(seen, looks * 3 / 4);
}

TEST_F(Progress, AnUnknownEndKeepsTheBarMoving) {
    begin(work(0));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    compute();
    const Pixels first = grab(x11_disp, XtWindow(part("barre")));
    EXPECT_TRUE(compute_until([&] { return !same(first, grab(x11_disp, XtWindow(part("barre")))); }));
}

TEST_F(Progress, IsCancelledByButtonEscapeAndCloseBox) {
    const std::vector<std::function<void()>> ways{[&] { click(part("abandon")); },
        [&] {
            pointer().move_in(window(), 4, 4);
            keyboard().key(XK_Escape);
        },
        [&] {
            pointer().move_in(widget_of(main_), 4, 4);
            keyboard().key(XK_Escape);
        },
        [&] {
            pointer().move_in(window(), 4, 4);
            keyboard().key(XK_Return);
        },
        [&] { ask_to_close(test_display(), XtWindow(XtParent(window()))); }};
    for (const auto& way : ways) {
        begin(work(100));
        ASSERT_TRUE(compute_until([&] { return shown(); }));
        EXPECT_EQ(grx_avancement_abandonne(), 0);
        EXPECT_TRUE(cancelled_by(way)) << &way - ways.data();
        EXPECT_EQ(grx_avancement_avance(2, nullptr), 0) << "and it stays so";
        EXPECT_EQ(grx_avancement_finit(), 1);
        EXPECT_EQ(grx_avancement_abandonne(), 0);
        drain();
        events.clear();
    }
}

TEST_F(Progress, WhatCannotBeCancelledIsNot) {
    GRX_AVANCEMENT told = work(100);
    told.abandon = 0;
    begin(told);
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    EXPECT_EQ(part("abandon"), nullptr);
    pointer().move_in(window(), 4, 4);
    keyboard().key(XK_Escape);
    ask_to_close(test_display(), XtWindow(XtParent(window())));
    compute();
    EXPECT_EQ(grx_avancement_abandonne(), 0);
    EXPECT_TRUE(shown());
}

// --- the other windows

TEST_F(Progress, InputElsewhereIsDroppedWhileItIsOnShowOnly) {
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    drain();
    events.clear();
    pointer().click_in(widget_of(other), 5, 6);
    keyboard().key(XK_b);
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    pointer().click_in(widget_of(other), 50, 60);
    keyboard().key(XK_c);
    compute();
    EXPECT_EQ(grx_avancement_finit(), 1);
    drain();
    const auto types = events.types();
    EXPECT_EQ(std::ranges::count(types, GRX_EVT_BOUTON_APPUI), 1) << events.describe();
    EXPECT_EQ(std::ranges::count(types, GRX_EVT_BOUTON_RELACHE), 1);
    EXPECT_EQ(std::ranges::count(types, GRX_EVT_CARAC_APPUI), 1);
    pointer().click_in(widget_of(other), 50, 60);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << "afterwards it is taken again";
}

TEST_F(Progress, AReleaseBelongsToItsPress) {
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    drain();
    events.clear();
    pointer().move_in(widget_of(other), 20, 20);
    pointer().press();
    ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    pointer().release();
    compute();
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_RELACHE));
}

TEST_F(Progress, WhatHappensToWindowsIsToldOnceAfterwards) {
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    drain();
    events.clear();
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    XResizeWindow(test_display(), XtWindow(shell_of(other)), 260, 190);
    ask_to_close(test_display(), XtWindow(shell_of(other)));
    XSync(test_display(), False);
    compute();
    EXPECT_NE(widget_of(other), nullptr) << "nothing is delivered meanwhile";
    EXPECT_EQ(grx_avancement_finit(), 1);
    drain();
    EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_CHGT_TAILLE), 1) << events.describe();
    EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_DESTRUCTION), 1);
    EXPECT_EQ(widget_of(other), nullptr);
}

TEST_F(Progress, PendingRecordsStay) {
    GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
    const INT number = grx_affiche_boite_message(&asked);
    ASSERT_GT(number, 0);
    ASSERT_TRUE(wait_for([&] { return on_screen_of(xmMessageBoxWidgetClass) != nullptr; }));
    ask_to_close(test_display(), XtWindow(XtParent(on_screen_of(xmMessageBoxWidgetClass))));
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    compute();
    EXPECT_EQ(grx_avancement_finit(), 1);
    const auto answer = events.wait(GRX_EVT_MESSAGE);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->reponse_question.nofen, number);
    drain();
    EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_MESSAGE), 1);
}

// Unmapped and mapped again a window loses what it showed, whatever the server keeps.
TEST_F(Progress, AnUncoveredWindowIsShownFromItsPicture) {
    const INT other = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    GRX_SEGMENT segment{};
    GRX_ATTRIBUTS_TRACER attributes{};
    attributes.coul_trace = 5;
    attributes.coul_fond = 0;
    segment.attrib = attributes;
    for (INT i = 0; i < 40; ++i) {
        segment.x1 = 10;
        segment.x2 = 150;
        segment.y1 = segment.y2 = 20 + i;
        grx_memorise_bitmap_backingstore(other);
        segment.nofen = other;
        grx_trace_segment(segment);
    }
    grx_memorise_bitmap_backingstore(other);
    drain();
    const Pixels before = grab(x11_disp, x_window(other), {0, 0, 160, 70});
    ASSERT_NE(before.at(50, 40), before.at(3, 3));
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    // Somewhere that the window of the work does not cover.
    XMoveWindow(test_display(), XtWindow(shell_of(other)), 0, 0);
    XUnmapWindow(test_display(), XtWindow(shell_of(other)));
    XMapWindow(test_display(), XtWindow(shell_of(other)));
    XSync(test_display(), False);
    EXPECT_TRUE(compute_until([&] { return same(before, grab(x11_disp, x_window(other), {0, 0, 160, 70})); }));
}

TEST_F(Progress, ControlsThatAreUncoveredAreRedrawn) {
    GRX_BOUTON button = button_at(GRX_BOU_SIMPLE, main_, {10, 10, 120, 30});
    set_title(button, "Calque");
    button.attrib |= GRX_BOU_ATT_VISIBLE;
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    XMoveWindow(test_display(), XtWindow(shell_of(main_)), 0, 0);
    pointer().move(1000, 900);
    drain();
    Widget control = grx_recup_objet_bout(button.nobou);
    ASSERT_TRUE(wait_visible(control));
    drain();
    const Pixels before = grab(x11_disp, XtWindow(control));
    ASSERT_GT(before.count_other(before.at(before.width / 2, 5)), 20);
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    XUnmapWindow(test_display(), XtWindow(shell_of(main_)));
    XMapWindow(test_display(), XtWindow(shell_of(main_)));
    XSync(test_display(), False);
    EXPECT_TRUE(compute_until([&] { return same(before, grab(x11_disp, XtWindow(control))); }));
}

TEST_F(Progress, AQuestionMayBeAskedInside) {
    begin(work(100));
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    script_.when(
        "answer", [&] { return is_viewable(part("boite")); },
        [&] {
            Widget box = part("boite");
            pointer().move_in(box, 4, 4);
            keyboard().key(XK_Return);
        });
    const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Remplacer ?");
    EXPECT_EQ(script_.run([&] { return grx_attend_boite_message(&asked); }), 1);
    EXPECT_EQ(grx_avancement_abandonne(), 0);
    EXPECT_TRUE(shown());
    EXPECT_TRUE(cancelled_by([&] { click(part("abandon")); })) << "and the work takes input again";
}

// --- work within work

TEST_F(Progress, InnerWorkMovesTheBarByItsPart) {
    begin(work(100));
    grx_avancement_avance(20, nullptr);
    GRX_AVANCEMENT inner = work(10);
    inner.texte = "Bloc 1";
    inner.part = 40;
    begin(inner);
    ASSERT_TRUE(compute_until([&] { return shown(); }, 5));
    compute(5);
    const Pixels bar = grab(x11_disp, XtWindow(part("barre")));
    EXPECT_EQ(bar.at(164, 3), bar.at(20, 3)) << "20 and half of 40";
    EXPECT_NE(bar.at(170, 3), bar.at(20, 3));
    EXPECT_TRUE(cancelled_by([&] { click(part("abandon")); }));
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_EQ(grx_avancement_abandonne(), 1) << "all of it is cancelled";
    EXPECT_EQ(grx_avancement_avance(60, nullptr), 0);
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_EQ(grx_avancement_finit(), GRX_ECHEC_ABSENT);
}

TEST_F(Progress, InnerWorkThatCannotBeCancelledHoldsTheButton) {
    begin(work(100));
    GRX_AVANCEMENT inner = work(10);
    inner.abandon = 0;
    begin(inner);
    ASSERT_TRUE(compute_until([&] { return shown(); }));
    compute();
    EXPECT_FALSE(XtIsSensitive(part("abandon")));
    EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_TRUE(compute_until([&] { return XtIsSensitive(part("abandon")) != False; }));
    EXPECT_TRUE(cancelled_by([&] { click(part("abandon")); }));
}

TEST_F(Progress, ItHasADepth) {
    for (INT i = 0; i < GRX_AVANCEMENTS_MAX; ++i) begin(work(10, 60000));
    const GRX_AVANCEMENT more = work(10);
    EXPECT_EQ(grx_avancement_commence(&more), GRX_ECHEC_PLEIN);
    for (INT i = 0; i < GRX_AVANCEMENTS_MAX; ++i) EXPECT_EQ(grx_avancement_finit(), 1);
    EXPECT_EQ(grx_avancement_finit(), GRX_ECHEC_ABSENT);
}

// --- ends, bad input, growth

TEST_F(Progress, OutlivesTheWindowItStoodOver) {
    const INT parent = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 150);
    ASSERT_TRUE(wait_visible(widget_of(parent)));
    GRX_AVANCEMENT told = work(100);
    told.nofen_mere = parent;
    begin(told);
    for (int i = 0; i < 1000; ++i) grx_avancement_avance(1, nullptr);
    grx_detruit_fenetre(parent);
    EXPECT_TRUE(compute_until([&] { return shown(); })) << "it comes again, over no window";
    EXPECT_EQ(grx_avancement_finit(), 1);
    drain();
}

TEST_F(Progress, BadInputBeginsNothing) {
    const NoLeak no_leak;
    EXPECT_EQ(grx_init_avancement(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_avancement_commence(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_AVANCEMENT told = work(100);
    told.taille = 3;
    EXPECT_EQ(grx_avancement_commence(&told), GRX_ECHEC_PARAMETRE);
    told = work(100);
    for (const INT n : {97, 100, -2, INT32_MAX, INT32_MIN}) {
        told.nofen_mere = n;
        EXPECT_EQ(grx_avancement_commence(&told), GRX_ECHEC_NUMERO) << n;
    }
    EXPECT_EQ(grx_avancement_avance(1, "x"), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_avancement_finit(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_avancement_abandonne(), 0);
    const double infinite = std::numeric_limits<double>::infinity();
    const std::string long_text(100000, 'z');
    for (const double most : {100.0, 0.0, -5.0, static_cast<double>(NAN), infinite, 1e-320, 1e308}) {
        GRX_AVANCEMENT odd = work(most, -3);
        odd.part = most;
        odd.titre = odd.texte = odd.etiquette_abandon = long_text.c_str();
        begin(odd);
        begin(odd);
        for (const double done : {0.0, -1.0, 1e300, static_cast<double>(NAN), infinite, -infinite})
            for (int i = 0; i < 20; ++i) EXPECT_EQ(grx_avancement_avance(done, long_text.c_str()), 1);
        ASSERT_TRUE(compute_until([&] { return shown(); }, most));
        EXPECT_LT(server_area(test_display(), XtWindow(window())).width, 700);
        EXPECT_EQ(grx_avancement_finit(), 1);
        EXPECT_EQ(grx_avancement_finit(), 1);
        drain();
    }
}

TEST_F(Progress, WithoutMemoryTheWorkGoesOn) {
    const NoLeak no_leak;
    const int failures = fail_each_allocation([&] {
        begin(work(10));
        const auto start = Clock::now();
        while (Clock::now() - start < Milliseconds(120)) EXPECT_EQ(grx_avancement_avance(1, nullptr), 1);
        EXPECT_EQ(grx_avancement_finit(), 1);
        drain();
    });
    EXPECT_GT(failures, 2);
}

TEST_F(Progress, ManyLeaveNothing) {
    const auto once = [&](int i) {
        begin(work(i % 2 == 0 ? 10 : 0));
        grx_avancement_avance(i % 10, "Texte");
        EXPECT_EQ(grx_avancement_finit(), 1);
        GRX_EVENEMENT evt{};
        while (grx_digitaliseur(&evt, 0) != 0) continue;
    };
    for (int i = 0; i < 24; ++i) once(i);
    drain();
    const auto before = server_resources(test_display(), x_window(main_));
    const std::size_t widgets = whole_tree().size(), blocks = heap().blocks();
    for (int i = 0; i < amount(500); ++i) once(i);
    drain();
    EXPECT_EQ(server_resources(test_display(), x_window(main_)), before);
    EXPECT_EQ(whole_tree().size(), widgets);
    EXPECT_EQ(heap().blocks(), blocks);
}

INSTANTIATE_TEST_SUITE_P(
    Managers, ProgressWmTest, testing::Values(WindowManager::Kind::mwm, WindowManager::Kind::openbox));

TEST_P(ProgressWmTest, IsCancelledUnderAManager) {
    const auto ways =
        std::vector<std::function<void()>>{[&] { click(part("abandon")); }, [&] { keyboard().key(XK_Escape); }};
    for (const auto& way : ways) {
        begin(work(100));
        ASSERT_TRUE(compute_until([&] { return shown(); }));
        compute(1, Milliseconds(400)); // the manager gives it the keyboard
        EXPECT_TRUE(cancelled_by(way)) << &way - ways.data();
        EXPECT_EQ(grx_avancement_finit(), 1);
        drain();
        EXPECT_EQ(window(), nullptr);
    }
}

TEST(ProgressWithout, ADisplayNothingBegins) {
    GRX_AVANCEMENT told{};
    EXPECT_EQ(grx_init_avancement(&told), 1);
    EXPECT_EQ(grx_avancement_commence(&told), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_avancement_avance(1, nullptr), GRX_ECHEC_ABSENT);
    EXPECT_EQ(grx_avancement_abandonne(), 0);
    EXPECT_EQ(grx_avancement_finit(), GRX_ECHEC_ABSENT);
}

} // namespace
