// The display fixtures tried on themselves, with the library running.
#include "tests/support/cell_hog.h"
#include "tests/support/display_test.h"
#include "tests/support/fake_visual.h"

#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>

namespace {

using namespace grxtest;

// A shown window of 200 x 150 whose left edge is at `x` and whose top is `y` below the top of the screen.
INT shown_window(INT x, INT y) {
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_ALPHA;
    window.droite = 200;
    window.haut = 150;
    window.x = x;
    window.y = grx_recup_hau_ecran() - y - window.haut;
    grx_cree_fenetre(&window);
    return window.nofen;
}

class FrameFixture : public DisplayTest {};

TEST_F(FrameFixture, StartsTheLibraryOnAServerOfItsOwn) {
    EXPECT_EQ(XDisplayString(x11_disp), server().name());
    EXPECT_EQ(grx_recup_profondeur_ecran(), test_planes());
    EXPECT_EQ(std::getenv("HOME"), home().text());
    EXPECT_EQ(sstate[SST_REP_SYSTEME], home().text());
}

TEST_F(FrameFixture, RealInputReachesTheRecords) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    drain();
    events.clear();
    pointer().click_in(window, 30, 40);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.x, 30);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_RELACHE)) << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
    EXPECT_FALSE(events.wait(GRX_EVT_BOUTON_APPUI, Milliseconds{1})) << "a wait begins after the one before";
    keyboard().key(XK_k);
    const auto key = events.wait([](const GRX_EVENEMENT& e) { return e.type_evenement == GRX_EVT_CARAC_APPUI; });
    ASSERT_TRUE(key) << events.describe();
    EXPECT_EQ(key->carac_appui.carac, 'k');
}

TEST_F(FrameFixture, DrainLeavesNothing) {
    shown_window(0, 0);
    drain();
    EXPECT_EQ(XtAppPending(contexte), 0U);
    EXPECT_GE(events.count(GRX_EVT_AFFICHAGE), 1) << events.describe();
    const auto types = events.types();
    EXPECT_EQ(std::count(types.begin(), types.end(), GRX_EVT_AFFICHAGE), events.count(GRX_EVT_AFFICHAGE));
}

TEST_F(FrameFixture, PixelsOfTheLibraryAreReadBack) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    drain();
    EXPECT_EQ(root_position(window), (Point{100, 120}));
    const Pixels all = grab(x11_disp, XtWindow(window));
    EXPECT_EQ(all.width, 200);
    EXPECT_TRUE(same(all, grab_root(x11_disp).part({100, 120, 200, 150})));
}

TEST_F(FrameFixture, XErrorsAreSeenThoughTheLibrarySwallowsThem) {
    permit_x_errors();
    XMapWindow(x11_disp, 0x12345);
    EXPECT_EQ(x_error_count(x11_disp), 1);
    EXPECT_EQ(last_x_error(), "BadWindow (invalid Window parameter), request 8.0");
}

TEST_F(FrameFixture, BlocksOfTheLibraryAreCounted) {
    const auto before = heap().allocations();
    char* block = grx_malloc(77);
    EXPECT_EQ(heap().living_since(before).substr(0, 8), "77 bytes");
    grx_free(block, 77);
    EXPECT_EQ(heap().living_since(before), "");
}

// --- by planes --------------------------------------------------------------------------------------------

class FrameOn24 : public On24 {};
class FrameOn8 : public On8 {};
class FrameOn16 : public On16 {};

TEST_F(FrameOn24, RunsOn24Planes) {
    EXPECT_EQ(DefaultDepth(x11_disp, 0), 24);
}

TEST_F(FrameOn8, RunsOn8Planes) {
    EXPECT_EQ(DefaultDepth(x11_disp, 0), 8);
}

TEST_F(FrameOn16, RunsOn16PlanesWithTheLibraryAtRest) {
    EXPECT_EQ(x11_disp, nullptr);
    EXPECT_EQ(DefaultDepth(test_display(), 0), 16);
}

class FrameAlt32On24 : public On24 {
    void before_start() override { fake_.emplace(FakeVisual::Kind::alt32); }
    std::optional<FakeVisual> fake_;
};

TEST_F(FrameAlt32On24, WindowsGetAVisualThatIsNotTheRoots) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    XWindowAttributes attributes{};
    XGetWindowAttributes(x11_disp, XtWindow(window), &attributes);
    EXPECT_EQ(attributes.depth, 32);
    EXPECT_EQ(DefaultDepth(x11_disp, 0), 24);
}

class FrameHogOn8 : public On8 {
    void before_start() override { hog_.emplace(server().name(), 60); }

  protected:
    std::optional<CellHog> hog_;
};

TEST_F(FrameHogOn8, TheLibraryStartsWithTheCellsThatAreLeft) {
    EXPECT_GT(hog_->held(), 0);
    EXPECT_EQ(x11_vis->c_class, PseudoColor);
}

// --- under window managers ----------------------------------------------------------------------------------

class FrameWmTest : public WmTest {};

TEST_F(FrameWmTest, MwmPutsAFrameAround) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    Widget shell = grx_recherche_shell(window);
    ASSERT_TRUE(wait_for([&] { return frame(shell) != None; }));
    const Area frame = frame_area(shell);
    EXPECT_EQ(frame.width, 200 + 2 * 7);
    EXPECT_EQ(frame.height, 150 + 2 * 7 + 17);
}

TEST_F(FrameWmTest, AWindowIsDraggedByItsTitle) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    Widget shell = grx_recherche_shell(window);
    ASSERT_TRUE(wait_for([&] { return frame(shell) != None; }));
    drain();
    events.clear();
    const Area before = frame_area(shell);
    const Point title{before.x + before.width / 2, before.y + 15};
    ASSERT_TRUE(pointer().drag_frame(title, {title.x + 80, title.y + 40}));
    ASSERT_TRUE(events.wait(GRX_EVT_DEPLACEMENT)) << events.describe();
    EXPECT_EQ(frame_area(shell), (Area{before.x + 80, before.y + 40, before.width, before.height}));
}

class FrameOpenboxWmTest : public WmTest {
    WindowManager::Kind manager_kind() const override { return WindowManager::Kind::openbox; }
};

TEST_F(FrameOpenboxWmTest, OpenboxPutsAFrameAround) {
    Widget window = grx_recup_objet_fen(shown_window(100, 120));
    ASSERT_TRUE(wait_visible(window));
    ASSERT_TRUE(wait_for([&] { return frame(grx_recherche_shell(window)) != None; }));
    EXPECT_TRUE(manager().running());
}

} // namespace
