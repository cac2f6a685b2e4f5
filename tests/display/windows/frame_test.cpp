// Windows that the application, or another client, resizes, moves and hides: their controls answer all the same, and
// menus open under their titles.
#include "tests/support/control_kit.h"

#include <cstdlib>
#include <utility>

namespace {

using namespace grxtest;

// A way of changing a window; `other` is a connection of another client.
struct Change {
    const char* name;
    void (*make)(INT window, Display* other);
};

void resize_by_other(INT window, Display* other, unsigned width, unsigned height) {
    XResizeWindow(other, XtWindow(shell_of(window)), width, height);
    XSync(other, False);
}

void resize_by_application(INT window, Display*) {
    grx_change_taille_fenetre(window, 430, 330);
}

void resize_by_client(INT window, Display* other) {
    resize_by_other(window, other, 430, 330);
}

void resize_many_times(INT window, Display* other) {
    for (INT k = 1; k <= 4; ++k) {
        grx_change_taille_fenetre(window, 400 + 10 * k, 300 + 10 * k);
        resize_by_other(window, other, static_cast<unsigned>(405 + 10 * k), static_cast<unsigned>(305 + 10 * k));
    }
}

void move_then_resize(INT window, Display* other) {
    XMoveWindow(other, XtWindow(shell_of(window)), 333, 222);
    XSync(other, False);
    grx_change_taille_fenetre(window, 430, 330);
}

void resize_then_move(INT window, Display* other) {
    grx_change_taille_fenetre(window, 430, 330);
    XSync(x11_disp, False);
    XMoveWindow(other, XtWindow(shell_of(window)), 333, 222);
    XSync(other, False);
}

void move_by_application(INT window, Display*) {
    grx_change_taille_fenetre(window, 430, 330);
    grx_deplace_fenetre(window, 333, 700);
}

void hide_and_show(INT window, Display*) {
    grx_change_taille_fenetre(window, 430, 330);
    grx_cache_fenetre(window);
    XSync(x11_disp, False);
    grx_affiche_fenetre(window);
}

void resize_while_hidden(INT window, Display* other) {
    grx_cache_fenetre(window);
    XSync(x11_disp, False);
    resize_by_other(window, other, 430, 330);
    grx_affiche_fenetre(window);
}

constexpr std::array changes{Change{"resized by the application", resize_by_application},
    Change{"resized by another client", resize_by_client}, Change{"resized many times", resize_many_times},
    Change{"moved by another client, then resized", move_then_resize},
    Change{"resized, then moved by another client", resize_then_move},
    Change{"resized and moved by the application", move_by_application},
    Change{"resized, hidden and shown", hide_and_show}, Change{"resized while hidden", resize_while_hidden}};

struct Pushed {
    const char* name;
    INT type;
    INT bits;
};
constexpr std::array pushed{Pushed{"drawn", GRX_BOU_DESSINE, 0}, Pushed{"toggle", GRX_BOU_BASCULE, 0},
    Pushed{"push", GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR}, Pushed{"drawn push", GRX_BOU_POUSSOIR, 0},
    Pushed{"arrow", GRX_BOU_FLECHE, GRX_BOU_ATT_FLECHE_HAUT}, Pushed{"simple", GRX_BOU_SIMPLE, 0},
    Pushed{"colour", GRX_BOU_COULEUR, 0}};

// Where the controls are: in a window of its own, in one over another, in one nested in another.
enum class Where { top, child, nested };
constexpr std::array places{Where::top, Where::child, Where::nested};

template <class Base>
class Answering : public Base {
  protected:
    using Base::events;

    // The window whose shell is changed, and the one with the controls.
    std::pair<INT, INT> open(Where where) {
        const INT first = placed_window(described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300));
        if (where == Where::top) return {first, first};
        GRX_FENETRE second = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 380, 280);
        if (where == Where::nested) second = nested_in(first, GRX_FEN_BOUTONS, 5, 5, 380, 280);
        second.fen_mere = first;
        const INT n = placed_window(second);
        return {where == Where::child ? n : first, n};
    }

    INT placed_window(const GRX_FENETRE& description) {
        const INT n = make(description);
        EXPECT_TRUE(Base::wait_visible(widget_of(n)));
        Base::drain();
        return n;
    }

    std::vector<INT> controls_in(INT window) {
        std::vector<INT> numbers;
        for (const Pushed& kind : pushed) {
            GRX_BOUTON button = control_of(kind.type, kind.bits, window, "Go");
            button.x = 10 + 50 * static_cast<INT>(numbers.size());
            button.y = 20;
            button.largeur = button.hauteur = 40;
            numbers.push_back(make(button));
            EXPECT_TRUE(Base::wait_visible(control(numbers.back()))) << kind.name;
        }
        return numbers;
    }

    // A click is a press and the control's activation, in the place of the release.
    void expect_answer(INT nobou, const char* name) {
        Base::take_pointer_away();
        Base::drain();
        events.clear();
        Base::pointer().click_in(control(nobou));
        const auto activated = events.wait(GRX_EVT_EXEC_FONCTION, Milliseconds(3000));
        EXPECT_TRUE(activated) << name << ": " << events.describe();
        if (activated) {
            EXPECT_EQ(activated->exec_fonction.nobou, nobou) << name;
        }
        Base::drain();
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << name << ": " << events.describe();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << name << ": " << events.describe();
    }

    void expect_all_answer() {
        for (const Where where : places) {
            const auto [shell, window] = open(where);
            const std::vector<INT> buttons = controls_in(window);
            for (const Change& change : changes) {
                SCOPED_TRACE(testing::Message() << change.name << ", place " << static_cast<int>(where));
                change.make(shell, Base::test_display());
                ASSERT_TRUE(Base::wait_visible(widget_of(window)));
                for (std::size_t k = 0; k < pushed.size(); ++k) expect_answer(buttons[k], pushed[k].name);
                expect_known_place(shell);
                if (testing::Test::HasFailure()) return; // one is enough to see which
            }
            grx_detruit_fenetre(shell);
            Base::drain();
        }
    }

    // What the toolkit tells of the shell's place.
    void expect_known_place(INT window) {
        Base::drain();
        const Area real = server_area(Base::test_display(), XtWindow(shell_of(window)));
        Position x = -1, y = -1;
        XtTranslateCoords(shell_of(window), 0, 0, &x, &y);
        EXPECT_EQ(x, real.x);
        EXPECT_EQ(y, real.y);
    }
};

using AnsweringControls = Answering<ControlsTest>;

TEST_F(AnsweringControls, WhateverHappensToTheirWindow) {
    expect_all_answer();
}

class AnsweringWmTest : public Answering<WmTest> {};

TEST_F(AnsweringWmTest, WhateverHappensToTheirWindow) {
    expect_all_answer();
}

class AnsweringOpenboxWmTest : public Answering<WmTest> {
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }
};

TEST_F(AnsweringOpenboxWmTest, WhateverHappensToTheirWindow) {
    expect_all_answer();
}

// Nothing was read since: the press waits behind the news of the resize.
TEST_F(AnsweringControls, BeforeTheNewsOfAResizeAreRead) {
    const INT window = shown();
    const std::vector<INT> buttons = controls_in(window);
    for (std::size_t k = 0; k < pushed.size(); ++k) {
        const auto step = static_cast<INT>(k);
        take_pointer_away();
        settle();
        grx_change_taille_fenetre(window, 410 + step, 310 + step);
        pointer().click_in(control(buttons[k]));
        EXPECT_TRUE(events.wait(GRX_EVT_EXEC_FONCTION, Milliseconds(3000))) << pushed[k].name << events.describe();
    }
}

// A shell resized through the toolkit, by the application or by the toolkit itself.
TEST_F(AnsweringControls, AfterAResizeThroughTheToolkit) {
    const INT window = shown();
    const std::vector<INT> buttons = controls_in(window);
    XtVaSetValues(shell_of(window), XmNwidth, 450, XmNheight, 350, nullptr);
    Position x = 0, y = 0;
    XtTranslateCoords(shell_of(window), 0, 0, &x, &y);
    EXPECT_EQ(x, 100) << "at once";
    EXPECT_EQ(y, 120);
    for (std::size_t k = 0; k < pushed.size(); ++k) expect_answer(buttons[k], pushed[k].name);
}

// Each of two resizes shortly after each other must not undo the other for ever.
TEST_F(AnsweringControls, TwoResizesInARowComeToAnEnd) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    for (unsigned k = 1; k <= 20; ++k) {
        grx_change_taille_fenetre(window, 400 + static_cast<INT>(k), 300);
        resize_by_other(window, test_display(), 405 + k, 310);
        resize_by_other(window, test_display(), 410 + k, 320);
    }
    const auto work_width = [&] { return server_area(test_display(), XtWindow(XtParent(widget_of(window)))).width; };
    EXPECT_TRUE(wait_for([&] {
        XSync(x11_disp, False);
        return XPending(x11_disp) == 0 && work_width() == 430;
    }));
    EXPECT_LE(events.count(GRX_EVT_CHGT_TAILLE), 100);
    EXPECT_EQ(server_area(test_display(), XtWindow(shell_of(window))).width, 430);
}

// Asking for the place costs an answer once, not at each press.
TEST_F(AnsweringControls, AResizeCostsOneAnswerOfTheServerAtMost) {
    const INT window = shown();
    grx_change_taille_fenetre(window, 430, 330);
    settle();
    Position x = 0, y = 0;
    {
        Cost cost(x11_disp);
        XtTranslateCoords(shell_of(window), 0, 0, &x, &y);
        EXPECT_LE(cost.round_trips(), 1U);
    }
    Cost cost(x11_disp);
    for (int k = 0; k < 10; ++k) XtTranslateCoords(shell_of(window), 0, 0, &x, &y);
    EXPECT_EQ(cost.round_trips(), 0U);
}

// --- menus --------------------------------------------------------------------------------------------------------

template <class Base>
class Opening : public Base {
  protected:
    void before_start() override {
        Base::write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||&File|\n{\nITEM||&Save|Ctrl+S|102|\n}\n}\n");
    }

    // The pulldown hangs under its title, wherever the window went.
    void expect_under_titles() {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 400, 300);
        ASSERT_TRUE(Base::wait_visible(widget_of(window)));
        grx_affecte_nofen_principale(window);
        Base::drain();
        for (const Change& change : changes) {
            SCOPED_TRACE(change.name);
            change.make(window, Base::test_display());
            ASSERT_TRUE(Base::wait_visible(widget_of(window)));
            Base::drain();
            expect_under_title();
        }
    }

    void expect_under_title() {
        const auto titles = children_of(grx_get_Glob_menu_bar());
        ASSERT_FALSE(titles.empty());
        Widget menu = resource<Widget>(titles[0], XmNsubMenuId);
        Base::pointer().click_in(titles[0]);
        ASSERT_TRUE(Base::wait_visible(menu));
        const Area title = server_area(Base::test_display(), XtWindow(titles[0]));
        const Area below = server_area(Base::test_display(), XtWindow(menu));
        EXPECT_LE(std::abs(below.x - title.x), 5);
        EXPECT_LE(std::abs(below.y - (title.y + title.height)), 5);
        Base::keyboard().key(XK_Escape);
        ASSERT_TRUE(Base::wait_for([&] { return !Base::visible(XtWindow(menu)); }));
        Base::keyboard().key(XK_Escape);
        Base::drain();
    }
};

class OpeningMenus : public Opening<DisplayTest> {};
TEST_F(OpeningMenus, HangUnderTheirTitles) {
    expect_under_titles();
}

class OpeningMenusWmTest : public Opening<WmTest> {};
TEST_F(OpeningMenusWmTest, HangUnderTheirTitles) {
    expect_under_titles();
}

class OpeningMenusOpenboxWmTest : public Opening<WmTest> {
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }
};
TEST_F(OpeningMenusOpenboxWmTest, HangUnderTheirTitles) {
    expect_under_titles();
}

// --- places under a window manager --------------------------------------------------------------------------------

template <WindowManager::Kind kind>
class Framed : public WmTest {
  protected:
    WindowManager::Kind manager_kind() const override { return kind; }

    // Of the frame, as a move takes it, before the library has read that there is one.
    void expect_the_frame() {
        for (const INT parent : {-1, make(GRX_FEN_ALPHA)}) {
            GRX_FENETRE window = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 300, 200);
            window.fen_mere = parent;
            const INT n = make(window);
            XFlush(x11_disp);
            ASSERT_TRUE(wait_until([&] { return frame(shell_of(n)) != None && seen(n); }, [] {}));
            INT x = -1, y = -1;
            grx_recup_position_fenetre(n, &x, &y);
            const Area around = frame_area(shell_of(n));
            EXPECT_EQ(x, around.x);
            EXPECT_EQ(y, grx_recup_hau_ecran() - around.y);
            grx_deplace_fenetre(n, x, y);
            drain();
            EXPECT_EQ(frame_area(shell_of(n)), around) << "a move to there moves nothing";
        }
    }

    bool seen(INT n) {
        XWindowAttributes attributes{};
        return XGetWindowAttributes(test_display(), x_window(n), &attributes) != 0
               && attributes.map_state == IsViewable;
    }
};

using FramedWmTest = Framed<WindowManager::Kind::mwm>;
TEST_F(FramedWmTest, ThePlaceIsTheFramesBeforeEventsAreRead) {
    expect_the_frame();
}

using FramedOpenboxWmTest = Framed<WindowManager::Kind::openbox>;
TEST_F(FramedOpenboxWmTest, ThePlaceIsTheFramesBeforeEventsAreRead) {
    expect_the_frame();
}

} // namespace
