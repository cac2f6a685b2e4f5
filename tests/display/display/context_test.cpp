// The two drawing contexts.
#include "tests/display/display/start_kit.h"

namespace {

using namespace grxtest;

constexpr unsigned long context_values = GCFunction | GCForeground | GCLineWidth | GCLineStyle | GCCapStyle
                                         | GCJoinStyle | GCFont | GCSubwindowMode | GCGraphicsExposures;

TEST_F(StartUp, TheDrawingContextIsMadeWithEachWindowOfItsOwn) {
    const GC probes = g_c;
    make(GRX_FEN_ALPHA);
    const GC first = g_c;
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, probes);
    XGCValues values{};
    ASSERT_TRUE(XGetGCValues(x11_disp, g_c, context_values, &values));
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.font, fontstruct->fid);
    EXPECT_EQ(values.graphics_exposures, False) << "copies queue no events";
    make(GRX_FEN_ALPHA);
    EXPECT_NE(g_c, first);
    XGCValues old{};
    EXPECT_TRUE(XGetGCValues(x11_disp, first, GCFont, &old)) << "the one before is not freed";
    EXPECT_EQ(old.font, fontstruct->fid);
    const GC second = g_c;
    GRX_FENETRE child = described(GRX_FEN_ALPHA);
    child.fen_mere = 1;
    ASSERT_EQ(grx_cree_fenetre(&child), 0);
    EXPECT_EQ(g_c, second) << "a child window makes none";
}

TEST_F(StartUp, TheRubberBandContext) {
    make(GRX_FEN_ALPHA);
    ASSERT_NE(gc, nullptr);
    XGCValues values{};
    ASSERT_TRUE(XGetGCValues(x11_disp, gc, context_values, &values));
    EXPECT_EQ(values.function, GXxor);
    EXPECT_EQ(values.foreground, WhitePixel(x11_disp, x11_screen));
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.cap_style, CapNotLast);
    EXPECT_EQ(values.join_style, JoinRound);
    EXPECT_EQ(values.subwindow_mode, IncludeInferiors);
}

TEST_F(StartUp, AContextOfAWidgetThatIsNoWindowChangesNothing) {
    make(GRX_FEN_ALPHA);
    const GC before = g_c;
    EXPECT_EQ(grx_init_gc(nullptr), 0);
    EXPECT_EQ(g_c, before);
}

} // namespace
