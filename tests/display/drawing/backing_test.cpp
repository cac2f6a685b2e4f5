// Backing pictures of windows: made, shown, memorised, forbidden, and drawn into while memory drawing is on.
#include "tests/display/drawing/backing_kit.h"

#include "xt_prive.h"

#include <climits>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

// --- making and freeing --------------------------------------------------------------------------------------------

TEST_F(BackingTest, AGraphicWindowComesWithOne) {
    const INT window = graphic_window();
    ASSERT_NE(record(window).image, nullptr);
    EXPECT_EQ(record(window).backingstorable, 1);
    const Pixels picture = memory(window);
    EXPECT_EQ(picture.width, width);
    EXPECT_EQ(picture.height, height);
    EXPECT_EQ(picture.count_other(background()), 0);
}

TEST_F(BackingTest, OtherKindsHaveNone) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    EXPECT_EQ(record(window).image, nullptr);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 0);
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 1);
    grx_affecte_nofen_active(window);
    EXPECT_EQ(grx_alloue_image(window), 0);
    EXPECT_EQ(grx_backingstore_deja_cours(), 0);
    const Cost cost(x11_disp);
    grx_memorise_bitmap_backingstore(window);
    grx_supprime_bitmap_backingstore(window);
    grx_recree_bitmap_backingstore(window);
    EXPECT_EQ(cost.gc_changes(), 0U);
}

TEST_F(BackingTest, ItsColourIsTheBackgroundOfTheMoment) {
    const INT window = graphic_window();
    grx_affecte_couleur_fond(12);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    EXPECT_EQ(memory(window).count(drawn_pixel(12)), width * height);
    expect_background_context();
}

TEST_F(BackingTest, MakingItSynchronisesOnce) {
    const INT window = graphic_window();
    const Cost cost(x11_disp);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    EXPECT_EQ(cost.round_trips(), 1U);
}

TEST_F(BackingTest, MakingItAgainFreesTheOneBefore) {
    const INT window = graphic_window();
    const Pixmap before = *record(window).image;
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    ASSERT_NE(*record(window).image, before);
    EXPECT_EQ(x_error_count(x11_disp), 0);
    permit_x_errors();
    EXPECT_TRUE(grab(x11_disp, before).empty());
}

TEST_F(BackingTest, RecreatingEmptiesIt) {
    const INT window = active_window();
    grx_alloue_image(window);
    draw_picture(window);
    grx_desalloue_image();
    ASSERT_GT(memory(window).count_other(background()), 1000);
    const Pixmap before = *record(window).image;
    grx_recree_bitmap_backingstore(window);
    EXPECT_EQ(memory(window).count_other(background()), 0);
    permit_x_errors(); // the one before is gone
    EXPECT_TRUE(grab(x11_disp, before).empty() || before == *record(window).image);
}

// KEEP: the stored id is left as it is.
TEST_F(BackingTest, FreeingLeavesTheStoredId) {
    const INT window = graphic_window();
    const Pixmap before = *record(window).image;
    grx_supprime_bitmap_backingstore(window);
    ASSERT_NE(record(window).image, nullptr);
    EXPECT_EQ(*record(window).image, before);
    EXPECT_EQ(x_error_count(x11_disp), 0);
    permit_x_errors();
    EXPECT_TRUE(memory(window).empty()); // no such pixmap
}

TEST_F(BackingTest, WhatWasFreedIsNotFreedAgain) {
    const INT window = graphic_window();
    grx_supprime_bitmap_backingstore(window);
    grx_supprime_bitmap_backingstore(window);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    EXPECT_EQ(memory(window).count_other(background()), 0);
    grx_supprime_bitmap_backingstore(window);
    grx_recree_bitmap_backingstore(window);
    grx_supprime_bitmap_backingstore(window);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(BackingTest, UsingWhatWasFreedIsHarmless) {
    const INT window = active_window();
    grx_supprime_bitmap_backingstore(window);
    permit_x_errors(); // the server refuses each of them
    grx_memorise_bitmap_backingstore(window);
    grx_affiche_bitmap_backingstore(window);
    grx_alloue_image(window);
    draw(window, box(9, 0, 0, 9, 9));
    grx_desalloue_image();
    EXPECT_EQ(screen(window).count_other(background()), 0);
    EXPECT_EQ(grx_cree_bitmap_backingstore(window), 1);
    grx_alloue_image(window);
    draw(window, box(9, 0, 0, 9, 9));
    grx_desalloue_image();
    EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
}

TEST_F(BackingTest, UnknownWindowsHaveNone) {
    graphic_window();
    for (const INT window : unknown_windows) {
        EXPECT_EQ(grx_cree_bitmap_backingstore(window), 0) << window;
        EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 1) << window;
        EXPECT_EQ(grx_interdit_backingstore(window, 1), 0) << window;
        EXPECT_EQ(grx_interdit_backingstore(window, 0), 0) << window;
        grx_supprime_bitmap_backingstore(window);
        grx_memorise_bitmap_backingstore(window);
        grx_recree_bitmap_backingstore(window);
        EXPECT_EQ(grx_sauve_fenetre(window), 0) << window;
        EXPECT_EQ(grx_restore_fenetre(window), 0) << window;
    }
}

TEST_F(BackingTest, NoHeapIsLost) {
    const INT window = active_window();
    const NoLeak no_leak;
    for (int i = 0; i < 20; ++i) {
        grx_recree_bitmap_backingstore(window);
        grx_alloue_image(window);
        grx_desalloue_image();
        grx_sauve_fenetre(window);
        grx_restore_fenetre(window);
    }
}

// --- showing and memorising ------------------------------------------------------------------------------------------

TEST_F(BackingTest, ShowingCopiesAllOfItAtOnce) {
    const INT window = active_window();
    grx_alloue_image(window);
    draw_picture(window);
    grx_desalloue_image();
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 0);
    // It is there already: another connection sees it without a further word.
    const Pixels seen = part_of_screen(test_display(), {40, 60, width, height});
    EXPECT_TRUE(same(seen, memory(window)));
    EXPECT_GT(seen.count_other(background()), 1000);
    expect_background_context();
}

TEST_F(BackingTest, ShowingSynchronisesOnce) {
    const INT window = graphic_window();
    grx_affiche_bitmap_backingstore(window);
    const Cost cost(x11_disp);
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 0);
    EXPECT_EQ(cost.round_trips(), 1U);
    EXPECT_EQ(cost.requests(), 2U); // the copy and the synchronisation
}

TEST_F(BackingTest, ForbiddenIsNotShown) {
    const INT window = active_window();
    grx_alloue_image(window);
    draw(window, box(9, 0, 0, 9, 9));
    grx_desalloue_image();
    record(window).backingstorable = 0;
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 1);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    record(window).backingstorable = 5;
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 0);
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
}

TEST_F(BackingTest, MemorisingCopiesTheScreen) {
    const INT window = graphic_window();
    draw_picture(window);
    const Pixels before = screen(window);
    grx_memorise_bitmap_backingstore(window);
    EXPECT_TRUE(same(memory(window), before));
    expect_background_context();
    grx_efface_zone_graphique(window);
    EXPECT_EQ(grx_affiche_bitmap_backingstore(window), 0);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(BackingTest, MemorisingAsksNobodyAndNotWhetherItMay) {
    const INT window = graphic_window();
    draw(window, box(9, 0, 0, 9, 9));
    record(window).backingstorable = 0;
    const Cost cost(x11_disp);
    grx_memorise_bitmap_backingstore(window);
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
}

TEST_F(BackingTest, CopiesQueueNoEvents) {
    const INT window = active_window();
    grx_sync_server();
    drain();
    for (int i = 0; i < 5; ++i) {
        grx_affiche_bitmap_backingstore(window);
        grx_memorise_bitmap_backingstore(window);
        grx_sauve_fenetre(window);
        grx_restore_fenetre(window);
    }
    grx_sync_server();
    EXPECT_EQ(XEventsQueued(x11_disp, QueuedAlready), 0);
}

TEST_F(BackingTest, AfterEachOperationPrimitivesDrawAsTheyShould) {
    const INT window = active_window();
    const auto attrib = attributes(9, 0, xor_mode, 2, 3);
    const auto line = Primitive{Kind::segment, attrib, {5, 20, 230, 90}, {}};
    using Operation = void (*)(INT);
    const std::vector<Operation> operations{[](INT n) { grx_affiche_bitmap_backingstore(n); },
        [](INT n) { grx_memorise_bitmap_backingstore(n); }, [](INT n) { grx_cree_bitmap_backingstore(n); },
        [](INT n) { grx_sauve_fenetre(n); }, [](INT n) { grx_restore_fenetre(n); },
        [](INT n) {
            grx_alloue_image(n);
            grx_desalloue_image();
        }};
    for (std::size_t i = 0; i < operations.size(); ++i) {
        grx_efface_zone_graphique(window);
        draw(window, line);
        operations[i](window);
        grx_efface_zone_graphique(window);
        draw(window, line);
        PlainPicture plain(x11_disp, width, height, background());
        plain.draw(line);
        EXPECT_TRUE(same(screen(window), plain.pixels())) << "operation " << i;
    }
}

// --- forbidding -------------------------------------------------------------------------------------------------------

TEST_F(BackingTest, ForbiddingReachesRecordAndServer) {
    const INT window = graphic_window();
    EXPECT_EQ(server_backing(window), WhenMapped); // as created
    EXPECT_EQ(grx_interdit_backingstore(window, 1), 0);
    EXPECT_EQ(record(window).backingstorable, 0);
    EXPECT_EQ(server_backing(window), NotUseful);
    EXPECT_EQ(grx_interdit_backingstore(window, 0), 0);
    EXPECT_EQ(record(window).backingstorable, 1);
    EXPECT_EQ(server_backing(window), WhenMapped);
    EXPECT_EQ(grx_interdit_backingstore(window, -5), 0);
    EXPECT_EQ(record(window).backingstorable, 0);
}

// --- memory drawing ---------------------------------------------------------------------------------------------------

TEST_F(BackingTest, TheSwitchIsGlobalAndReadBack) {
    EXPECT_EQ(grx_backingstore_deja_cours(), 0);
    for (const INT number : {1, 0, -1, 100, INT_MAX}) {
        EXPECT_EQ(grx_enable_backingstore(number, 1), 0);
        EXPECT_EQ(grx::grx_trace_memoire, 1);
        EXPECT_EQ(grx_backingstore_deja_cours(), 1);
        EXPECT_EQ(grx_enable_backingstore(number, 0), 0);
        EXPECT_EQ(grx_backingstore_deja_cours(), 0);
    }
    grx_enable_backingstore(0, -7);
    EXPECT_EQ(grx::grx_trace_memoire, 1);
    grx_enable_backingstore(0, 0);
}

TEST_F(BackingTest, NoRedrawIsEverPending) {
    EXPECT_EQ(grx_redess_necessaire(), 0);
    const INT window = active_window();
    grx_alloue_image(window);
    EXPECT_EQ(grx_redess_necessaire(), 0);
    grx_desalloue_image();
}

TEST_F(BackingTest, SwitchedOnWithoutPictureDrawsOnTheScreen) {
    const INT window = graphic_window();
    grx_enable_backingstore(window, 1);
    draw(window, box(9, 0, 0, 9, 9));
    grx_enable_backingstore(window, 0);
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
}

TEST_F(BackingTest, TheSwitchOutlivesWindowsWithoutPicture) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    grx_enable_backingstore(0, 1);
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(grx_backingstore_deja_cours(), 1);
    grx_enable_backingstore(0, 0);
}

TEST_F(BackingTest, StartingEmptiesThePicture) {
    const INT window = active_window();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(grx_alloue_image(window), 0);
        EXPECT_EQ(grx::grx_trace_memoire, 1);
        EXPECT_EQ(grx::image_redess, record(window).image);
        EXPECT_EQ(memory(window).count_other(background()), 0);
        draw(window, box(9, 0, 0, 9, 9));
        EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
        EXPECT_EQ(grx_desalloue_image(), 0);
        EXPECT_EQ(grx_backingstore_deja_cours(), 0);
    }
}

TEST_F(BackingTest, StartingSendsTheBackgroundAnew) {
    const INT window = active_window();
    grx_reinit_gc();
    const Cost cost(x11_disp);
    grx_alloue_image(window);
    EXPECT_EQ(cost.gc_changes(), 1U);
    EXPECT_EQ(cost.round_trips(), 0U);
    grx_desalloue_image();
}

// KEEP: the active window, whatever the argument says.
TEST_F(BackingTest, StartingWorksOnTheActiveWindow) {
    const INT other = graphic_window({400, 60, width, height});
    const INT active = active_window();
    for (const INT number : {other, active, -1, 100}) {
        grx_alloue_image(number);
        EXPECT_EQ(grx::image_redess, record(active).image) << number;
        grx_desalloue_image();
    }
    for (const INT number : unknown_windows) {
        grx_affecte_nofen_active(number);
        EXPECT_EQ(grx_alloue_image(other), 0);
        EXPECT_EQ(grx_backingstore_deja_cours(), 0) << number;
    }
}

TEST_F(BackingTest, DrawingInAnotherWindowGoesIntoTheActiveOnesPicture) {
    const INT other = graphic_window({400, 60, width, height});
    const INT active = active_window();
    const Pixels before = screen(other);
    grx_alloue_image(active);
    draw_picture(other);
    grx_desalloue_image();
    EXPECT_TRUE(same(screen(other), before));
    EXPECT_EQ(memory(other).count_other(background()), 0);
    EXPECT_GT(memory(active).count_other(background()), 1000);
    EXPECT_EQ(screen(active).count_other(background()), 0);
    draw(other, box(9, 0, 0, 9, 9));
    EXPECT_EQ(screen(other).count(drawn_pixel(9)), 100);
}

TEST_F(BackingTest, ButtonsAreNotTouchedByTheWindowsMode) {
    const INT window = active_window();
    const INT controls = window_of(GRX_FEN_BOUTONS, {400, 60, width, height});
    const INT label = label_in(controls, {10, 10, 100, 80});
    grx_alloue_image(window);
    draw_on_button(label, box(9, 0, 0, 9, 9));
    EXPECT_EQ(button_screen(label).count(drawn_pixel(9)), 100);
    EXPECT_EQ(memory(window).count_other(background()), 0);
    grx_desalloue_image();
}

TEST_F(BackingTest, TheActiveWindowMayDieMeanwhile) {
    const INT other = graphic_window({400, 60, width, height});
    const INT active = active_window();
    grx_alloue_image(active);
    draw(other, box(9, 0, 0, 9, 9));
    grx_detruit_fenetre(active);
    drain();
    draw(other, box(12, 20, 0, 29, 9));
    grx_affiche_bitmap_backingstore(active);
    grx_alloue_image(active);
    draw(other, box(13, 40, 0, 49, 9));
    grx_desalloue_image();
    EXPECT_EQ(screen(other).count(drawn_pixel(12)), 100); // on the screen again
    EXPECT_EQ(screen(other).count(drawn_pixel(13)), 100);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(BackingTest, SwitchedOnAgainAfterItsWindowDiedDrawsOnTheScreen) {
    const INT other = graphic_window({400, 60, width, height});
    const INT active = active_window();
    grx_alloue_image(active);
    grx_detruit_fenetre(active);
    drain();
    grx_enable_backingstore(0, 1);
    draw(other, box(9, 0, 0, 9, 9));
    grx_enable_backingstore(0, 0);
    EXPECT_EQ(grx::image_redess, nullptr);
    EXPECT_EQ(screen(other).count(drawn_pixel(9)), 100);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(BackingTest, AResizeMeanwhileFollowsTheNewPicture) {
    const INT window = active_window();
    grx_alloue_image(window);
    grx_change_taille_fenetre(window, 300, 200);
    drain();
    draw(window, box(9, 250, 150, 259, 159));
    grx_desalloue_image();
    EXPECT_EQ(memory(window).width, 300);
    EXPECT_EQ(memory(window).count(drawn_pixel(9)), 100);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

} // namespace
