// Backing pictures of buttons, and memory drawing on buttons.
#include "tests/display/drawing/backing_kit.h"
#include "tests/support/controls.h"

#include "xt_prive.h"

#include <Xm/Xm.h>

#include <climits>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

class ButtonBacking : public BackingTest {
  protected:
    static constexpr int wide = 100, high = 80;

    void SetUp() override {
        BackingTest::SetUp();
        if (HasFatalFailure()) return;
        window_ = window_of(GRX_FEN_BOUTONS, {40, 60, 300, 200});
        button_ = label_in(window_, {20, 30, wide, high});
    }

    Pixels picture() const { return grab(x11_disp, button_record(button_).image); }

    INT window_ = 0, button_ = 0;
};

TEST_F(ButtonBacking, StartsInTheDrawingColour) {
    EXPECT_EQ(button_record(button_).image, 0U);
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    ASSERT_NE(button_record(button_).image, 0U);
    const Pixels made = picture();
    EXPECT_EQ(made.width, wide);
    EXPECT_EQ(made.height, high);
    EXPECT_EQ(made.count(drawn_pixel(9)), wide * high);
    XGCValues values{};
    XGetGCValues(x11_disp, g_c, GCForeground | GCBackground, &values);
    EXPECT_EQ(values.foreground, drawn_pixel(9));
    EXPECT_EQ(values.background, drawn_pixel(12));
}

// KEEP: 1 is shown here, 0 is shown for windows.
TEST_F(ButtonBacking, ShowingGives1WhenDoneAnd0Without) {
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(button_), 0);
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    const Cost cost(x11_disp);
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(button_), 1);
    EXPECT_EQ(cost.round_trips(), 1U);
    expect_background_context();
    EXPECT_EQ(part_of_screen(test_display(), {60, 90, wide, high}).count(drawn_pixel(9)), wide * high);
}

// The button shows the picture of a file; a backing picture takes its place, and goes.
TEST_F(ButtonBacking, AShownIconIsReplacedAndNeverShownReleased) {
    std::vector<uchar> picture(wide * high, 4);
    std::string directory = home().text(), name = "a.bmp", path = directory + "/" + name;
    ASSERT_EQ(ecrit_fichier_bitmap(directory.data(), name.data(), picture.data(), wide, high), 0);
    const auto pixmaps = [&] {
        drain();
        return server_resources(test_display(), x_window(window_))["PIXMAP"];
    };
    const auto shown = [&] { return resource<Pixmap>(grx_recup_objet_bout(button_), XmNlabelPixmap); };
    const unsigned none = pixmaps();
    grx_change_icone_bouton(button_, path.data());
    for (int i = 0; i < 3; ++i) {
        grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
        EXPECT_EQ(shown(), button_record(button_).image);
        EXPECT_EQ(pixmaps(), none + 1);
    }
    grx_detruit_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(button_record(button_).image, 0U);
    EXPECT_EQ(shown(), Pixmap{XmUNSPECIFIED_PIXMAP});
    EXPECT_EQ(pixmaps(), none);
    grx_desinstalle_bitmap(button_);
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_desinstalle_bitmap(button_);
    grx_detruit_bitmap_backingstore_bouton(button_); // the released id is not freed again
    EXPECT_EQ(pixmaps(), none);
}

TEST_F(ButtonBacking, MemorisingCopiesTheButton) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    draw_on_button(button_, box(13, 0, 0, wide - 1, high - 1));
    draw_on_button(button_, box(14, 5, 5, 14, 14));
    grx_memorise_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(picture().count(drawn_pixel(14)), 100);
    EXPECT_EQ(picture().count(drawn_pixel(13)), wide * high - 100);
    expect_background_context();
}

TEST_F(ButtonBacking, MemorisingSynchronisesInEveryCase) {
    const Cost cost(x11_disp);
    grx_memorise_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(cost.round_trips(), 1U);
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    const Cost again(x11_disp);
    grx_memorise_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(again.round_trips(), 1U);
}

TEST_F(ButtonBacking, DestroyingFreesThePixmap) {
    grx_detruit_bitmap_backingstore_bouton(button_); // there is none yet
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    const Pixmap made = button_record(button_).image;
    grx_detruit_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(x_error_count(x11_disp), 0);
    permit_x_errors();
    EXPECT_TRUE(grab(x11_disp, made).empty());
}

TEST_F(ButtonBacking, WhatWasDestroyedIsNotUsedAgain) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_detruit_bitmap_backingstore_bouton(button_);
    grx_detruit_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(button_), 0);
    grx_memorise_bitmap_backingstore_bouton(button_);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 0);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 13, 12);
    EXPECT_EQ(picture().count(drawn_pixel(13)), wide * high);
}

TEST_F(ButtonBacking, MemoryDrawingGoesIntoThePicture) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    const Pixels before = button_screen(button_);
    EXPECT_EQ(grx_alloue_image_bouton(button_, 0), 0);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 1);
    EXPECT_EQ(grx::image_redess_bouton, &button_record(button_).image);
    EXPECT_EQ(picture().count(background()), wide * high); // emptied
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    EXPECT_EQ(picture().count(drawn_pixel(13)), 100);
    EXPECT_TRUE(same(button_screen(button_), before));
    EXPECT_EQ(grx_backingstore_deja_cours(), 0); // the windows' mode is another
    EXPECT_EQ(grx_desalloue_image_bouton(), 0);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 0);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    EXPECT_EQ(button_screen(button_).count(drawn_pixel(13)), 100);
}

TEST_F(ButtonBacking, MemoryDrawingMayKeepThePicture) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 1);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 1);
    EXPECT_EQ(picture().count(drawn_pixel(9)), wide * high);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    EXPECT_EQ(picture().count(drawn_pixel(9)), wide * high - 100);
    grx_desalloue_image_bouton();
}

TEST_F(ButtonBacking, MemoryDrawingEndsByShowingThePicture) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    const Pixels drawn = picture();
    grx_trace_image_bouton(1);
    EXPECT_TRUE(same(button_screen(button_), drawn));
    EXPECT_TRUE(same(picture(), drawn)); // kept
    draw_on_button(button_, box(11, 20, 20, 29, 29));
    EXPECT_EQ(button_screen(button_).count(drawn_pixel(11)), 0);
    grx_trace_image_bouton(0);
    EXPECT_EQ(button_screen(button_).count(drawn_pixel(11)), 100);
    EXPECT_EQ(picture().count(background()), wide * high); // ready for the next
    grx_desalloue_image_bouton();
}

TEST_F(ButtonBacking, ShowingWithoutMemoryDrawingDoesNothing) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    const Pixels before = button_screen(button_), kept = picture();
    const Cost cost(x11_disp);
    grx_trace_image_bouton(0);
    grx_trace_image_bouton(1);
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_TRUE(same(button_screen(button_), before));
    EXPECT_TRUE(same(picture(), kept));
}

// KEEP: the active button, whatever the argument says.
TEST_F(ButtonBacking, MemoryDrawingWorksOnTheActiveButton) {
    const INT other = label_in(window_, {150, 30, wide, high});
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(other, 0);
    EXPECT_EQ(grx::image_redess_bouton, &button_record(button_).image);
    draw_on_button(other, box(13, 0, 0, 9, 9));
    EXPECT_EQ(picture().count(drawn_pixel(13)), 100);
    EXPECT_EQ(button_screen(other).count(drawn_pixel(13)), 0);
    grx_desalloue_image_bouton();
    for (const INT number : unknown_buttons) {
        grx_affecte_nobou_actif(number);
        EXPECT_EQ(grx_alloue_image_bouton(button_, 0), 0);
        EXPECT_EQ(grx::grx_trace_memoire_bouton, 0) << number;
    }
    grx_affecte_nobou_actif(other); // without a picture
    EXPECT_EQ(grx_alloue_image_bouton(button_, 0), 0);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 0);
}

TEST_F(ButtonBacking, WindowsAreNotTouchedByTheButtonsMode) {
    const INT window = graphic_window({400, 60, width, height});
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    draw(window, box(13, 0, 0, 9, 9));
    EXPECT_EQ(screen(window).count(drawn_pixel(13)), 100);
    grx_desalloue_image_bouton();
}

TEST_F(ButtonBacking, UnknownButtonsHaveNone) {
    for (const INT number : unknown_buttons) {
        grx_cree_bitmap_backingstore_bouton(number, wide, high, 9, 12);
        grx_detruit_bitmap_backingstore_bouton(number);
        EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(number), 0) << number;
        grx_memorise_bitmap_backingstore_bouton(number);
    }
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(ButtonBacking, SizesThatNoPixmapHasAreHarmless) {
    for (const auto& size : std::vector<std::pair<INT, INT>>{{0, 10}, {10, 0}, {-1, -1}, {INT_MAX, 10}, {70000, 10}})
        grx_cree_bitmap_backingstore_bouton(button_, size.first, size.second, 9, 12);
    grx_affiche_bitmap_backingstore_bouton(button_);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(ButtonBacking, TheActiveButtonMayDieMeanwhile) {
    const INT other = label_in(window_, {150, 30, wide, high});
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    grx_detruit_bouton(button_);
    drain();
    draw_on_button(other, box(13, 0, 0, 9, 9));
    grx_alloue_image_bouton(button_, 0);
    draw_on_button(other, box(13, 20, 0, 29, 9));
    grx_desalloue_image_bouton();
    EXPECT_EQ(button_screen(other).count(drawn_pixel(13)), 200); // on the screen again
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(ButtonBacking, ItsPictureMayGoMeanwhile) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    grx_detruit_bitmap_backingstore_bouton(button_);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    grx_desalloue_image_bouton();
    EXPECT_EQ(button_screen(button_).count(drawn_pixel(13)), 100);
}

} // namespace
