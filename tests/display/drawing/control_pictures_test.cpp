// Pictures on controls: installed, changed, shared and taken away.
#include "tests/display/drawing/icon_kit.h"
#include "tests/support/controls.h"

#include "drawing/control_pictures_state.h"

#include <Xm/XmAll.h>

#include <climits>
#include <string>

namespace {

using namespace grxtest;

constexpr Pixmap unspecified = 2;

TEST_F(IconTest, PictureOfSixteenColours) {
    const INT window = visible_window(), label = label_in(window);
    Bytes picture;
    for (int i = 0; i < 32; ++i) picture.push_back(static_cast<uchar>(i % 16));
    const auto file = icon_file("a.bmp", picture, 8, 4);
    EXPECT_EQ(install(file, label), 1);
    ASSERT_GT(button_record(label).image, unspecified);
    const Pixels shown = grab(x11_disp, button_record(label).image);
    ASSERT_EQ(shown.width, 8);
    ASSERT_EQ(shown.height, 4);
    for (int i = 0; i < 32; ++i) EXPECT_EQ(shown.at(i % 8, i / 8), icon_pixel(i % 16)) << i;
}

TEST_F(IconTest, PictureOf256ColoursTakesTheDrawingColours) {
    const INT window = visible_window(), label = label_in(window);
    Bytes picture;
    for (int i = 0; i < 30; ++i) picture.push_back(static_cast<uchar>(i));
    EXPECT_EQ(install(icon_file("a.bmp", picture, 5, 6, true), label), 1);
    const Pixels shown = grab(x11_disp, button_record(label).image);
    ASSERT_EQ(shown.values.size(), 30U);
    for (int i = 0; i < 30; ++i) EXPECT_EQ(shown.at(i % 5, i / 5), colour_pixel(i)) << i;
}

TEST_F(IconTest, MissingFileLeavesNoPicture) {
    const INT window = visible_window(), label = label_in(window);
    button_record(label).image = 0;
    grx::Mypixmap = 77;
    EXPECT_EQ(install(home().text() + "/none.bmp", label), 0);
    EXPECT_EQ(grx::Mypixmap, unspecified);
    EXPECT_EQ(button_record(label).image, 0U);
    grx::Mypixmap = 77;
    EXPECT_EQ(install("", label), 0);
    EXPECT_EQ(grx::Mypixmap, unspecified);
}

TEST_F(IconTest, MissingFileDropsTheImageBefore) {
    const INT window = visible_window(), label = label_in(window);
    const auto bytes = heap().bytes();
    ASSERT_EQ(install(plain_icon("a.bmp", 4), label), 1);
    EXPECT_GT(heap().bytes(), bytes);
    EXPECT_EQ(install(home().text() + "/none.bmp", label), 0);
    EXPECT_EQ(heap().bytes(), bytes);
}

TEST_F(IconTest, WithoutANumberThePictureIsMypixmap) {
    visible_window();
    for (INT number : {-1, -2, INT_MIN}) {
        EXPECT_EQ(install(home().text() + "/none.bmp", number), 0);
        EXPECT_EQ(grx::Mypixmap, unspecified);
        EXPECT_EQ(install(plain_icon("a.bmp", 4, 10, 7), number), 1);
        ASSERT_GT(grx::Mypixmap, unspecified);
        const Pixels shown = grab(x11_disp, grx::Mypixmap);
        EXPECT_EQ(shown.width, 10);
        EXPECT_EQ(shown.height, 7);
        EXPECT_EQ(shown.count(icon_pixel(4)), 70);
    }
}

TEST_F(IconTest, WithoutAMainWindowItWorksAllTheSame) {
    grx_affecte_nofen_principale(-1);
    EXPECT_EQ(install(plain_icon("a.bmp", 4), -1), 1);
    EXPECT_EQ(grab(x11_disp, grx::Mypixmap).count(icon_pixel(4)), 120);
}

TEST_F(IconTest, UnknownNumbersAreSurvived) {
    visible_window();
    const auto file = plain_icon("a.bmp", 4);
    for (INT number : {999, 1000, 1001, INT_MAX}) {
        const auto bytes = heap().bytes();
        install(file, number);
        grx_desinstalle_bitmap(number);
        EXPECT_EQ(heap().bytes(), bytes) << number;
    }
    grx_desinstalle_bitmap(-1);
    grx_desinstalle_bitmap(INT_MIN);
    EXPECT_EQ(grx_installe_bitmap(nullptr, -1), 0);
    EXPECT_EQ(grx::Mypixmap, unspecified);
}

TEST_F(IconTest, TakingAwayFreesPixmapAndData) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    const auto bytes = heap().bytes();
    const unsigned before = pixmaps(test_display(), window);
    ASSERT_EQ(install(file, label), 1);
    EXPECT_EQ(pixmaps(test_display(), window), before + 1);
    EXPECT_GT(heap().bytes(), bytes); // the kept image has its own data
    grx_desinstalle_bitmap(label);
    EXPECT_EQ(pixmaps(test_display(), window), before);
    EXPECT_EQ(heap().bytes(), bytes);
    grx_desinstalle_bitmap(label); // the freed id is not freed again
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(IconTest, InstallingTwiceLeavesOnePictureAndTheLabelShowsIt) {
    const INT window = visible_window(), label = label_in(window);
    std::string first = plain_icon("a.bmp", 4);
    const auto second = plain_icon("b.bmp", 9, 20, 16), third = plain_icon("c.bmp", 4);
    grx_change_icone_bouton(label, first.data());
    drain();
    const unsigned one = pixmaps(test_display(), window);
    const auto bytes = heap().bytes();
    for (int i = 0; i < 20; ++i) {
        ASSERT_EQ(install(second, label), 1);
        EXPECT_EQ(resource<Pixmap>(grx_recup_objet_bout(label), XmNlabelPixmap), button_record(label).image);
        drain();
        EXPECT_EQ(grab(x11_disp, XtWindow(grx_recup_objet_bout(label))).count(icon_pixel(9)), 20 * 16);
        ASSERT_EQ(install(third, label), 1);
    }
    drain();
    EXPECT_EQ(pixmaps(test_display(), window), one);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(grab(x11_disp, XtWindow(grx_recup_objet_bout(label))).count(icon_pixel(4)), 120);
    grx_detruit_bouton(label);
    EXPECT_EQ(pixmaps(test_display(), window), one - 1);
}

TEST_F(IconTest, InstallingTwiceUnseenLeavesOnePicture) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    const auto bytes = heap().bytes();
    const unsigned none = pixmaps(test_display(), window);
    for (int i = 0; i < 5; ++i) ASSERT_EQ(install(file, label), 1);
    EXPECT_EQ(pixmaps(test_display(), window), none + 1);
    EXPECT_EQ(resource<unsigned char>(grx_recup_objet_bout(label), XmNlabelType), XmSTRING)
        << "nothing is shown unasked";
    EXPECT_NE(resource<Pixmap>(grx_recup_objet_bout(label), XmNlabelPixmap), button_record(label).image);
    grx_desinstalle_bitmap(label);
    for (int i = 0; i < 5; ++i) ASSERT_EQ(install(file, label), 1) << "the released id is not freed again";
    grx_desinstalle_bitmap(label);
    EXPECT_EQ(pixmaps(test_display(), window), none);
    EXPECT_EQ(heap().bytes(), bytes);
}

TEST_F(IconTest, InstallingAgainReachesEveryLabelThatSharesThePicture) {
    const INT window = visible_window(), label = label_in(window), other = label_in(window), third = label_in(window);
    std::string first = plain_icon("a.bmp", 4);
    const auto second = plain_icon("b.bmp", 9);
    grx_change_icone_bouton(label, first.data());
    const unsigned one = pixmaps(test_display(), window);
    grx_affecte_icone_bouton1_bouton2(label, other);
    grx_affecte_icone_bouton1_bouton2(other, third);
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(install(second, label), 1);
        for (INT n : {label, other, third})
            EXPECT_EQ(resource<Pixmap>(grx_recup_objet_bout(n), XmNlabelPixmap), button_record(label).image) << n;
    }
    EXPECT_EQ(pixmaps(test_display(), window), one);
    grx_detruit_bouton(label);
    drain();
    EXPECT_EQ(resource<Pixmap>(grx_recup_objet_bout(other), XmNlabelPixmap), unspecified);
    EXPECT_EQ(resource<Pixmap>(grx_recup_objet_bout(third), XmNlabelPixmap), unspecified);
}

TEST_F(IconTest, AFileThatCannotBeReadLeavesTheShownPicture) {
    const INT window = visible_window(), label = label_in(window);
    std::string first = plain_icon("a.bmp", 4);
    const unsigned none = pixmaps(test_display(), window);
    grx_change_icone_bouton(label, first.data());
    EXPECT_EQ(install("/nowhere/none.bmp", label), 0);
    XClearArea(x11_disp, XtWindow(grx_recup_objet_bout(label)), 0, 0, 0, 0, True);
    drain();
    EXPECT_EQ(grab(x11_disp, XtWindow(grx_recup_objet_bout(label))).count(icon_pixel(4)), 120);
    grx_detruit_bouton(label);
    EXPECT_EQ(pixmaps(test_display(), window), none);
}

TEST_F(IconTest, InstallingOnADrawingAreaTakesThePlaceOfItsCopy) {
    const INT window = visible_window();
    const unsigned none = pixmaps(test_display(), window);
    GRX_BOUTON area = button_at(GRX_BOU_ZONE_DESSIN, window, {20, 20, 50, 50});
    ASSERT_EQ(grx_cree_bouton(&area), 0);
    ASSERT_TRUE(wait_visible(grx_recup_objet_bout(area.nobou)));
    const auto file = plain_icon("a.bmp", 4);
    for (int i = 0; i < 3; ++i) ASSERT_EQ(install(file, area.nobou), 1);
    EXPECT_EQ(pixmaps(test_display(), window), none + 1);
    EXPECT_EQ(grx_affiche_bitmap_backingstore_bouton(area.nobou), 1);
    grx_detruit_bouton(area.nobou);
    EXPECT_EQ(pixmaps(test_display(), window), none);
}

TEST_F(IconTest, InstallingOnANumberWhoseWindowIsGoneLeavesOnePicture) {
    const INT window = visible_window(), dying = make(GRX_FEN_BOUTONS);
    ASSERT_TRUE(wait_visible(widget_of(dying)));
    const INT label = label_in(dying);
    const unsigned none = pixmaps(test_display(), window);
    std::string file = plain_icon("a.bmp", 4);
    grx_change_icone_bouton(label, file.data());
    grx_detruit_fenetre(dying);
    drain();
    for (int i = 0; i < 3; ++i) ASSERT_EQ(install(file, label), 1);
    EXPECT_LE(pixmaps(test_display(), window), none + 1);
    EXPECT_EQ(grx_libere_indice_objet_bout(label), 1);
    EXPECT_LE(pixmaps(test_display(), window), none);
}

TEST_F(IconTest, ChangingKeepsOnePicture) {
    const INT window = visible_window(), label = label_in(window);
    std::string a = plain_icon("a.bmp", 4), b = plain_icon("b.bmp", 9, 20, 16);
    grx_change_icone_bouton(label, a.data());
    drain();
    const unsigned one = pixmaps(test_display(), window);
    const auto bytes = heap().bytes();
    for (int i = 0; i < 20; ++i) {
        grx_change_icone_bouton(label, b.data());
        EXPECT_EQ(resource<Pixmap>(grx_recup_objet_bout(label), XmNlabelPixmap), button_record(label).image);
        grx_change_icone_bouton(label, a.data());
    }
    drain();
    EXPECT_EQ(pixmaps(test_display(), window), one);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(resource<unsigned char>(grx_recup_objet_bout(label), XmNlabelType), XmPIXMAP);
    const Pixels screen = grab(x11_disp, XtWindow(grx_recup_objet_bout(label)));
    EXPECT_EQ(screen.count(icon_pixel(4)), 120);
    EXPECT_EQ(screen.count(icon_pixel(9)), 0);
}

TEST_F(IconTest, ChangeToAMissingFilePutsNoFreedPixmapOnTheLabel) {
    const INT window = visible_window(), label = label_in(window);
    std::string a = plain_icon("a.bmp", 4), none = home().text() + "/none.bmp";
    grx_change_icone_bouton(label, a.data());
    drain();
    grx_change_icone_bouton(label, none.data());
    EXPECT_EQ(button_record(label).image, 0U);
    grx_change_icone_bouton(label, a.data());
    drain();
    EXPECT_EQ(grab(x11_disp, XtWindow(grx_recup_objet_bout(label))).count(icon_pixel(4)), 120);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(IconTest, BackgroundColourReplacesIndex8ForOneIcon) {
    const INT window = visible_window(), label = label_in(window);
    std::string file = icon_file("a.bmp", {8, 8, 8, 4, 4, 4, 8, 8}, 4, 2);
    const auto usual = icon_pixel(8);
    ASSERT_NE(usual, icon_pixel(12));
    grx_change_couleur_fond_icone_bouton(label, file.data(), 12);
    Pixels shown = grab(x11_disp, button_record(label).image);
    EXPECT_EQ(shown.count(icon_pixel(12)), 5);
    EXPECT_EQ(shown.count(icon_pixel(4)), 3);
    EXPECT_EQ(icon_pixel(8), usual);
    grx_change_couleur_fond_icone_bouton(label, file.data(), -1);
    shown = grab(x11_disp, button_record(label).image);
    EXPECT_EQ(shown.count(usual), 5);
}

TEST_F(IconTest, NumberGivenOutAgainHasNoPicture) {
    const INT window = visible_window();
    const INT label = label_in(window);
    std::string file = plain_icon("a.bmp", 4);
    drain();
    const unsigned before = pixmaps(test_display(), window);
    const auto bytes = heap().bytes();
    INT last = label;
    for (int i = 0; i < 10; ++i) {
        grx_change_icone_bouton(last, file.data());
        EXPECT_GT(button_record(last).image, unspecified);
        grx_detruit_bouton(last);
        drain();
        last = label_in(window);
        EXPECT_EQ(last, label);
        EXPECT_EQ(button_record(last).image, 0U);
    }
    EXPECT_EQ(pixmaps(test_display(), window), before);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(IconTest, ContextIsSentAgainAfterwards) {
    const INT window = visible_window(), label = label_in(window);
    GRX_ATTRIBUTS_TRACER red{};
    red.coul_trace = 4;
    grx_affecte_gc(red);
    install(plain_icon("a.bmp", 4), label);
    XSetForeground(x11_disp, g_c, 0x123456 & 0xFF);
    install(plain_icon("a.bmp", 4), label);
    grx_affecte_gc(red);
    XGCValues values{};
    XGetGCValues(x11_disp, g_c, GCForeground | GCFunction, &values);
    EXPECT_EQ(values.foreground, colour_pixel(4));
    EXPECT_EQ(values.function, GXcopy);
}

TEST_F(IconTest, ContextHasTheBackgroundColoursAfterwards) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    for (const INT mode : {0, 2048}) { // exclusive-or must not reach the picture
        GRX_ATTRIBUTS_TRACER before{};
        before.coul_trace = 5;
        before.mode = mode;
        for (const INT number : {label, GRX_AUCUN}) {
            grx_affecte_gc(before);
            ASSERT_EQ(install(file, number), 1);
            XGCValues values{};
            XGetGCValues(x11_disp, g_c, GCForeground | GCBackground | GCFunction, &values);
            EXPECT_EQ(values.foreground, colour_pixel(grx_recup_couleur_fond()));
            EXPECT_EQ(values.background, colour_pixel(grx_recup_couleur_fond()));
            EXPECT_EQ(values.function, GXcopy);
            const Pixmap made = number == label ? button_record(label).image : grx::Mypixmap;
            EXPECT_EQ(grab(x11_disp, made).count(icon_pixel(4)), 120) << mode;
        }
    }
}

TEST_F(IconTest, ShortageIsSurvived) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    const auto bytes = heap().bytes();
    EXPECT_GT(fail_each_allocation([&] {
        const INT result = install(file, label);
        EXPECT_TRUE(result == 0 || result == 1);
        grx_desinstalle_bitmap(label);
        button_record(label).image = 0;
    }),
        2);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

// Without memory for its pixels the picture stays away; the pixmap is made all the same.
TEST_F(IconTest, ShortageOfPixelsLeavesAnEmptyPixmap) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    const auto before = heap().allocations(), bytes = heap().bytes();
    ASSERT_EQ(install(file, label), 1);
    const auto count = heap().allocations() - before;
    grx_desinstalle_bitmap(label);
    button_record(label).image = 0;
    heap().fail_at(count);
    EXPECT_EQ(install(file, label), 1);
    heap().fail_never();
    EXPECT_GT(button_record(label).image, unspecified);
    EXPECT_EQ(heap().bytes(), bytes);
    grx_desinstalle_bitmap(label);
}

TEST_F(IconTest, TakingAwayLeavesWhatIsNoPixmap) {
    const INT window = visible_window(), label = label_in(window);
    for (const Pixmap none : {Pixmap{0}, unspecified}) {
        button_record(label).image = none;
        grx_desinstalle_bitmap(label);
        XSync(x11_disp, False);
        EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    }
}

TEST_F(IconTest, TableOfPicturesIsReleased) {
    grx_desalloue_tab_image_boutons(1000);
    const NoLeak no_leak;
    const auto bytes = heap().bytes();
    EXPECT_EQ(grx_alloue_tab_image_boutons(10), 0);
    EXPECT_GT(heap().bytes(), bytes);
    grx_desalloue_tab_image_boutons(10);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(install(plain_icon("a.bmp", 4), 1), 0); // without a table there is no place
}

// What the server shows stays.
TEST_F(IconTest, TheTableGoesWithThePicturesDataAndControlsKeepWhatTheyShow) {
    const INT window = visible_window(), label = label_in(window);
    const auto bytes = heap().bytes();
    ASSERT_EQ(install(plain_icon("a.bmp", 4), label), 1);
    const Pixmap shown = button_record(label).image;
    EXPECT_GT(heap().bytes(), bytes);
    grx_desalloue_tab_image_boutons(1000);
    EXPECT_LT(heap().bytes(), bytes);
    EXPECT_EQ(button_record(label).image, shown);
    EXPECT_FALSE(grab(x11_disp, shown).empty());
}

TEST_F(IconTest, ANewTableOfPicturesReleasesTheOneBefore) {
    const INT window = visible_window(), label = label_in(window);
    const auto file = plain_icon("a.bmp", 4);
    const auto bytes = heap().bytes();
    ASSERT_EQ(install(file, label), 1);
    EXPECT_GT(heap().bytes(), bytes);
    EXPECT_EQ(grx_alloue_tab_image_boutons(1000), 0);
    EXPECT_EQ(heap().bytes(), bytes);
}

TEST_F(IconTest, TableOfPicturesReportsShortage) {
    heap().fail_at(1);
    EXPECT_EQ(grx_alloue_tab_image_boutons(10), 13);
    heap().fail_never();
}

} // namespace
