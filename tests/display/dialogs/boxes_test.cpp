// Messages and prompts among other things: under window managers, beside menus with keys, and with a display far away.
#include "tests/display/dialogs/box_kit.h"
#include "bench/slow_line.h"
#include "tests/support/counters.h"
#include "tests/support/heap.h"

#include "system/shut_down.h"
#include "toolkit/hidden_shell.h"

#include <clocale>
#include <cstdlib>
#include <memory>

namespace {
using namespace grxtest;

// --- under window managers

template <WindowManager::Kind kind>
class Managed : public Boxes<WmTest> {
  protected:
    WindowManager::Kind manager_kind() const override { return kind; }

    void SetUp() override {
        Boxes<WmTest>::SetUp();
        parent_ = make(described(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE, 700, 500));
        ASSERT_TRUE(wait_visible(widget_of(parent_)));
        drain();
    }
    GRX_BOITE_MESSAGE question() const {
        GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Enregistrer le plan ?", 3);
        asked.nofen_mere = parent_;
        return asked;
    }
    bool has_keyboard() {
        Window focus = None;
        int revert = 0;
        XGetInputFocus(test_display(), &focus, &revert);
        return box() != nullptr && (focus == XtWindow(XtParent(box())) || XtWindowToWidget(x11_disp, focus) == box());
    }
    Script& when_focused(const std::string& what, Script::Action action) {
        return script_.when(
            what, [this] { return box() != nullptr && has_keyboard(); }, std::move(action));
    }

    void expect_keys_to_answer() {
        when_focused("Return", [&] { keyboard().key(XK_Return); });
        EXPECT_EQ(ask(question()), 1);
        when_focused("Escape", [&] { keyboard().key(XK_Escape); });
        EXPECT_EQ(ask(question()), 3);
        when_focused("Tab, space", [&] {
            keyboard().key(XK_Tab);
            keyboard().key(XK_space);
        });
        EXPECT_EQ(ask(question()), 2);
    }
    void expect_it_in_the_middle() {
        const Area over = server_area(test_display(), XtWindow(shell_of(parent_)));
        when_shown("look", [&] {
            const Area area = server_area(test_display(), XtWindow(XtParent(box())));
            EXPECT_NEAR(area.x + area.width / 2, over.x + over.width / 2, 12);
            EXPECT_NEAR(area.y + area.height / 2, over.y + over.height / 2, 28);
            close_box();
        });
        EXPECT_EQ(ask(question()), 3);
    }
    // So the manager keeps it over its window.
    void expect_it_belongs_to_its_window() {
        when_shown("look", [&] {
            Window leader = None;
            XGetTransientForHint(test_display(), XtWindow(XtParent(box())), &leader);
            EXPECT_EQ(leader, XtWindow(shell_of(parent_)));
            close_box();
        });
        EXPECT_EQ(ask(question()), 3);
    }

    INT parent_ = 0;
};

class MessageMwmWmTest : public Managed<WindowManager::Kind::mwm> {};
class MessageOpenboxWmTest : public Managed<WindowManager::Kind::openbox> {};

TEST_F(MessageMwmWmTest, KeysAnswer) {
    expect_keys_to_answer();
}
TEST_F(MessageMwmWmTest, StandsInTheMiddle) {
    expect_it_in_the_middle();
}
TEST_F(MessageMwmWmTest, BelongsToItsWindow) {
    expect_it_belongs_to_its_window();
}
TEST_F(MessageOpenboxWmTest, KeysAnswer) {
    expect_keys_to_answer();
}
TEST_F(MessageOpenboxWmTest, StandsInTheMiddle) {
    expect_it_in_the_middle();
}
TEST_F(MessageOpenboxWmTest, BelongsToItsWindow) {
    expect_it_belongs_to_its_window();
}

TEST_F(MessageMwmWmTest, AMinimisedWindowHidesNoMessage) {
    XIconifyWindow(test_display(), XtWindow(shell_of(parent_)), DefaultScreen(test_display()));
    XSync(test_display(), False);
    ASSERT_TRUE(wait_for([&] { return !is_viewable(shell_of(parent_)); }));
    when_shown("answer", [&] { choose(2); });
    EXPECT_EQ(ask(question()), 2);
}

// The whole application is minimised: a message would go with it and never be seen.
TEST_F(MessageMwmWmTest, AMinimisedApplicationShowsItsMessage) {
    for (const INT window : {parent_, main_})
        XIconifyWindow(test_display(), XtWindow(shell_of(window)), DefaultScreen(test_display()));
    XSync(test_display(), False);
    ASSERT_TRUE(wait_for([&] { return !is_viewable(shell_of(parent_)) && !is_viewable(shell_of(main_)); }));
    const auto found = [] {
        std::vector<Widget> all;
        gather_tree(grx::hidden_shell(), all);
        const auto place = std::ranges::find_if(all, [](Widget w) { return std::string(XtName(w)) == "boite"; });
        return place == all.end() ? nullptr : *place;
    };
    script_.when(
        "close", [&] { return is_viewable(found()); },
        [&] { ask_to_close(test_display(), XtWindow(XtParent(found()))); });
    EXPECT_EQ(ask(question()), 3);
}

// --- in a UTF-8 locale

class MessageInUtf8Locale : public Boxes<DisplayTest> {
  protected:
    void SetUp() override {
        ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
        Boxes<DisplayTest>::SetUp();
    }
    void TearDown() override {
        Boxes<DisplayTest>::TearDown();
        std::setlocale(LC_CTYPE, "C");
    }
};

TEST_F(MessageInUtf8Locale, TextsReadTheSameInBothEncodings) {
    for (const char* text : {"\xe9t\xe9", "\xc3\xa9t\xc3\xa9"}) {
        when_shown("look", [&] {
            EXPECT_EQ(text_resource(box(), XmNmessageString), "\xe9t\xe9");
            close_box();
        });
        EXPECT_EQ(ask(message(GRX_BOITE_INFORMATION, text)), 1);
        GRX_BOITE_SAISIE asked = prompt(GRX_SAISIE_TEXTE);
        asked.texte = text;
        when_shown("look", [&] {
            EXPECT_EQ(field_text(field()), "\xc3\xa9t\xc3\xa9");
            key(XK_Return);
        });
        std::string answer(100, 'Z');
        EXPECT_EQ(script_.run([&] { return grx_attend_boite_saisie(&asked, answer.data(), 100, nullptr); }), 1);
        EXPECT_STREQ(answer.c_str(), text);
    }
}

// --- at shut-down

class BoxesAtShutDown : public Boxes<DisplayTest> {};

TEST_F(BoxesAtShutDown, WhatIsOnShowGoesAndNothingIsTold) {
    const NoLeak no_leak;
    const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_QUESTION, "Texte");
    const GRX_BOITE_SAISIE wanted = prompt(GRX_SAISIE_TEXTE);
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.delai = 0;
    const INT first = grx_affiche_boite_message(&asked);
    ASSERT_GT(first, 0);
    ASSERT_GT(grx_affiche_boite_saisie(&wanted), first);
    ASSERT_EQ(grx_avancement_commence(&told), 1);
    grx_avancement_avance(1, nullptr);
    ASSERT_NE(widget_called("avancement"), nullptr);
    grx::run_shut_down();
    drain();
    EXPECT_EQ(box(), nullptr);
    EXPECT_EQ(widget_called("avancement"), nullptr);
    EXPECT_EQ(grx_avancement_finit(), GRX_ECHEC_ABSENT);
    EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_MESSAGE), 0);
    const INT again = grx_affiche_boite_message(&asked);
    EXPECT_EQ(again, 1) << "as in a fresh process";
    EXPECT_EQ(grx_detruit_boite(again), 1);
}

// --- beside menus

class MessageBesideMenu : public Boxes<DisplayTest> {
  protected:
    void before_start() override {
        write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||&File|\n{\nITEM||Open|Ctrl+O|101|\nITEM||Help|F1|102|\n}\n}\n");
    }
};

TEST_F(MessageBesideMenu, KeysOfMenusDoNothing) {
    pointer().move_in(widget_of(main_), 50, 100);
    keyboard().key(XK_o, ControlMask);
    const auto chosen = [](const GRX_EVENEMENT& e) {
        return e.type_evenement == GRX_EVT_BOUTON_APPUI && e.bouton_appui.no_fo >= 0;
    };
    ASSERT_TRUE(events.wait(chosen)) << "it does something without a message";
    const GRX_BOITE_MESSAGE asked = message(GRX_BOITE_INFORMATION, "Texte");
    const INT number = grx_affiche_boite_message(&asked);
    ASSERT_TRUE(wait_for([&] { return box() != nullptr; }));
    drain();
    events.clear();
    for (const bool over_box : {true, false}) {
        pointer().move_in(over_box ? box() : widget_of(main_), 4, 4);
        keyboard().key(XK_o, ControlMask);
        keyboard().key(XK_F1);
        keyboard().key(XK_f, Mod1Mask);
        drain();
        EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_BOUTON_APPUI), 0) << events.describe();
        EXPECT_EQ(std::ranges::count(events.types(), GRX_EVT_CARAC_APPUI), 0) << events.describe();
    }
    EXPECT_EQ(grx_detruit_boite(number), 1);
}

// --- far away

class FarProgressOn24 : public Boxes<DisplayTest> {
  protected:
    void before_start() override {
        Boxes<DisplayTest>::before_start();
        line_ = std::make_unique<grxbench::SlowLine>(std::atoi(server().name().c_str() + 1), Milliseconds(30));
        ASSERT_TRUE(line_->works());
        setenv("DISPLAY", line_->name().c_str(), 1);
    }
    std::unique_ptr<grxbench::SlowLine> line_;
};

// A window that is looked after twenty times a second must not wait for answers.
TEST_F(FarProgressOn24, WaitsForNoAnswersWhileItIsOnShow) {
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.delai = 0;
    told.maximum = 1e9;
    ASSERT_EQ(grx_avancement_commence(&told), 1);
    ASSERT_TRUE(
        wait_until([&] { return widget_called("avancement") != nullptr && is_viewable(widget_called("avancement")); },
            [] { grx_avancement_avance(1, nullptr); }));
    DOUBLE done = 0;
    const auto compute = [&](Milliseconds span) {
        const auto start = Clock::now();
        while (Clock::now() - start < span) grx_avancement_avance(done += 1000, nullptr);
    };
    compute(Milliseconds(300)); // it is drawn
    Cost cost(x11_disp);
    compute(Milliseconds(400));
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_LT(cost.requests(), 200U);
    pointer().click_in(widget_called("abandon"));
    EXPECT_TRUE(wait_until([] { return grx_avancement_abandonne() == 1; }, [&] { compute(Milliseconds(20)); }));
    EXPECT_EQ(grx_avancement_finit(), 1);
}

} // namespace
