// What window managers make of windows with manners: where they put them, what they keep together, what they ask.
#include "tests/display/windows/manners_kit.h"

#include "pure/placement.h"

#include <cstdlib>

namespace {

using namespace grxtest;
using Kind = WindowManager::Kind;

class MannersWmTest : public WmTest, public testing::WithParamInterface<Kind> {
  protected:
    WindowManager::Kind manager_kind() const override { return GetParam(); }
    void before_start() override {
        write_menu("");
        ASSERT_EQ(Arguments({"plan", "-geometry", "400x300-0-0"}).take(), 1);
        const GRX_IDENTITE who = identity("plan", "Plan");
        ASSERT_EQ(grx_affecte_identite(&who), 1);
    }

    bool framed(INT nofen) {
        return wait_for([&] { return visible(XtWindow(widget_of(nofen))) && frame(shell_of(nofen)) != None; });
    }
    INT shown(GRX_FENETRE window) {
        const INT n = make(window);
        EXPECT_GT(n, 0);
        EXPECT_TRUE(framed(n));
        drain();
        return n;
    }
    static GRX_FENETRE described_at(
        INT x, INT top, INT width, INT height, INT parent = -1, INT attrib = GRX_FEN_ATT_VISIBLE) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA, attrib, width, height);
        window.x = x;
        window.y = 1024 - top - height;
        window.fen_mere = parent;
        return window;
    }
    Area frame_of(INT nofen) { return frame_area(shell_of(nofen)); }
    bool frame_at(INT nofen, INT x, INT y) {
        return wait_for([&] { return frame_of(nofen).x == x && frame_of(nofen).y == y; }, Milliseconds{3000});
    }
    long state(INT nofen) {
        const Property told = property_of(test_display(), shell_window(nofen), "WM_STATE");
        return told.longs.empty() ? -1 : told.longs.front();
    }
};

TEST_P(MannersWmTest, TheFrameStandsWhereTheProgramPutIt) {
    const INT top = shown(described_at(500, 300, 400, 300));
    EXPECT_TRUE(frame_at(top, 500, 300)) << testing::PrintToString(frame_of(top));
    const INT dialog = shown(described_at(250, 450, 200, 150, top));
    EXPECT_TRUE(frame_at(dialog, 250, 450)) << testing::PrintToString(frame_of(dialog));
    EXPECT_EQ(state(dialog), NormalState);
}

TEST_P(MannersWmTest, ADialogIsCentredOnItsParentBeforeItIsShown) {
    const INT top = shown(described_at(500, 300, 400, 300));
    const INT dialog = make(described_at(0, 0, 200, 150, top, 0));
    ASSERT_EQ(grx_centre_fenetre(dialog, top), 1);
    grx_affiche_fenetre(dialog);
    ASSERT_TRUE(framed(dialog));
    drain();
    const Area parent = frame_of(top);
    Area own = frame_of(dialog);
    // fvwm gives dialogs a thinner frame than their parent has, which nobody knows before.
    const int across = GetParam() == Kind::fvwm ? 6 : 1, down = GetParam() == Kind::fvwm ? 14 : 1;
    EXPECT_NEAR(own.x + own.width / 2, parent.x + parent.width / 2, across) << testing::PrintToString(own);
    EXPECT_NEAR(own.y + own.height / 2, parent.y + parent.height / 2, down) << testing::PrintToString(parent);
    ASSERT_EQ(grx_centre_fenetre(dialog, top), 1) << "now that it is shown";
    const auto centred = [&] {
        own = frame_of(dialog);
        return std::abs(own.x + own.width / 2 - parent.x - parent.width / 2) <= 1
               && std::abs(own.y + own.height / 2 - parent.y - parent.height / 2) <= 1;
    };
    EXPECT_TRUE(wait_for(centred, Milliseconds{3000})) << testing::PrintToString(own);
}

TEST_P(MannersWmTest, AShownWindowIsCentredOnTheScreen) {
    const INT top = shown(described_at(100, 100, 400, 300));
    ASSERT_EQ(grx_centre_fenetre(top, GRX_AUCUN), 1);
    const auto centred = [&] {
        const Area own = frame_of(top);
        return std::abs(own.x + own.width / 2 - 640) <= 1 && std::abs(own.y + own.height / 2 - 512) <= 1;
    };
    EXPECT_TRUE(wait_for(centred, Milliseconds{3000})) << testing::PrintToString(frame_of(top));
}

TEST_P(MannersWmTest, TheUsersGeometryReachesTheCornerOfTheScreen) {
    const INT top = shown(described_at(100, 100, 200, 150, -1, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE));
    const auto in_corner = [&] {
        const Area own = frame_of(top);
        return own.x + own.width == 1280 && own.y + own.height == 1024;
    };
    EXPECT_TRUE(wait_for(in_corner, Milliseconds{3000})) << testing::PrintToString(frame_of(top));
    const Area client = server_area(test_display(), shell_window(top));
    EXPECT_EQ(client.width, 400);
    EXPECT_EQ(client.height, 300);
    EXPECT_EQ(position_flags(test_display(), top), USPosition);
}

TEST_P(MannersWmTest, AWindowThatBelongsToAnotherIsMinimisedWithIt) {
    const INT top = shown(described_at(500, 300, 400, 300));
    const INT other = make(described_at(100, 100, 200, 150, -1, 0));
    ASSERT_EQ(grx_rattache_fenetre(other, top), 1);
    ASSERT_EQ(grx_affecte_genre_fenetre(other, GRX_GENRE_UTILITAIRE), 1);
    grx_affiche_fenetre(other);
    ASSERT_TRUE(framed(other));
    grx_iconifie_fenetre(top);
    EXPECT_TRUE(
        wait_for([&] { return !visible(shell_window(top)) && !visible(shell_window(other)); }, Milliseconds{3000}));
    grx_desiconifie_fenetre(top);
    EXPECT_TRUE(
        wait_for([&] { return visible(shell_window(top)) && visible(shell_window(other)); }, Milliseconds{3000}));
}

TEST_P(MannersWmTest, AFreePlaceIsTheManagers) {
    const INT top = shown(described_at(500, 300, 400, 300));
    const INT dialog = make(described_at(700, 650, 200, 150, top, 0));
    ASSERT_EQ(grx_marque_place_fenetre(dialog, GRX_PLACE_LIBRE), 1);
    grx_affiche_fenetre(dialog);
    ASSERT_TRUE(framed(dialog));
    drain();
    const Area own = frame_of(dialog), parent = frame_of(top);
    const bool unmoved = own.x == 700 && own.y == 650;
    EXPECT_EQ(unmoved, GetParam() == Kind::mwm) << "mwm leaves dialogs alone, the others place them";
    if (GetParam() != Kind::openbox) return;
    EXPECT_NEAR(own.x + own.width / 2, parent.x + parent.width / 2, 1);
    EXPECT_NEAR(own.y + own.height / 2, parent.y + parent.height / 2, 1);
}

TEST_P(MannersWmTest, TitlesWithAccentsAndTheClassAreThereUnderAManager) {
    GRX_FENETRE window = described_at(500, 300, 400, 300);
    std::snprintf(window.titre, sizeof window.titre, "%s", "\xC9l\xE9vation");
    const INT top = shown(window);
    EXPECT_EQ(property_of(test_display(), shell_window(top), "_NET_WM_NAME").bytes, "\xC3\x89l\xC3\xA9vation");
    grx_change_titre_fenetre(top, writable("\xE9tage"));
    EXPECT_EQ(property_of(test_display(), shell_window(top), "_NET_WM_NAME").bytes, "\xC3\xA9tage");
    EXPECT_EQ(property_of(test_display(), shell_window(top), "WM_CLASS").bytes, std::string("plan\0Plan\0", 10));
}

// --- panels of the desktop --------------------------------------------------------------------------------------

// A panel along the upper edge of the screen.
Window panel(Display* display, int height) {
    const Window window =
        XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1280, static_cast<unsigned>(height), 0, 0, 0);
    const Atom dock = XInternAtom(display, "_NET_WM_WINDOW_TYPE_DOCK", False);
    XChangeProperty(display, window, XInternAtom(display, "_NET_WM_WINDOW_TYPE", False), XA_ATOM, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(&dock), 1);
    const long strut[] = {0, 0, height, 0};
    XChangeProperty(display, window, XInternAtom(display, "_NET_WM_STRUT", False), XA_CARDINAL, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(strut), 4);
    XMapWindow(display, window);
    XSync(display, False);
    return window;
}

TEST_P(MannersWmTest, WindowsStandBesideAPanel) {
    if (GetParam() == Kind::mwm) return; // which knows no panels
    panel(test_display(), 60);
    INT height = 0, y = -1;
    ASSERT_TRUE(
        wait_for([&] { return grx_recup_zone_travail(nullptr, &y, nullptr, &height) == 1 && height == 1024 - 60; }));
    EXPECT_EQ(y, 0) << "the panel is above";
    const INT top = shown(described_at(300, 0, 400, 300));
    EXPECT_TRUE(frame_at(top, 300, 60)) << testing::PrintToString(frame_of(top));
    ASSERT_EQ(grx_centre_fenetre(top, GRX_AUCUN), 1);
    const auto centred = [&] {
        const Area own = frame_of(top);
        return std::abs(own.y + own.height / 2 - (60 + 964 / 2)) <= 1;
    };
    EXPECT_TRUE(wait_for(centred, Milliseconds{3000})) << testing::PrintToString(frame_of(top));
}

INSTANTIATE_TEST_SUITE_P(Each, MannersWmTest, testing::Values(Kind::mwm, Kind::openbox, Kind::fvwm),
    [](const testing::TestParamInfo<Kind>& info) {
        return info.param == Kind::mwm ? "mwm" : info.param == Kind::openbox ? "openbox" : "fvwm";
    });

} // namespace
