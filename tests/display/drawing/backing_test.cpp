// Backing pictures, memory drawing, saving and restoring.
#include "tests/display/drawing.h"
#include "tests/display/window_kit.h"
#include "tests/support/controls.h"

#include <X11/Xutil.h>
#include <Xm/DrawingA.h>
#include <Xm/Xm.h>

#include <climits>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

Primitive box(INT colour, INT x1, INT y1, INT x2, INT y2) {
    return {Kind::filled_rectangle, attributes(colour), {x1, y1, x2, y2}, {}};
}

const std::vector<INT> unknown_windows{0, -1, 77, 100, INT_MAX, INT_MIN};
const std::vector<INT> unknown_buttons{-1, 77, 999, 1000, INT_MAX, INT_MIN};

// A window of somebody else's over a part of the screen.
class Cover {
  public:
    Cover(Display* display, const Area& area) : display_(display) {
        XSetWindowAttributes attributes{};
        attributes.override_redirect = True;
        window_ = XCreateWindow(display, DefaultRootWindow(display), area.x, area.y, static_cast<unsigned>(area.width),
            static_cast<unsigned>(area.height), 0, CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect,
            &attributes);
        XSetWindowBackground(display, window_, BlackPixel(display, DefaultScreen(display)));
        XMapRaised(display, window_);
        XSync(display, False);
    }
    ~Cover() {
        XDestroyWindow(display_, window_);
        XSync(display_, False);
    }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;

  private:
    Display* display_;
    Window window_;
};

class BackingTest : public DrawingTest {
  protected:
    // A picture with something everywhere, in a window or the active one's backing picture.
    static void draw_picture(INT window, unsigned seed = 5) {
        RandomPrimitives random(seed, width, height);
        for (int i = 0; i < 60; ++i) draw(window, random.next());
    }

    INT active_window(const Area& area = {40, 60, width, height}) {
        const INT window = graphic_window(area);
        grx_affecte_nofen_active(window);
        return window;
    }

    static Pixels part_of_screen(Display* display, const Area& area) { return grab_root(display).part(area); }

    static void expect_background_context() {
        XGCValues values{};
        XGetGCValues(x11_disp, g_c, GCFunction | GCForeground | GCBackground | GCLineStyle | GCLineWidth, &values);
        EXPECT_EQ(values.function, GXcopy);
        EXPECT_EQ(values.foreground, background());
        EXPECT_EQ(values.background, background());
        EXPECT_EQ(values.line_style, LineSolid);
        EXPECT_EQ(values.line_width, 0);
    }

    static int server_backing(INT window) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, x_window(window), &attributes);
        return attributes.backing_store;
    }
};

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
    EXPECT_EQ(memory(window).count(pixel_of(12)), width * height);
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
    EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
        EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(other).count(pixel_of(9)), 100);
}

TEST_F(BackingTest, ButtonsAreNotTouchedByTheWindowsMode) {
    const INT window = active_window();
    const INT controls = window_of(GRX_FEN_BOUTONS, {400, 60, width, height});
    const INT label = label_in(controls, {10, 10, 100, 80});
    grx_alloue_image(window);
    draw_on_button(label, box(9, 0, 0, 9, 9));
    EXPECT_EQ(button_screen(label).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(other).count(pixel_of(12)), 100); // on the screen again
    EXPECT_EQ(screen(other).count(pixel_of(13)), 100);
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
    EXPECT_EQ(screen(other).count(pixel_of(9)), 100);
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
    EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

// --- buttons ------------------------------------------------------------------------------------------------------------

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
    EXPECT_EQ(made.count(pixel_of(9)), wide * high);
    XGCValues values{};
    XGetGCValues(x11_disp, g_c, GCForeground | GCBackground, &values);
    EXPECT_EQ(values.foreground, pixel_of(9));
    EXPECT_EQ(values.background, pixel_of(12));
}

// KEEP: 1 is shown here, 0 is shown for windows.
TEST_F(ButtonBacking, ShowingGives1WhenDoneAnd0Without) {
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(button_), 0);
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    const Cost cost(x11_disp);
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(button_), 1);
    EXPECT_EQ(cost.round_trips(), 1U);
    expect_background_context();
    EXPECT_EQ(part_of_screen(test_display(), {60, 90, wide, high}).count(pixel_of(9)), wide * high);
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
    EXPECT_EQ(picture().count(pixel_of(14)), 100);
    EXPECT_EQ(picture().count(pixel_of(13)), wide * high - 100);
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
    EXPECT_EQ(picture().count(pixel_of(13)), wide * high);
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
    EXPECT_EQ(picture().count(pixel_of(13)), 100);
    EXPECT_TRUE(same(button_screen(button_), before));
    EXPECT_EQ(grx_backingstore_deja_cours(), 0); // the windows' mode is another
    EXPECT_EQ(grx_desalloue_image_bouton(), 0);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 0);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    EXPECT_EQ(button_screen(button_).count(pixel_of(13)), 100);
}

TEST_F(ButtonBacking, MemoryDrawingMayKeepThePicture) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 1);
    EXPECT_EQ(grx::grx_trace_memoire_bouton, 1);
    EXPECT_EQ(picture().count(pixel_of(9)), wide * high);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    EXPECT_EQ(picture().count(pixel_of(9)), wide * high - 100);
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
    EXPECT_EQ(button_screen(button_).count(pixel_of(11)), 0);
    grx_trace_image_bouton(0);
    EXPECT_EQ(button_screen(button_).count(pixel_of(11)), 100);
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
    EXPECT_EQ(picture().count(pixel_of(13)), 100);
    EXPECT_EQ(button_screen(other).count(pixel_of(13)), 0);
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
    EXPECT_EQ(screen(window).count(pixel_of(13)), 100);
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
    EXPECT_EQ(button_screen(other).count(pixel_of(13)), 200); // on the screen again
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(ButtonBacking, ItsPictureMayGoMeanwhile) {
    grx_cree_bitmap_backingstore_bouton(button_, wide, high, 9, 12);
    grx_affecte_nobou_actif(button_);
    grx_alloue_image_bouton(button_, 0);
    grx_detruit_bitmap_backingstore_bouton(button_);
    draw_on_button(button_, box(13, 0, 0, 9, 9));
    grx_desalloue_image_bouton();
    EXPECT_EQ(button_screen(button_).count(pixel_of(13)), 100);
}

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
    EXPECT_EQ(screen(window).count(pixel_of(12)), 100);
    permit_x_errors();
    EXPECT_TRUE(first == grx::save_slot(window)->image || grab(x11_disp, first).empty());
}

TEST_F(SavedPicture, NothingSavedGives0) {
    const INT window = graphic_window();
    draw(window, box(9, 0, 0, 9, 9));
    EXPECT_EQ(grx_restore_fenetre(window), 0);
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(one).count(pixel_of(9)), 100);
    EXPECT_EQ(screen(two).count(pixel_of(12)), 100);
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
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
    EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
    EXPECT_EQ(memory(window).count(pixel_of(12)), 100);
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
        EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
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
    ASSERT_GT(before.count_other(pixel_of(0)), 1000);
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
    EXPECT_EQ(picture.count_other(pixel_of(0)), 0);
}

// --- before the library is started --------------------------------------------------------------------------------------

class DrawingBeforeStartUp : public XTest {};

TEST_F(DrawingBeforeStartUp, NothingIsDrawnAndNothingBreaks) {
    ASSERT_EQ(x11_disp, nullptr);
    RandomPrimitives random(5, 100, 100);
    for (const INT number : {0, 1, 5}) {
        for (int kind = 0; kind < Primitive::kinds; ++kind) {
            const Primitive p = random.next(static_cast<Kind>(kind));
            draw(number, p);
            if (has_button_twin(p.kind)) draw_on_button(number, p);
        }
        GRX_TEXTE text{};
        text.nofen = number;
        text.chaine[0] = 'A';
        grx_ecrit_fenetre(text);
        grx_trace_texte_bouton(text);
        grx_trace_texte(text);
        grx_efface_chaine(text);
        grx_efface_zone_graphique(number);
        grx_efface_zone_graphique_bouton(number);
    }
    grx_affecte_gc(attributes(9));
    grx_reinit_gc();
    grx_init_memo_attrib();
    dessine_rect(10, 10, 50, 50);
    GRX_POINT_POLY points[3] = {{1, 1}, {50, 1}, {1, 50}};
    EXPECT_EQ(remplit_tableau_polygone(points, 3, 9), 0);
    EXPECT_EQ(remplit_tableau_triangles(points[0], points[1], points[2], 9), 0);
    INT across = -1, above = -1, below = -1;
    grx_recup_taille_chaine(const_cast<char*>("abc"), &across, &above, &below);
    EXPECT_EQ(across + above + below, 0); // no font yet
    EXPECT_EQ(g_c, nullptr);
}

TEST_F(DrawingBeforeStartUp, BackingOperationsGiveTheirAnswersForNothing) {
    for (const INT number : {0, 1, 5, 100}) {
        EXPECT_EQ(grx_cree_bitmap_backingstore(number), 0);
        EXPECT_EQ(grx_affiche_bitmap_backingstore(number), 1);
        EXPECT_EQ(grx_interdit_backingstore(number, 1), 0);
        EXPECT_EQ(grx_alloue_image(number), 0);
        EXPECT_EQ(grx_alloue_image_bouton(number, 0), 0);
        EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(number), 0);
        EXPECT_EQ(grx_sauve_fenetre(number), 0);
        EXPECT_EQ(grx_restore_fenetre(number), 0);
        grx_supprime_bitmap_backingstore(number);
        grx_recree_bitmap_backingstore(number);
        grx_memorise_bitmap_backingstore(number);
        grx_cree_bitmap_backingstore_bouton(number, 10, 10, 9, 0);
        grx_detruit_bitmap_backingstore_bouton(number);
        grx_memorise_bitmap_backingstore_bouton(number);
    }
    EXPECT_EQ(grx_desalloue_image(), 0);
    EXPECT_EQ(grx_desalloue_image_bouton(), 0);
    EXPECT_EQ(grx_backingstore_deja_cours(), 0);
}

} // namespace
