// The colormap of 24 and of 8 planes, and what happens when its cells run out.
#include "tests/display/display/colours_kit.h"
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/cell_hog.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Lines = std::vector<std::string>;

constexpr INT icons = 16;

class CountsFromTheFile : public DisplayTest {
    void before_start() override {
        write_ini("MAX_COULEUR_TRACE 64\nMAX_COULEUR_RENDU 20\n");
        ASSERT_EQ(grx_initialise_globales(), 0);
    }
};

TEST_F(CountsFromTheFile, PlaceTheRenderingColours) {
    EXPECT_EQ(grx_premier_index_rendu(), 16 + 8 + 64);
    EXPECT_EQ(grx_dernier_index_rendu(), 16 + 8 + 64 + 20);
    for (INT k = 0; k < 72; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[icons + k]) << k;
    for (INT k = 88; k < 108; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[k]) << k; // at their own positions
    for (INT k = 0; k < 64; ++k) {
        const Triple seen = colour_at(8 + k);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - drawing_colour(k)[i]), 1) << k;
    }
}

template <INT Drawing, INT Rendering>
class Counts : public DisplayTest {
    void before_start() override {
        grx_affecte_max_couleur_trace(Drawing);
        grx_affecte_max_couleur_rendu(Rendering);
        capture_.emplace();
    }

  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        capture_->restore();
    }
    std::optional<StdoutCapture> capture_;
};

using FewCounts = Counts<8, 0>;
using ManyCounts = Counts<128, 31>;
using HugeCounts = Counts<128, 1000>;

TEST_F(FewCounts, Work) {
    EXPECT_EQ(grx_premier_index_rendu(), 32);
    EXPECT_EQ(grx_dernier_index_rendu(), 32);
    EXPECT_EQ(trace_pix[15], grx::system_pix[31]);
    EXPECT_EQ(capture_->text(), "");
}

TEST_F(ManyCounts, Work) { // 183 colours: all the cells that an 8-plane server has left
    EXPECT_EQ(grx_premier_index_rendu(), 152);
    EXPECT_EQ(grx_dernier_index_rendu(), 183);
    EXPECT_EQ(trace_pix[8 + 127], grx::system_pix[151]);
    EXPECT_EQ(trace_pix[182], grx::system_pix[182]);
    EXPECT_EQ(capture_->text(), "");
    const Triple seen = colour_at(8 + 127), expected = drawing_colour(127);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - expected[i]), 1);
}

TEST_F(HugeCounts, StayInsideTheTables) {
    EXPECT_EQ(grx_premier_index_rendu(), 152);
    if (test_planes() == 24) EXPECT_EQ(grx_dernier_index_rendu(), 1152);
    if (test_planes() == 8) EXPECT_EQ(capture_->lines(), (Lines{"couleurs rendu Maxi :31"}));
    if (test_planes() == 8) EXPECT_EQ(grx_dernier_index_rendu(), 183);
    Triple rgb{1, 2, 3};
    permit_x_errors(); // 8 planes have no cell for it
    grx_modif_rgb(255, rgb.data());
    grx_modif_rgb(1151, rgb.data());
    EXPECT_EQ(trace_pix[8 + 127], grx::system_pix[151]);
}

// --- 24 planes --------------------------------------------------------------------------------------------------------

TEST_F(ColoursOn24, ShiftsAreThoseOfTheVisual) {
    EXPECT_EQ(x11_vis->red_mask >> dec_red & 1, 1U);
    EXPECT_EQ(x11_vis->red_mask, 0xFFUL << dec_red);
    EXPECT_EQ(x11_vis->green_mask, 0xFFUL << dec_green);
    EXPECT_EQ(x11_vis->blue_mask, 0xFFUL << dec_blue);
}

TEST_F(ColoursOn24, TheColormapIsAnewOfTheVisual) {
    EXPECT_NE(x11_cmap, None);
    EXPECT_NE(x11_cmap, DefaultColormap(x11_disp, DefaultScreen(x11_disp)));
    XColor cell{};
    cell.pixel = 0x804020;
    XQueryColor(x11_disp, x11_cmap, &cell); // it is a true-colour map: the pixel is its colour
    EXPECT_EQ(cell.red >> 8, 0x80);
    EXPECT_EQ(cell.green >> 8, 0x40);
    EXPECT_EQ(cell.blue >> 8, 0x20);
}

TEST_F(ColoursOn24, TheColormapIsInstalled) {
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
}

TEST_F(ColoursOn24, BuildingTheColormapAgainWorks) {
    Triple rgb{1, 2, 3};
    grx_modif_rgb(9, rgb.data());
    EXPECT_EQ(grx_init_colormap_24_plans(), 1);
    EXPECT_EQ(colour_at(9), drawing_colour(1));
}

class OtherVisualOn24 : public On24 {
    void before_start() override { fake_.emplace(FakeVisual::Kind::alt32); }
    std::optional<FakeVisual> fake_;
};

TEST_F(OtherVisualOn24, GetsAColormapOfItsOwn) {
    EXPECT_NE(x11_vis, DefaultVisual(x11_disp, DefaultScreen(x11_disp)));
    XSetWindowAttributes attributes{};
    attributes.colormap = x11_cmap; // refused for a window of another visual
    const Window window = XCreateWindow(x11_disp, DefaultRootWindow(x11_disp), 0, 0, 10, 10, 0, vtemp.depth,
        InputOutput, x11_vis, CWColormap | CWBorderPixel, &attributes);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    XDestroyWindow(x11_disp, window);
    EXPECT_EQ(trace_pix[5], (255 << dec_red) + (255 << dec_green) + (255 << dec_blue));
}

// --- 8 planes -----------------------------------------------------------------------------------------------------------

TEST_F(ColoursOn8, TheDefaultColormapIsUsedAndInstalled) {
    EXPECT_EQ(x11_cmap, shared_map());
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
}

TEST_F(ColoursOn8, ShiftsAreZero) {
    EXPECT_EQ(dec_red, 0);
    EXPECT_EQ(dec_green, 0);
    EXPECT_EQ(dec_blue, 0);
}

TEST_F(ColoursOn8, BuildingAgainTakesMoreCells) {
    StdoutCapture capture;
    const INT result = grx_init_colormap_8_plans();
    capture.restore();
    EXPECT_EQ(result, 1);
    EXPECT_EQ(capture.text(), "");
    XSync(x11_disp, False);
    EXPECT_EQ(other().cell(trace_pix[8 + 5]), OtherClient::stored(drawing_colour(5)));
}

class OtherMapInstalledOn8 : public On8 {
    void before_start() override {
        Display* display = test_display();
        const int screen = DefaultScreen(display);
        other_ = XCreateColormap(display, RootWindow(display, screen), DefaultVisual(display, screen), AllocNone);
        XInstallColormap(display, other_);
        XSync(display, False);
    }

  protected:
    Colormap other_ = None;
};

TEST_F(OtherMapInstalledOn8, TheDefaultOneReplacesIt) {
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
    EXPECT_NE(x11_cmap, other_);
}

class RenderingOn8 : public On8 {
    void before_start() override { grx_affecte_max_couleur_rendu(20); }
};

TEST_F(RenderingOn8, ColoursAreBlackCellsUntilSet) {
    const OtherClient other(test_display());
    for (INT k = 56; k < 76; ++k) {
        EXPECT_EQ(trace_pix[k], grx::system_pix[k]);
        EXPECT_EQ(grx::pal_pix[trace_pix[k]], k);
        EXPECT_EQ(other.cell(trace_pix[k]), (Triple{0, 0, 0})) << k;
    }
    Triple rgb{200, 100, 50};
    grx_modif_rgb(75, rgb.data());
    XSync(x11_disp, False);
    EXPECT_EQ(other.cell(trace_pix[75]), OtherClient::stored(rgb));
}

// --- when cells run out -------------------------------------------------------------------------------------------------

// Starts the library with exactly so many cells left.
class ShortageOn8 : public XTest {
  protected:
    void start_with(int free_cells) {
        hog_.emplace(server().name(), free_cells);
        StdoutCapture capture;
        started_ = start_up();
        lines_ = capture.lines();
    }

    // Only the colormap, on a connection of the test: tells the builder's own answer.
    INT build_with(int free_cells) {
        hog_.emplace(server().name(), free_cells);
        x11_disp = XOpenDisplay(server().name().c_str());
        StdoutCapture capture;
        const INT result = grx_init_colormap_8_plans();
        lines_ = capture.lines();
        return result;
    }

    Triple cell(INT pixel) { return OtherClient(test_display()).cell(pixel); }

    std::optional<CellHog> hog_;
    bool started_ = false;
    Lines lines_;
};

const Lines error_5{"GFX ERROR", "Code 5: Error on table color allocation"};

TEST_F(ShortageOn8, JustEnoughSaysNothing) {
    EXPECT_EQ(build_with(56), 1);
    EXPECT_EQ(lines_, Lines{});
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
}

TEST_F(ShortageOn8, EightDrawingColoursAreEnough) {
    start_with(32);
    EXPECT_TRUE(started_);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :8", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_recup_max_couleur_trace(), 8);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 1);
    EXPECT_EQ(grx_premier_index_rendu(), 32);
    EXPECT_EQ(grx_dernier_index_rendu(), 33);
}

// KEEP: the loop goes on after a failure: every later position records the pixel last obtained, and the extra
// rendering colour makes its cell black.
TEST_F(ShortageOn8, TheLastCellIsRecordedForAllThatFollow) {
    EXPECT_EQ(build_with(32), 1);
    const INT last = grx::system_pix[31];
    for (INT k = 32; k < 56; ++k) EXPECT_EQ(grx::system_pix[k], last) << k;
    for (INT k = 56; k < 255; ++k) EXPECT_EQ(grx::system_pix[k], -1) << k;
    EXPECT_EQ(grx::pal_pix[last], 55);
    EXPECT_EQ(trace_pix[15], last);
    EXPECT_EQ(trace_pix[32], last);
    XSync(x11_disp, False);
    EXPECT_EQ(cell(last), (Triple{0, 0, 0}));
    EXPECT_EQ(cell(trace_pix[14]), OtherClient::stored(drawing_colour(6)));
}

TEST_F(ShortageOn8, SevenDrawingColoursAreAnErrorThatStartUpPasses) {
    start_with(31);
    EXPECT_TRUE(started_);
    EXPECT_EQ(lines_, error_5);
    EXPECT_NE(fontstruct, nullptr);
}

TEST_F(ShortageOn8, TheBuilderTellsTheError) {
    EXPECT_EQ(build_with(31), 0);
    EXPECT_EQ(lines_, error_5);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32); // nothing was lowered
}

TEST_F(ShortageOn8, NoIconColoursAreAnError) {
    EXPECT_EQ(build_with(5), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, NoCellAtAllIsAnError) {
    EXPECT_EQ(build_with(0), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, NoReservedColoursAreAnError) {
    EXPECT_EQ(build_with(23), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, OneCellLessTakesOneDrawingColour) {
    EXPECT_EQ(build_with(55), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :31"})); // no further failure, so no second line
    EXPECT_EQ(grx_recup_max_couleur_trace(), 31);
    EXPECT_EQ(grx_premier_index_rendu(), 55);
    EXPECT_EQ(grx_dernier_index_rendu(), 56);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
}

TEST_F(ShortageOn8, ManyDrawingColoursAreCutToWhatThereIs) {
    grx_affecte_max_couleur_trace(128);
    EXPECT_EQ(build_with(100), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :76", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_recup_max_couleur_trace(), 76);
    EXPECT_EQ(grx_premier_index_rendu(), 100);
    EXPECT_EQ(grx_dernier_index_rendu(), 101);
}

TEST_F(ShortageOn8, RenderingColoursAreCutToWhatThereIs) {
    grx_affecte_max_couleur_rendu(40);
    EXPECT_EQ(build_with(70), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs rendu Maxi :14"}));
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 14);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32);
    EXPECT_EQ(grx_premier_index_rendu(), 56);
    EXPECT_EQ(grx_dernier_index_rendu(), 70);
    for (INT k = 56; k < 70; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[k]);
    XSync(x11_disp, False);
    EXPECT_EQ(cell(trace_pix[8 + 31]), OtherClient::stored(drawing_colour(31)));
}

TEST_F(ShortageOn8, NoRenderingColourAtAll) {
    grx_affecte_max_couleur_rendu(40);
    EXPECT_EQ(build_with(56), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs rendu Maxi :0"}));
    EXPECT_EQ(grx_dernier_index_rendu(), 56);
}

TEST_F(ShortageOn8, DrawingShortageWithRenderingColoursAskedFor) {
    grx_affecte_max_couleur_rendu(20);
    EXPECT_EQ(build_with(40), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :16", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_premier_index_rendu(), 40);
    EXPECT_EQ(grx_dernier_index_rendu(), 41);
}

TEST_F(ShortageOn8, TheProgramGoesOnAfterTheError) {
    start_with(20);
    ASSERT_TRUE(started_);
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_GRAPHIQUE;
    window.droite = 100;
    window.haut = 80;
    EXPECT_EQ(grx_cree_fenetre(&window), 0);
    grx_trace_segment({window.nofen, 0, 0, 50, 50, 0, 0, 0, attributes(9)});
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

class ShortageStartOn8 : public ShortageOn8 {};

TEST_F(ShortageStartOn8, LaterStartsWithRoomAreWhole) { // nothing of the shortage is compiled in
    start_with(183);
    EXPECT_EQ(lines_, Lines{});
    EXPECT_EQ(grx_premier_index_rendu(), 56);
}

} // namespace
