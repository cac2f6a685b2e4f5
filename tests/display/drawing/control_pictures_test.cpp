// Icons on controls and labels, the list of named icons, and the bitmap writer that needs colours.
#include "tests/display/window_kit.h"
#include "tests/support/controls.h"

#include "xt_loc_f.h"
#include "xt_prive.h"

#include <Xm/XmAll.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Bytes = std::vector<uchar>;

constexpr Pixmap unspecified = 2;

class IconTest : public DisplayTest {
  protected:
    // A file of 16 or 256 colours; its full name.
    std::string icon_file(const std::string& name, Bytes picture, INT width, INT height, bool deep = false) {
        std::string directory = home().text(), file = name;
        const auto writer = deep ? ecrit_fichier_bitmap_256 : ecrit_fichier_bitmap;
        EXPECT_EQ(writer(directory.data(), file.data(), picture.data(), width, height), 0);
        return directory + "/" + name;
    }
    std::string plain_icon(const std::string& name, uchar colour, INT width = 12, INT height = 10) {
        return icon_file(name, Bytes(static_cast<std::size_t>(width * height), colour), width, height);
    }

    INT label_in(INT window) {
        GRX_BOUTON label = button_at(GRX_BOU_LABEL, window, {20, 20, 50, 50});
        EXPECT_EQ(grx_cree_bouton(&label), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(label.nobou)));
        drain();
        return label.nobou;
    }
    INT visible_window() {
        const INT window = make(GRX_FEN_BOUTONS);
        EXPECT_TRUE(wait_visible(widget_of(window)));
        grx_affecte_nofen_principale(window);
        return window;
    }
    static INT install(std::string file, INT nobou) { return grx_installe_bitmap(file.data(), nobou); }
    static unsigned pixmaps(Display* asker, INT window) {
        XSync(x11_disp, False);
        return server_resources(asker, x_window(window))["PIXMAP"];
    }
    static std::uint32_t icon_pixel(INT index) { return static_cast<std::uint32_t>(grx_recup_couleur_icone(index)); }
    static std::uint32_t colour_pixel(INT index) { return static_cast<std::uint32_t>(grx_recup_couleur(index)); }
};

// --- the 256-colour writer ------------------------------------------------------------------------------------------

void put(std::string& bytes, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
}

TEST_F(IconTest, TwoHundredAndFiftySixColoursByteByByte) {
    icon_file("deep.bmp", {1, 2, 3, 4, 5, 200, 7, 8, 9, 255}, 5, 2, true);
    std::string expected = "BM";
    for (std::uint32_t field : {1078U + 16U, 0U, 1078U, 40U, 5U, 2U}) put(expected, field, 4);
    put(expected, 1, 2);
    put(expected, 8, 2);
    for (std::uint32_t field : {0U, 16U, 0U, 0U, 256U, 256U}) put(expected, field, 4);
    for (INT i = 0; i < 256; ++i) {
        INT rgb[3]{};
        if (i < grx_recup_max_couleur_trace()) grx_recup_rgb(i, rgb);
        for (INT component : rgb) expected.push_back(static_cast<char>(component)); // red first
        expected.push_back('\0');
    }
    expected += std::string("\xC8\x07\x08\x09\xFF\0\0\0", 8) + std::string("\1\2\3\4\5\0\0\0", 8);
    const std::string file = home().read("deep.bmp");
    EXPECT_EQ(file.size(), expected.size());
    EXPECT_EQ(file, expected);
}

TEST_F(IconTest, RedIsTheFirstByteOfAPaletteEntry) {
    INT red[3] = {255, 10, 20};
    grx_modif_rgb(9, red);
    icon_file("deep.bmp", {1}, 1, 1, true);
    const std::string file = home().read("deep.bmp");
    EXPECT_EQ(static_cast<uchar>(file.at(54 + 36)), 255);
    EXPECT_LE(static_cast<uchar>(file.at(54 + 37)), 10);
    EXPECT_LE(static_cast<uchar>(file.at(54 + 38)), 20);
    EXPECT_EQ(file.at(54 + 39), 0);
}

TEST_F(IconTest, ShortageWhileWritingGives1) {
    icon_file("deep.bmp", Bytes(16, 1), 4, 4, true);
    std::string directory = home().text(), name = "deep.bmp";
    Bytes picture(16, 1);
    const auto before = heap().allocations();
    ASSERT_EQ(ecrit_fichier_bitmap_256(directory.data(), name.data(), picture.data(), 4, 4), 0);
    const auto count = heap().allocations() - before;
    EXPECT_GT(count, 0U);
    for (std::size_t n = 1; n <= count; ++n) {
        const NoLeak no_leak;
        heap().fail_at(n);
        EXPECT_EQ(ecrit_fichier_bitmap_256(directory.data(), name.data(), picture.data(), 4, 4), 1) << n;
        heap().fail_never();
    }
}

// --- icons of controls ----------------------------------------------------------------------------------------------

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

// --- named icons ----------------------------------------------------------------------------------------------------

class NamedIcons : public IconTest {
  protected:
    void SetUp() override {
        IconTest::SetUp();
        EXPECT_EQ(init_tab_icon(), 0);
    }
    void TearDown() override {
        EXPECT_EQ(desalloue_tab_icon(), 0);
        IconTest::TearDown();
    }
    static ENRICON icon(const char* name, int width, int height, int fill) {
        ENRICON record{};
        std::strcpy(record.nom_icon, name);
        record.lar = width;
        record.hau = height;
        record.taille_buffer = static_cast<unsigned>(width * height);
        record.tab_pix = reinterpret_cast<uchar*>(grx_malloc(record.taille_buffer));
        std::memset(record.tab_pix, fill, record.taille_buffer);
        record.suiv = reinterpret_cast<SICON*>(0x5A);
        return record;
    }
    static INT find(const char* name, ENRICON** found) {
        std::string text = name;
        return cherche_icon(text.data(), found);
    }
};

TEST_F(NamedIcons, FirstOfANameIsFoundThenTheCache) {
    const NoLeak no_leak;
    const ENRICON first = icon("save", 4, 3, 1), second = icon("save", 8, 8, 2), other = icon("open", 2, 2, 3);
    EXPECT_EQ(append_icon(first), 0);
    EXPECT_EQ(append_icon(second), 0);
    EXPECT_EQ(append_icon(other), 0);
    ENRICON* in_list = nullptr;
    ASSERT_EQ(find("save", &in_list), 1);
    EXPECT_STREQ(in_list->nom_icon, "save");
    EXPECT_EQ(in_list->tab_pix, first.tab_pix);
    EXPECT_EQ(in_list->lar, 4);
    EXPECT_EQ(in_list->hau, 3);
    EXPECT_NE(in_list->suiv, nullptr);
    ENRICON* cached = nullptr;
    ASSERT_EQ(find("save", &cached), 1);
    EXPECT_NE(cached, in_list);
    EXPECT_EQ(cached->tab_pix, first.tab_pix);
    EXPECT_EQ(cached->taille_buffer, 12U);
    ENRICON* third = nullptr;
    ASSERT_EQ(find("open", &third), 1);
    EXPECT_EQ(third->tab_pix, other.tab_pix);
    EXPECT_EQ(third->suiv, nullptr);
    ASSERT_EQ(find("save", &third), 1);
    EXPECT_EQ(third, in_list); // the cache holds "open" now
    EXPECT_EQ(desalloue_tab_icon(), 0);
}

TEST_F(NamedIcons, UnknownNamesLeaveTheResult) {
    ENRICON mark{};
    ENRICON* found = &mark;
    EXPECT_EQ(find("none", &found), 0);
    EXPECT_EQ(find("", &found), 0);
    EXPECT_EQ(append_icon(icon("a", 1, 1, 1)), 0);
    EXPECT_EQ(find("none", &found), 0);
    EXPECT_EQ(find("A", &found), 0);
    EXPECT_EQ(find("", &found), 0);
    EXPECT_EQ(found, &mark);
    EXPECT_EQ(cherche_icon(nullptr, &found), 0);
}

TEST_F(NamedIcons, FreeingEmptiesListAndCache) {
    const NoLeak no_leak;
    EXPECT_EQ(desalloue_tab_icon(), 0);
    ENRICON* found = nullptr;
    EXPECT_EQ(append_icon(icon("a", 3, 3, 1)), 0);
    EXPECT_EQ(find("a", &found), 1);
    EXPECT_EQ(desalloue_tab_icon(), 0);
    found = nullptr;
    EXPECT_EQ(find("a", &found), 0);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(desalloue_tab_icon(), 0);
}

TEST_F(NamedIcons, ShortageLeavesTheList) {
    const NoLeak no_leak;
    EXPECT_EQ(append_icon(icon("a", 3, 3, 1)), 0);
    ENRICON b = icon("b", 2, 2, 2);
    heap().fail_at(1);
    EXPECT_EQ(append_icon(b), 1);
    heap().fail_never();
    ENRICON* found = nullptr;
    EXPECT_EQ(find("b", &found), 0);
    EXPECT_EQ(find("a", &found), 1);
    EXPECT_EQ(found->suiv, nullptr);
    grx_free(reinterpret_cast<char*>(b.tab_pix), b.taille_buffer); // still the caller's
    desalloue_tab_icon();
}

double processor_seconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Blocks of a thousand. The best of the first five, or of the last: what another process disturbs is not counted.
TEST_F(NamedIcons, TheLastOfManyIsAppendedAsQuicklyAsTheFirst) {
    constexpr int blocks = 30, looked_at = 5;
    double first = 1e9, last = 1e9;
    for (int block = 0; block < blocks; ++block) {
        const double start = processor_seconds();
        for (int i = 0; i < 1000; ++i) {
            ENRICON record{};
            record.nom_icon[0] = 'i';
            append_icon(record);
        }
        const double taken = processor_seconds() - start;
        if (block < looked_at) first = std::min(first, taken);
        if (block >= blocks - looked_at) last = std::min(last, taken);
    }
    EXPECT_LT(last, 6 * first);
}

TEST_F(NamedIcons, AfterAnEndThatIsGoneTheListBeginsAnew) {
    EXPECT_EQ(append_icon(icon("a", 1, 1, 1)), 0);
    EXPECT_EQ(append_icon(icon("b", 1, 1, 1)), 0);
    EXPECT_EQ(desalloue_tab_icon(), 0);
    EXPECT_EQ(append_icon(icon("c", 1, 1, 1)), 0);
    EXPECT_EQ(append_icon(icon("d", 1, 1, 1)), 0);
    ENRICON* found = nullptr;
    EXPECT_EQ(find("a", &found), 0);
    EXPECT_EQ(find("c", &found), 1);
    EXPECT_STREQ(found->suiv->nom_icon, "d");
}

} // namespace
