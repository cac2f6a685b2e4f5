// Icons of windows and of the application: as the property of desktops and as pixmaps.
#include "tests/display/windows/manners_kit.h"
#include "tests/support/counters.h"

#include "pure/size.h"
#include "system/shut_down.h"

#include <climits>

namespace {

using namespace grxtest;

std::vector<UNSIGNED_INT> filled(INT width, INT height, UNSIGNED_INT pixel) {
    return std::vector<UNSIGNED_INT>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), pixel);
}

INT add(INT nofen, INT width, INT height, UNSIGNED_INT pixel) {
    return grx_ajoute_icone_fenetre(nofen, width, height, filled(width, height, pixel).data());
}

struct ShownIcon {
    grx::Size size;
    unsigned depth = 0;
    Pixmap picture = None, mask = None;
};

class Icons : public Creation {
  protected:
    std::vector<long> values(INT nofen) {
        return property_of(test_display(), shell_window(nofen), "_NET_WM_ICON").longs;
    }
    ShownIcon shown(INT nofen) {
        XSync(x11_disp, False);
        ShownIcon result;
        const std::unique_ptr<XWMHints, int (*)(void*)> hints(XGetWMHints(test_display(), shell_window(nofen)), XFree);
        if (!hints || !(hints->flags & IconPixmapHint)) return result;
        result.picture = hints->icon_pixmap;
        if (hints->flags & IconMaskHint) result.mask = hints->icon_mask;
        Window root = None;
        int x = 0, y = 0;
        unsigned width = 0, height = 0, border = 0;
        if (!XGetGeometry(test_display(), result.picture, &root, &x, &y, &width, &height, &border, &result.depth))
            return {};
        result.size = {static_cast<int>(width), static_cast<int>(height)};
        return result;
    }
};

TEST_F(Icons, OneWindowHasIt) {
    const INT top = make(GRX_FEN_ALPHA), other = make(GRX_FEN_ALPHA);
    const UNSIGNED_INT pixels[] = {0xFF112233, 0x80445566, 0x00000000, 0xFFFFFFFF, 0x01020304, 0xFF000000};
    ASSERT_EQ(grx_ajoute_icone_fenetre(top, 3, 2, pixels), 1);
    const std::vector<long> expected{3, 2, 0xFF112233, 0x80445566, 0, 0xFFFFFFFF, 0x01020304, 0xFF000000};
    EXPECT_EQ(values(top), expected);
    EXPECT_EQ(property_of(test_display(), shell_window(top), "_NET_WM_ICON").type, "CARDINAL");
    EXPECT_TRUE(values(other).empty());
    EXPECT_EQ(shown(top).size, (grx::Size{3, 2}));
    EXPECT_EQ(shown(other).size, (grx::Size{64, 64})) << "that of the library";
}

TEST_F(Icons, SeveralSizesStandOneAfterTheOtherAndEachOnce) {
    const INT top = make(GRX_FEN_ALPHA);
    ASSERT_EQ(add(top, 1, 1, 1), 1);
    ASSERT_EQ(add(top, 2, 1, 2), 1);
    ASSERT_EQ(add(top, 1, 2, 3), 1);
    EXPECT_EQ(values(top), (std::vector<long>{1, 1, 1, 2, 1, 2, 2, 1, 2, 3, 3}));
    ASSERT_EQ(add(top, 2, 1, 9), 1);
    EXPECT_EQ(values(top), (std::vector<long>{1, 1, 1, 2, 1, 9, 9, 1, 2, 3, 3})) << "the same size is replaced";
}

TEST_F(Icons, TheApplicationsIsOnAllWindowsThatHaveNone) {
    const INT before = make(GRX_FEN_ALPHA), own = make(GRX_FEN_ALPHA);
    ASSERT_EQ(add(own, 2, 2, 7), 1);
    ASSERT_EQ(add(GRX_AUCUN, 1, 1, 5), 1);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    window.fen_mere = before;
    const INT after = make(GRX_FEN_ALPHA), child = make(window);
    for (INT n : {before, after, child}) {
        EXPECT_EQ(values(n), (std::vector<long>{1, 1, 5})) << n;
        EXPECT_EQ(shown(n).size, (grx::Size{1, 1})) << n;
    }
    EXPECT_EQ(values(own).size(), 6U);
    ASSERT_EQ(grx_supprime_icones_fenetre(own), 1);
    EXPECT_EQ(values(own), (std::vector<long>{1, 1, 5})) << "now it has the application's";
    ASSERT_EQ(grx_supprime_icones_fenetre(GRX_AUCUN), 1);
    for (INT n : {before, after, own}) {
        EXPECT_TRUE(values(n).empty()) << n;
        EXPECT_EQ(shown(n).size, (grx::Size{64, 64})) << n;
    }
    EXPECT_EQ(shown(child).picture, None);
    EXPECT_TRUE(values(make(GRX_FEN_ALPHA)).empty());
    EXPECT_EQ(grx_supprime_icones_fenetre(GRX_AUCUN), 1) << "again";
    EXPECT_EQ(grx_supprime_icones_fenetre(own), 1);
}

TEST_F(Icons, AnotherWindowOfTheSameNumberHasAnIconOfItsOwn) {
    const INT top = make(GRX_FEN_ALPHA);
    ASSERT_EQ(add(top, 1, 1, 5), 1);
    grx_detruit_fenetre(top);
    drain();
    const INT again = make(GRX_FEN_ALPHA);
    ASSERT_EQ(again, top);
    EXPECT_TRUE(values(again).empty());
}

class IconsBeforeStart : public Icons {
    void before_start() override {
        Icons::before_start();
        ASSERT_EQ(add(GRX_AUCUN, 16, 16, 0xFF00FF00), 1);
        ASSERT_EQ(add(GRX_AUCUN, 48, 48, 0xFF0000FF), 1);
        EXPECT_EQ(add(1, 16, 16, 0), GRX_ECHEC_AFFICHAGE);
    }
};

TEST_F(IconsBeforeStart, TheApplicationsIconWaitsForTheWindows) {
    const INT top = make(GRX_FEN_ALPHA);
    EXPECT_EQ(values(top).size(), 2 + 256 + 2 + 2304U);
    EXPECT_EQ(shown(top).size, (grx::Size{48, 48})) << "the one that suits managers of pixmaps";
    EXPECT_FALSE(property_of(test_display(), shell_window(top), "_NET_WM_PID").there) << "an icon is no identity";
}

// --- pixmaps --------------------------------------------------------------------------------------------------

class IconsOn24 : public Icons {};

TEST_F(IconsOn24, ThePixmapHasTheColoursAndTheMask) {
    const INT top = make(GRX_FEN_ALPHA);
    const UNSIGNED_INT pixels[] = {0xFF112233, 0xFFFF0000, 0x7F00FF00, 0x80FFFFFF};
    ASSERT_EQ(grx_ajoute_icone_fenetre(top, 2, 2, pixels), 1);
    const ShownIcon icon = shown(top);
    ASSERT_EQ(icon.depth, 24U);
    const Pixels picture = grab(x11_disp, icon.picture), mask = grab(x11_disp, icon.mask);
    EXPECT_EQ(picture.at(0, 0), 0x112233U);
    EXPECT_EQ(picture.at(1, 0), 0xFF0000U);
    EXPECT_EQ(picture.at(0, 1), 0x6AE96AU) << "over light grey, for managers that ignore the mask";
    EXPECT_EQ(picture.at(1, 1), 0xE9E9E9U);
    EXPECT_EQ(mask.at(0, 0), 1U);
    EXPECT_EQ(mask.at(0, 1), 0U) << "more transparent than not";
    EXPECT_EQ(mask.at(1, 1), 1U);
}

class IconsOn8 : public Icons {};

TEST_F(IconsOn8, ThePixmapIsBlackAndWhite) {
    const INT top = make(GRX_FEN_ALPHA);
    const UNSIGNED_INT pixels[] = {0xFF000000, 0xFFFFFFFF, 0xFF000000, 0x00000000};
    ASSERT_EQ(grx_ajoute_icone_fenetre(top, 2, 2, pixels), 1);
    const ShownIcon icon = shown(top);
    ASSERT_EQ(icon.depth, 1U);
    const Pixels picture = grab(x11_disp, icon.picture), mask = grab(x11_disp, icon.mask);
    EXPECT_EQ(picture.at(0, 0), 1U);
    EXPECT_EQ(picture.at(1, 0), 0U);
    EXPECT_EQ(picture.at(1, 1), 0U) << "what cannot be seen is white";
    EXPECT_EQ(mask.at(1, 0), 1U);
    EXPECT_EQ(mask.at(1, 1), 0U);
}

TEST_F(Icons, ALargePictureBecomesASmallPixmap) {
    const INT top = make(GRX_FEN_ALPHA);
    ASSERT_EQ(add(top, 256, 128, 0xFF123456), 1);
    EXPECT_EQ(shown(top).size, (grx::Size{64, 32}));
}

// --- large ----------------------------------------------------------------------------------------------------

TEST_F(Icons, TenMegabytesGoInPiecesThatTheServerTakes) {
    const INT top = make(GRX_FEN_ALPHA);
    std::vector<UNSIGNED_INT> pixels(2048 * 1280);
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<UNSIGNED_INT>(i * 2654435761U);
    Cost cost(x11_disp);
    ASSERT_EQ(grx_ajoute_icone_fenetre(top, 2048, 1280, pixels.data()), 1);
    EXPECT_LE(cost.round_trips(), 1U);
    const std::vector<long> told = values(top);
    ASSERT_EQ(told.size(), pixels.size() + 2);
    EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), told.begin() + 2,
        [](UNSIGNED_INT given, long read) { return static_cast<long>(given) == read; }));
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

class IconsOnASmallServer : public Icons {
    XServerOptions server_options() const override { return {.arguments = {"-maxbigreqsize", "1"}}; }
};

TEST_F(IconsOnASmallServer, PiecesAreAsSmallAsItWants) {
    const INT top = make(GRX_FEN_ALPHA);
    ASSERT_LT(XExtendedMaxRequestSize(x11_disp), 2048 * 1280);
    ASSERT_EQ(add(top, 2048, 1280, 0xFF123456), 1);
    const std::vector<long> told = values(top);
    ASSERT_EQ(told.size(), 2048U * 1280 + 2);
    EXPECT_EQ(std::count(told.begin() + 2, told.end(), 0xFF123456L), 2048L * 1280);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(Icons, ThereIsRoomForSixteenSizesAndSixteenMegabytes) {
    const INT top = make(GRX_FEN_ALPHA);
    for (INT side = 1; side <= 16; ++side) ASSERT_EQ(add(top, side, side, 1), 1);
    EXPECT_EQ(add(top, 17, 17, 1), GRX_ECHEC_PLEIN);
    EXPECT_EQ(add(top, 16, 16, 2), 1) << "the same size again";
    const INT other = make(GRX_FEN_ALPHA);
    ASSERT_EQ(add(other, 2048, 2047, 1), 1);
    const auto before = values(other).size();
    EXPECT_EQ(add(other, 2047, 2048, 1), GRX_ECHEC_PLEIN);
    EXPECT_EQ(values(other).size(), before);
}

// --- bad input --------------------------------------------------------------------------------------------------

TEST_F(Icons, WhatIsRefused) {
    const INT top = make(GRX_FEN_ALPHA);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE));
    const UNSIGNED_INT pixel = 0;
    for (INT n : {0, -2, 99, 100, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_ajoute_icone_fenetre(n, 1, 1, &pixel), GRX_ECHEC_NUMERO) << n;
        EXPECT_EQ(grx_supprime_icones_fenetre(n), GRX_ECHEC_NUMERO) << n;
    }
    EXPECT_EQ(grx_ajoute_icone_fenetre(nested, 1, 1, &pixel), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_supprime_icones_fenetre(nested), GRX_ECHEC_GENRE);
    for (INT n : {top, INT{GRX_AUCUN}}) {
        for (INT bad : {0, -1, 2049, INT_MAX, INT_MIN}) {
            EXPECT_EQ(grx_ajoute_icone_fenetre(n, bad, 1, &pixel), GRX_ECHEC_PARAMETRE);
            EXPECT_EQ(grx_ajoute_icone_fenetre(n, 1, bad, &pixel), GRX_ECHEC_PARAMETRE);
        }
        EXPECT_EQ(grx_ajoute_icone_fenetre(n, 1, 1, nullptr), GRX_ECHEC_PARAMETRE);
    }
    EXPECT_TRUE(values(top).empty());
}

TEST_F(Icons, MemoryThatFailsChangesNothingOrGoesOnInSmallPieces) {
    const INT top = make(GRX_FEN_ALPHA);
    const int failures = fail_each_allocation([&] {
        grx_supprime_icones_fenetre(top);
        const INT result = add(top, 40, 40, 5);
        EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
        EXPECT_EQ(values(top).size(), result == 1 ? 1602U : 0U);
    });
    EXPECT_EQ(failures, 2);
}

TEST_F(Icons, AShutDownFreesThem) {
    const INT top = make(GRX_FEN_ALPHA);
    const auto pixmaps = [&] {
        XSync(x11_disp, False);
        return server_resources(test_display(), shell_window(top))["PIXMAP"];
    };
    const std::size_t blocks = heap().blocks();
    const unsigned before = pixmaps();
    add(top, 16, 16, 1);
    add(GRX_AUCUN, 16, 16, 1);
    EXPECT_EQ(heap().blocks(), blocks + 2);
    grx::run_shut_down();
    EXPECT_LE(heap().blocks(), blocks);
    EXPECT_EQ(pixmaps(), before);
}

TEST_F(Icons, FiveHundredRoundsLeaveNothingBehind) {
    const auto round = [&] {
        const INT n = make(GRX_FEN_ALPHA);
        add(n, 16, 16, 0xFF00FF00);
        add(n, 32, 32, 0xFF00FF00);
        add(GRX_AUCUN, 8, 8, 0xFF00FF00);
        grx_supprime_icones_fenetre(GRX_AUCUN);
        grx_detruit_fenetre(n);
        drain();
    };
    const INT first = make(GRX_FEN_ALPHA);
    round();
    const auto pixmaps = [&] { return server_resources(test_display(), shell_window(first))["PIXMAP"]; };
    const unsigned before = pixmaps();
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(pixmaps(), before);
}

} // namespace
