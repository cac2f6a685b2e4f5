// Title and border taken away and given back, without a window manager and under one.
#include "tests/display/windows/decorations_kit.h"

#include <Xm/XmAll.h>

#include <climits>
#include <utility>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr std::array<INT, 7> no_windows{-1, 0, 50, 99, 100, INT_MIN, INT_MAX};

int decorations(INT nofen) {
    return resource<int>(shell_of(nofen), XmNmwmDecorations);
}

// --- decorations without a manager --------------------------------------------------------------------------------

constexpr int title = 17, border = 9, no_title = 7, no_resize = 4, nothing = 3; // no two differences alike

class Decorating : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        if (HasFatalFailure()) return;
        grx_set_tatitre(title);
        grx_set_tabord(border);
        grx_set_tabord_sans_titre(no_title);
        grx_set_tabord_sans_resize(no_resize);
        grx_set_tabord_sans_decor(nothing);
    }

    INT shown(INT attrib = 0) {
        const INT n = make(GRX_FEN_ALPHA, visible_bit | attrib);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        drain();
        return n;
    }

    Area area(INT nofen) {
        drain();
        return server_area(test_display(), XtWindow(shell_of(nofen)));
    }

    // The operation changes the decorations to that and the place and size by that much.
    void expect_change(INT nofen, DecorationOperation operation, int wanted, const Area& change) {
        Area expected = area(nofen);
        expected.x += change.x;
        expected.y += change.y;
        expected.width += change.width;
        expected.height += change.height;
        EXPECT_EQ(operation(nofen), 0);
        EXPECT_EQ(decorations(nofen), wanted);
        EXPECT_EQ(area(nofen), expected);
        EXPECT_EQ(server_area(test_display(), x_window(nofen)), expected) << "the contents follow";
        EXPECT_TRUE(visible(x_window(nofen)));
    }
};

constexpr int title_border = border - no_title;
constexpr Area title_removed{-title_border, -(title + title_border), 2 * title_border, title + 2 * title_border};
constexpr Area border_removed{
    -(border - no_resize), -(border - no_resize), 2 * (border - no_resize), 2 * (border - no_resize)};
constexpr Area last_border_removed{
    -(no_title - nothing), -(no_title - nothing), 2 * (no_title - nothing), 2 * (no_title - nothing)};

constexpr Area back(const Area& change) {
    return {-change.x, -change.y, -change.width, -change.height};
}

TEST_F(Decorating, RemovingAndShowingTheTitle) {
    const INT n = shown(GRX_FEN_ATT_SANS_BOITES);
    ASSERT_EQ(decorations(n), 113);
    expect_change(n, grx_supprime_titre_fenetre, 121, title_removed);
    expect_change(n, grx_affiche_titre_fenetre, 97, back(title_removed));
}

TEST_F(Decorating, RemovingTheTitleTwice) {
    const INT n = shown();
    ASSERT_EQ(decorations(n), 1);
    expect_change(n, grx_supprime_titre_fenetre, 25, title_removed);
    expect_change(n, grx_supprime_titre_fenetre, 25, title_removed);
}

TEST_F(Decorating, ShowingTheTitleOfATitledWindowTakesItAwayAndBringsItBack) {
    const INT n = shown();
    expect_change(n, grx_affiche_titre_fenetre, 25, back(title_removed));
    expect_change(n, grx_affiche_titre_fenetre, 1, back(title_removed));
}

TEST_F(Decorating, RemovingAndShowingTheBorder) {
    const INT n = shown();
    expect_change(n, grx_supprime_bord_fenetre, 5, border_removed);
    expect_change(n, grx_supprime_bord_fenetre, 5, border_removed);
    expect_change(n, grx_affiche_bord_fenetre, 1, back(border_removed));
    expect_change(n, grx_affiche_bord_fenetre, 5, back(border_removed));
}

TEST_F(Decorating, TheBorderOfAWindowWithoutTitleIsAnother) {
    const INT n = shown(GRX_FEN_ATT_SANS_TITRE);
    ASSERT_EQ(decorations(n), 9);
    expect_change(n, grx_supprime_bord_fenetre, 13, last_border_removed);
    expect_change(n, grx_affiche_bord_fenetre, 9, back(last_border_removed));
}

TEST_F(Decorating, EverythingOffAndOnAgain) {
    const INT n = shown();
    const Area before = area(n);
    expect_change(n, grx_supprime_titre_fenetre, 25, title_removed);
    expect_change(n, grx_supprime_bord_fenetre, 29, last_border_removed);
    expect_change(n, grx_affiche_bord_fenetre, 25, back(last_border_removed));
    expect_change(n, grx_affiche_titre_fenetre, 1, back(title_removed));
    EXPECT_EQ(area(n), before);
}

TEST_F(Decorating, AWindowThatWasResizedAndMovedKeepsItsPlace) {
    const INT n = shown();
    grx_change_taille_fenetre(n, 260, 170);
    grx_deplace_fenetre(n, 333, grx_recup_hau_ecran() - 222);
    ASSERT_EQ(area(n), (Area{333, 222, 260, 170}));
    expect_change(n, grx_supprime_titre_fenetre, 25, title_removed);
    grx_change_taille_fenetre(n, 200, 150);
    expect_change(n, grx_supprime_bord_fenetre, 29, last_border_removed);
    Widget shell = shell_of(n);
    XtVaSetValues(shell, XmNwidth, 280, XmNheight, 210, nullptr);
    grx_affiche_titre_fenetre(n); // at once, what the resizing causes still under way
    const Area after = area(n);
    EXPECT_EQ(after.x, 333 - title_border - (no_title - nothing) + title_border);
    EXPECT_EQ(after.y, 222 - (no_title - nothing));
}

TEST_F(Decorating, TheShellIsUnmappedAndMappedAgain) {
    for (DecorationOperation operation : decoration_operations) {
        const INT n = shown();
        const Window shell = XtWindow(shell_of(n));
        XSelectInput(test_display(), shell, StructureNotifyMask);
        XSync(test_display(), False);
        operation(n);
        drain();
        XSync(test_display(), False);
        std::vector<int> maps;
        XEvent event{};
        while (XCheckWindowEvent(test_display(), shell, StructureNotifyMask, &event))
            if (event.type == MapNotify || event.type == UnmapNotify) maps.push_back(event.type);
        EXPECT_EQ(maps, (std::vector{UnmapNotify, MapNotify}));
        grx_detruit_fenetre(n);
    }
}

bool pressed = false;
void note_press(Widget, XtPointer, XEvent*, Boolean*) {
    pressed = true;
}

TEST_F(Decorating, AllButRemovingTheTitleHandleThePendingEvents) {
    for (DecorationOperation operation : decoration_operations) {
        const INT n = shown();
        XtAddEventHandler(widget_of(n), ButtonPressMask, False, note_press, nullptr);
        pointer().move_in(widget_of(n), 20, 20);
        drain();
        pressed = false;
        pointer().click(1);
        XSync(x11_disp, False);
        operation(n);
        EXPECT_EQ(pressed, operation != grx_supprime_titre_fenetre);
        drain();
        EXPECT_TRUE(pressed);
        grx_detruit_fenetre(n);
        drain();
    }
}

// A manager that changes the shell as soon as something is written on it.
Display* manager = nullptr;
Area manager_makes;
void play_manager(Widget shell, XtPointer, XEvent*, Boolean*) {
    const Area makes = std::exchange(manager_makes, {});
    if (makes.height) XResizeWindow(manager, XtWindow(shell), unsigned(makes.width), unsigned(makes.height));
    if (makes.y) XMoveWindow(manager, XtWindow(shell), makes.x, makes.y);
    XSync(manager, False);
    XSync(XtDisplay(shell), False); // the news are on their way
}

class ManagedDecorating : public Decorating {
  protected:
    INT with_manager(const Area& makes) {
        const INT n = shown();
        manager = test_display();
        manager_makes = makes;
        XtAddEventHandler(shell_of(n), PropertyChangeMask, False, play_manager, nullptr);
        XSync(x11_disp, False);
        const Atom name = XInternAtom(test_display(), "GRX_TEST", False);
        XChangeProperty(test_display(), XtWindow(shell_of(n)), name, name, 8, PropModeReplace, nullptr, 0);
        XSync(test_display(), False);
        XSync(x11_disp, False);
        return n;
    }
};

TEST_F(ManagedDecorating, ASizeThatTheManagerMadeIsLeft) {
    for (DecorationOperation operation :
        {grx_affiche_titre_fenetre, grx_supprime_bord_fenetre, grx_affiche_bord_fenetre}) {
        const INT n = with_manager({0, 0, 260, 190});
        operation(n);
        const Area after = area(n);
        EXPECT_EQ(after.width, 260);
        EXPECT_EQ(after.height, 190);
        EXPECT_NE(after.x, 100) << "the place is still mended";
        EXPECT_NE(after.y, 120);
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(ManagedDecorating, APlaceThatTheManagerMadeIsLeft) {
    for (DecorationOperation operation :
        {grx_affiche_titre_fenetre, grx_supprime_bord_fenetre, grx_affiche_bord_fenetre}) {
        const INT n = with_manager({140, 177, 0, 0});
        operation(n);
        const Area after = area(n);
        EXPECT_EQ(after.x, 140);
        EXPECT_EQ(after.y, 177);
        EXPECT_NE(after.width, 200) << "the size is still mended";
        EXPECT_NE(after.height, 150);
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(ManagedDecorating, OnlyAHeightAndAnUpperEdgeTellThatTheManagerWasAtWork) {
    constexpr int d = border - no_resize;
    constexpr int left = 100 - border, top = 120 - title - border;
    for (const Area& makes : {Area{0, 0, 260, 150}, Area{140, top, 0, 0}}) {
        const INT n = with_manager(makes);
        grx_supprime_bord_fenetre(n);
        const Area after = area(n);
        EXPECT_NE(after.x, makes.x ? makes.x : left) << "moved all the same";
        EXPECT_EQ((Area{0, after.y, after.width, after.height}), (Area{0, top - d, 200 + 2 * d, 150 + 2 * d}));
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(Decorating, UnknownWindowsChangeNothing) {
    const INT n = shown();
    const Area before = area(n);
    Cost cost(x11_disp);
    for (INT nofen : no_windows)
        for (DecorationOperation operation : decoration_operations) EXPECT_EQ(operation(nofen), 0) << nofen;
    for (INT nofen : no_windows) EXPECT_EQ(grx_active_modifications_shell(nofen), 0);
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(area(n), before);
    EXPECT_EQ(decorations(n), 1);
}

TEST_F(Decorating, TheEmptyHookDoesNothing) {
    const INT n = shown();
    const Area before = area(n);
    Cost cost(x11_disp);
    EXPECT_EQ(grx_active_modifications_shell(n), 0);
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(area(n), before);
    EXPECT_EQ(decorations(n), 1);
}

TEST_F(Decorating, AWindowSmallerThanItsDecorationIsSurvived) {
    grx_set_tatitre(400);
    grx_set_tabord(300);
    const INT n = make(GRX_FEN_ALPHA, visible_bit, 20, 20);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    for (int turn = 0; turn < 3; ++turn)
        for (DecorationOperation operation : {grx_affiche_titre_fenetre, grx_affiche_bord_fenetre}) operation(n);
    const Area after = area(n);
    EXPECT_TRUE(after.width >= 1 && after.width <= 20 && after.height >= 1 && after.height <= 20)
        << after.width << " x " << after.height;
}

TEST_F(Decorating, ExtremeSettingsAreSurvived) {
    const INT n = shown();
    for (INT value : {INT_MIN, INT_MAX, -1, 70000}) {
        grx_set_tatitre(value);
        grx_set_tabord(value);
        grx_set_tabord_sans_resize(value == INT_MIN ? INT_MAX : -value);
        for (DecorationOperation operation : decoration_operations) EXPECT_EQ(operation(n), 0);
        drain();
    }
    EXPECT_TRUE(visible(x_window(n)));
}

TEST_F(Decorating, AHiddenWindowOfEachKindIsSurvived) {
    for (INT kind : all_kinds) {
        const INT n = make(kind, 0);
        for (DecorationOperation operation : decoration_operations) {
            EXPECT_EQ(operation(n), 0) << kind;
            drain();
            EXPECT_FALSE(XtIsRealized(shell_of(n)) && visible(XtWindow(shell_of(n)))) << kind << ": stays hidden";
        }
        EXPECT_EQ(decorations(n), ((((1 | 24) ^ 24) | 4) ^ 4)) << kind;
        grx_affiche_fenetre(n);
        ASSERT_TRUE(wait_visible(widget_of(n))) << kind;
        EXPECT_EQ(area(n), (Area{100 - border, 120 - border - title, 200, 150})) << kind << ": each way and back";
        grx_detruit_fenetre(n);
    }
}

// --- under mwm ----------------------------------------------------------------------------------------------------

class DecoratingWmTest : public WmTest {
  protected:
    void SetUp() override {
        WmTest::SetUp();
        if (HasFatalFailure()) return;
        grx_set_tatitre(17); // what mwm draws
        grx_set_tabord(7);
        grx_set_tabord_sans_titre(7);
        grx_set_tabord_sans_resize(5);
        grx_set_tabord_sans_decor(5);
    }

    INT shown(INT attrib) {
        const INT n = make(GRX_FEN_ALPHA, visible_bit | attrib);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        EXPECT_TRUE(wait_for([&] { return frame(shell_of(n)) != None; }));
        drain();
        return n;
    }

    // The frame stays where and as large as it is; the client is there inside it.
    void expect_kept(INT nofen, DecorationOperation operation, int wanted, const Area& client) {
        const Area before = frame_area(shell_of(nofen));
        EXPECT_EQ(operation(nofen), 0);
        EXPECT_EQ(decorations(nofen), wanted);
        EXPECT_TRUE(wait_for([&] {
            return visible(x_window(nofen)) && frame_area(shell_of(nofen)) == before
                   && server_area(test_display(), x_window(nofen)) == client;
        }));
        drain();
        EXPECT_EQ(frame_area(shell_of(nofen)), before);
        EXPECT_EQ(server_area(test_display(), x_window(nofen)), client);
    }
};

TEST_F(DecoratingWmTest, TheFrameStaysWhileTheTitleGoesAndComes) {
    const INT n = shown(GRX_FEN_ATT_SANS_BOITES);
    ASSERT_EQ(frame_area(shell_of(n)), (Area{93, 96, 214, 181}));
    for (int turn = 0; turn < 2; ++turn) {
        expect_kept(n, grx_supprime_titre_fenetre, 121, {100, 103, 200, 167});
        expect_kept(n, grx_affiche_titre_fenetre, 97, {100, 120, 200, 150});
    }
}

TEST_F(DecoratingWmTest, TheFrameStaysWhileTheBorderGoesAndComes) {
    const INT n = shown(0);
    ASSERT_EQ(frame_area(shell_of(n)), (Area{93, 96, 214, 181}));
    for (int turn = 0; turn < 2; ++turn) {
        expect_kept(n, grx_supprime_bord_fenetre, 5, {98, 118, 204, 154});
        expect_kept(n, grx_affiche_bord_fenetre, 1, {100, 120, 200, 150});
    }
}

TEST_F(DecoratingWmTest, TheFrameStaysWithoutTitleToo) {
    const INT n = shown(GRX_FEN_ATT_SANS_TITRE | GRX_FEN_ATT_SANS_BOITES);
    ASSERT_EQ(frame_area(shell_of(n)), (Area{93, 113, 214, 164}));
    expect_kept(n, grx_supprime_bord_fenetre, 125, {98, 118, 204, 154});
    expect_kept(n, grx_affiche_bord_fenetre, 121, {100, 120, 200, 150});
}

TEST_F(DecoratingWmTest, EverythingOffAndOnAgain) {
    const INT n = shown(GRX_FEN_ATT_SANS_BOITES);
    expect_kept(n, grx_supprime_titre_fenetre, 121, {100, 103, 200, 167});
    expect_kept(n, grx_supprime_bord_fenetre, 125, {98, 101, 204, 171});
    expect_kept(n, grx_affiche_bord_fenetre, 121, {100, 103, 200, 167});
    expect_kept(n, grx_affiche_titre_fenetre, 97, {100, 120, 200, 150});
}

TEST_F(DecoratingWmTest, AWindowThatWasMovedStaysThere) {
    const INT n = shown(GRX_FEN_ATT_SANS_BOITES);
    grx_deplace_fenetre(n, 400, grx_recup_hau_ecran() - 300);
    ASSERT_TRUE(wait_for([&] { return frame_area(shell_of(n)) == Area{400, 300, 214, 181}; }));
    expect_kept(n, grx_supprime_titre_fenetre, 121, {407, 307, 200, 167});
    expect_kept(n, grx_affiche_titre_fenetre, 97, {407, 324, 200, 150});
}

TEST_F(DecoratingWmTest, TheEmptyHookDoesNothing) {
    const INT n = shown(0);
    const Area before = frame_area(shell_of(n));
    EXPECT_EQ(grx_active_modifications_shell(n), 0);
    drain();
    EXPECT_EQ(frame_area(shell_of(n)), before);
    EXPECT_EQ(decorations(n), 1);
}

} // namespace
