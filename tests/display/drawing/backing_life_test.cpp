// Pictures put aside, and what becomes of backing pictures while windows are covered, hidden, resized and iconified.
#include "tests/display/drawing/backing_kit.h"

#include "xt_prive.h"

#include <Xm/Xm.h>

#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

// --- putting a picture aside -----------------------------------------------------------------------------------------

class SavedPicture : public BackingTest {};

TEST_F(SavedPicture, ComesBackAsOftenAsWanted) {
    const INT window = graphic_window();
    draw_picture(window);
    const Pixels before = screen(window);
    EXPECT_EQ(grx_sauve_fenetre(window), 1);
    for (int i = 0; i < 3; ++i) {
        draw_picture(window, 50U + static_cast<unsigned>(i));
        EXPECT_GT(differences(screen(window), before), 100);
        EXPECT_EQ(grx_restore_fenetre(window), 1);
        EXPECT_TRUE(same(screen(window), before));
    }
}

TEST_F(SavedPicture, IsNotTheBackingPicture) {
    const INT window = graphic_window();
    draw_picture(window);
    grx_sauve_fenetre(window);
    EXPECT_EQ(memory(window).count_other(background()), 0);
}

TEST_F(SavedPicture, RecordsItsSize) {
    const INT window = graphic_window();
    EXPECT_EQ(grx::save_slot(window)->image, 0U);
    grx_sauve_fenetre(window);
    EXPECT_NE(grx::save_slot(window)->image, 0U);
    EXPECT_EQ(grx::save_slot(window)->lar, width);
    EXPECT_EQ(grx::save_slot(window)->hau, height);
}

TEST_F(SavedPicture, AnotherSavingReplacesIt) {
    const INT window = graphic_window();
    draw(window, box(9, 0, 0, 9, 9));
    grx_sauve_fenetre(window);
    const Pixmap first = grx::save_slot(window)->image;
    draw(window, box(12, 0, 0, 9, 9));
    EXPECT_EQ(grx_sauve_fenetre(window), 1);
    grx_efface_zone_graphique(window);
    EXPECT_EQ(grx_restore_fenetre(window), 1);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 100);
    permit_x_errors();
    EXPECT_TRUE(first == grx::save_slot(window)->image || grab(x11_disp, first).empty());
}

TEST_F(SavedPicture, NothingSavedGives0) {
    const INT window = graphic_window();
    draw(window, box(9, 0, 0, 9, 9));
    EXPECT_EQ(grx_restore_fenetre(window), 0);
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
}

TEST_F(SavedPicture, AnotherSizeDiscardsIt) {
    const INT window = graphic_window();
    draw_picture(window);
    grx_sauve_fenetre(window);
    const Pixmap saved = grx::save_slot(window)->image;
    grx_change_taille_fenetre(window, width + 20, height);
    drain();
    EXPECT_EQ(grx_restore_fenetre(window), 0);
    EXPECT_EQ(grx::save_slot(window)->image, 0U);
    EXPECT_EQ(grx_restore_fenetre(window), 0);
    grx_change_taille_fenetre(window, width, height);
    drain();
    EXPECT_EQ(grx_restore_fenetre(window), 0); // gone for good
    permit_x_errors();
    EXPECT_TRUE(grab(x11_disp, saved).empty());
}

TEST_F(SavedPicture, BackAtItsSizeItIsStillThere) {
    const INT window = graphic_window();
    draw_picture(window);
    const Pixels before = screen(window);
    grx_sauve_fenetre(window);
    grx_change_taille_fenetre(window, width + 20, height);
    drain();
    grx_change_taille_fenetre(window, width, height);
    drain();
    EXPECT_EQ(grx_restore_fenetre(window), 1);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(SavedPicture, DiesWithItsWindow) {
    const INT window = graphic_window();
    draw_picture(window);
    grx_sauve_fenetre(window);
    const Pixmap saved = grx::save_slot(window)->image;
    grx_detruit_fenetre(window);
    drain();
    const INT again = graphic_window();
    ASSERT_EQ(again, window);
    EXPECT_EQ(grx_restore_fenetre(again), 0);
    EXPECT_EQ(screen(again).count_other(background()), 0);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    permit_x_errors();
    EXPECT_TRUE(grab(x11_disp, saved).empty());
}

TEST_F(SavedPicture, IsForEveryKindOfWindow) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    draw(window, box(9, 0, 0, 9, 9));
    EXPECT_EQ(grx_sauve_fenetre(window), 1);
    grx_efface_zone_graphique(window);
    EXPECT_EQ(grx_restore_fenetre(window), 1);
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
}

TEST_F(SavedPicture, OfEachWindowIsItsOwn) {
    const INT one = graphic_window();
    const INT two = graphic_window({400, 60, width, height});
    draw(one, box(9, 0, 0, 9, 9));
    draw(two, box(12, 0, 0, 9, 9));
    grx_sauve_fenetre(one);
    EXPECT_EQ(grx_restore_fenetre(two), 0);
    grx_sauve_fenetre(two);
    grx_efface_zone_graphique(one);
    grx_efface_zone_graphique(two);
    grx_restore_fenetre(one);
    grx_restore_fenetre(two);
    EXPECT_EQ(screen(one).count(drawn_pixel(9)), 100);
    EXPECT_EQ(screen(two).count(drawn_pixel(12)), 100);
}

TEST_F(SavedPicture, CopiesWhateverTheModeWas) {
    const INT window = graphic_window();
    draw(window, box(9, 0, 0, 9, 9));
    const Pixels before = screen(window);
    const auto memo_of = [&](INT (*operation)(INT)) {
        draw(window, {Kind::segment, attributes(12, 0, xor_mode), {0, 100, 50, 100}, {}});
        draw(window, {Kind::segment, attributes(12, 0, xor_mode), {0, 100, 50, 100}, {}});
        const auto memo = grx::memo_attrib;
        operation(window);
        XGCValues values{};
        XGetGCValues(x11_disp, g_c, GCFunction, &values);
        EXPECT_EQ(values.function, GXcopy);
        EXPECT_EQ(grx::memo_attrib.mode, memo.mode); // the memo is not updated
        EXPECT_EQ(grx::memo_attrib.coul_trace, memo.coul_trace);
    };
    memo_of(grx_sauve_fenetre);
    memo_of(grx_restore_fenetre);
    EXPECT_TRUE(same(screen(window), before));
    draw(window, {Kind::segment, attributes(12, 0, xor_mode), {0, 100, 50, 100}, {}});
    draw(window, {Kind::segment, attributes(12, 0, xor_mode), {0, 100, 50, 100}, {}});
    EXPECT_TRUE(same(screen(window), before)); // and exclusive-or is in force again
}

TEST_F(SavedPicture, SavingWaitsForNobody) {
    const INT window = graphic_window();
    const Cost cost(x11_disp);
    grx_sauve_fenetre(window);
    grx_restore_fenetre(window);
    EXPECT_EQ(cost.round_trips(), 0U);
}

TEST_F(SavedPicture, IsTheScreenEvenWhileMemoryDrawingIsOn) {
    const INT window = active_window();
    draw(window, box(9, 0, 0, 9, 9));
    grx_alloue_image(window);
    grx_sauve_fenetre(window);
    grx_efface_zone_graphique(window);
    grx_restore_fenetre(window);
    grx_desalloue_image();
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
    EXPECT_EQ(memory(window).count_other(background()), 0);
}

// --- what the user does to windows --------------------------------------------------------------------------------------

// On 24 planes the server keeps the pictures, on 8 it does not: the second suite runs without it on both.
class PictureLife : public BackingTest {
  protected:
    // A window whose picture is shown and in its backing picture.
    INT window_with_picture(const Area& area = {40, 60, width, height}) {
        const INT window = active_window(area);
        grx_alloue_image(window);
        draw_picture(window);
        grx_desalloue_image();
        grx_affiche_bitmap_backingstore(window);
        drain();
        events.clear();
        return window;
    }

    void cover_and_uncover(INT window) {
        const Pixels before = screen(window);
        ASSERT_GT(before.count_other(background()), 1000);
        {
            const Cover cover(test_display(), {60, 80, 120, 100});
            drain();
        }
        drain();
        EXPECT_TRUE(same(part_of_screen(x11_disp, {40, 60, width, height}), before));
        EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 0) << events.describe();
    }

    void hide_and_show(INT window) {
        const Pixels before = screen(window);
        grx_cache_fenetre(window);
        ASSERT_TRUE(wait_for([&] { return !visible(x_window(window)); }));
        grx_affiche_fenetre(window);
        ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window)));
        drain();
        EXPECT_TRUE(same(screen(window), before));
        EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 0) << events.describe();
    }
};

class PictureLifeWithoutServer : public PictureLife {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-bs"};
        return options;
    }
};

TEST_F(PictureLife, UncoveredItIsThereAgain) {
    cover_and_uncover(window_with_picture());
}

TEST_F(PictureLifeWithoutServer, UncoveredItIsThereAgain) {
    cover_and_uncover(window_with_picture());
}

TEST_F(PictureLife, ShownAgainItIsThereAgain) {
    hide_and_show(window_with_picture());
}

TEST_F(PictureLifeWithoutServer, ShownAgainItIsThereAgain) {
    hide_and_show(window_with_picture());
}

TEST_F(PictureLifeWithoutServer, WithoutBackingTheApplicationIsAsked) {
    const INT window = window_with_picture();
    grx_interdit_backingstore(window, 1);
    {
        const Cover cover(test_display(), {60, 80, 120, 100});
        drain();
    }
    const auto asked = events.wait(GRX_EVT_AFFICHAGE);
    ASSERT_TRUE(asked) << events.describe();
    EXPECT_EQ(asked->affichage.nofen, window);
    EXPECT_EQ(screen(window).part({20, 20, 120, 100}).count_other(background()), 0);
}

TEST_F(PictureLife, ForbiddenItIsAskedForAgainAfterHiding) {
    const INT window = window_with_picture();
    grx_interdit_backingstore(window, 1);
    grx_cache_fenetre(window);
    ASSERT_TRUE(wait_for([&] { return !visible(x_window(window)); }));
    events.clear();
    grx_affiche_fenetre(window);
    const auto asked = events.wait(GRX_EVT_AFFICHAGE);
    ASSERT_TRUE(asked) << events.describe();
    EXPECT_EQ(asked->affichage.nofen, window);
}

TEST_F(PictureLifeWithoutServer, MemorisedDrawingComesBack) {
    const INT window = active_window();
    draw_picture(window);
    grx_memorise_bitmap_backingstore(window);
    drain();
    events.clear();
    cover_and_uncover(window);
}

TEST_F(PictureLifeWithoutServer, WhatWasDrawnOnTheScreenOnlyIsLost) {
    const INT window = active_window();
    draw(window, box(9, 0, 0, width - 1, height - 1));
    {
        const Cover cover(test_display(), {60, 80, 120, 100});
        drain();
    }
    drain();
    EXPECT_EQ(screen(window).part({20, 20, 120, 100}).count_other(background()), 0);
}

TEST_F(PictureLifeWithoutServer, AMemoryDrawingIsNotDisturbedByAnExposure) {
    const INT window = window_with_picture();
    grx_alloue_image(window);
    draw(window, box(9, 0, 0, 9, 9));
    {
        const Cover cover(test_display(), {60, 80, 120, 100});
        drain();
    }
    drain();
    draw(window, box(12, 20, 0, 29, 9));
    EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
    EXPECT_EQ(memory(window).count(drawn_pixel(12)), 100);
    grx_desalloue_image();
}

TEST_F(PictureLife, AResizedWindowStartsAnew) {
    const INT window = window_with_picture();
    for (const auto& size : std::vector<std::pair<INT, INT>>{{300, 220}, {100, 90}, {300, 60}}) {
        grx_change_taille_fenetre(window, size.first, size.second);
        drain();
        const Pixels picture = memory(window);
        EXPECT_EQ(picture.width, size.first);
        EXPECT_EQ(picture.height, size.second);
        EXPECT_EQ(picture.count_other(background()), 0);
        grx_alloue_image(window);
        draw(window, box(9, size.first - 10, size.second - 10, size.first - 1, size.second - 1));
        grx_desalloue_image();
        EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 0);
        EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
        EXPECT_EQ(screen(window).count_other(background()), 100);
    }
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(PictureLife, BackedWindowsMayBeCoveredByEachOther) {
    const INT below = window_with_picture();
    const Pixels before = screen(below);
    const INT above = graphic_window({100, 100, width, height});
    draw(above, box(12, 0, 0, width - 1, height - 1));
    grx_detruit_fenetre(above);
    drain();
    EXPECT_TRUE(same(screen(below), before));
}

class PictureWmTest : public WmTest {
  protected:
    // A graphic window of 240 x 180 on the screen; its number.
    INT shown_plan() {
        GRX_FENETRE window{};
        grx_init_fenetre(&window);
        window.type = GRX_FEN_GRAPHIQUE;
        window.x = 100;
        window.y = 300;
        window.droite = 240;
        window.haut = 180;
        EXPECT_EQ(grx_cree_fenetre(&window), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_fen(window.nofen)));
        return window.nofen;
    }
};

TEST_F(PictureWmTest, RestoredFromItsIconItIsThereAgain) {
    const INT plan = shown_plan();
    ASSERT_GT(plan, 0);
    Widget widget = grx_recup_objet_fen(plan);
    drain();
    grx_affecte_nofen_active(plan);
    grx_alloue_image(plan);
    RandomPrimitives random(5, 240, 180);
    for (int i = 0; i < 60; ++i) draw(plan, random.next());
    grx_desalloue_image();
    ASSERT_EQ(grx_affiche_bitmap_backingstore(plan), 0);
    const Pixels before = grab(x11_disp, XtWindow(widget));
    ASSERT_GT(before.count_other(drawn_pixel(0)), 1000);
    events.clear();

    grx_iconifie_fenetre(plan);
    ASSERT_TRUE(events.wait(GRX_EVT_ICONIFICATION)) << events.describe();
    EXPECT_FALSE(visible(XtWindow(widget)));
    grx_desiconifie_fenetre(plan);
    ASSERT_TRUE(events.wait(GRX_EVT_DESICONIF)) << events.describe();
    ASSERT_TRUE(wait_visible(widget));
    drain();
    EXPECT_TRUE(same(grab(x11_disp, XtWindow(widget)), before));
}

TEST_F(PictureWmTest, ResizedFromOutsideItStartsAnew) {
    const INT plan = shown_plan();
    ASSERT_GT(plan, 0);
    Widget widget = grx_recup_objet_fen(plan);
    Widget shell = grx_recherche_shell(widget);
    ASSERT_TRUE(wait_for([&] { return frame(shell) != None; }));
    drain();
    draw(plan, box(9, 0, 0, 50, 50));
    grx_memorise_bitmap_backingstore(plan);
    events.clear();
    XResizeWindow(test_display(), XtWindow(shell), 300, 220); // the manager is asked, not the library
    XSync(test_display(), False);
    ASSERT_TRUE(events.wait(GRX_EVT_CHGT_TAILLE)) << events.describe();
    drain();
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(plan, &record);
    const Pixels picture = grab(x11_disp, *record->image);
    const Pixels shown = grab(x11_disp, XtWindow(widget));
    EXPECT_EQ(shown.width, 300);
    EXPECT_EQ(shown.height, 220);
    EXPECT_EQ(picture.width, shown.width);
    EXPECT_EQ(picture.height, shown.height);
    EXPECT_EQ(picture.count_other(drawn_pixel(0)), 0);
}

} // namespace
