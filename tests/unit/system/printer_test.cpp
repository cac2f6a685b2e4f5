// The output device, which draws nothing.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/support/stdout_capture.h"

#include "host_g.h"
#include "xt_f.h"

#include <climits>
#include <vector>

namespace grxtest {
namespace {

// --- what a printer is asked --------------------------------------------------------------------------------------

TEST(OutputDevice, HasAPageOfOneUnit) {
    INT a = 7, b = 7, c = 7, d = 7;
    EXPECT_EQ(getimpdim(&a, &b, &c, &d), 1);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(c, 1);
    EXPECT_EQ(d, 1);
    EXPECT_EQ(getimpstepx(), 1.0);
    EXPECT_EQ(getimpstepy(), 1.0);
    EXPECT_EQ(getimppalette(), 1);
    EXPECT_EQ(getimpwidth(), 1);
}

TEST(OutputDevice, EachPlaceOfThePageMayBeMissing) {
    for (int missing = 0; missing < 16; ++missing) {
        INT values[4] = {7, 7, 7, 7};
        INT* places[4];
        for (int k = 0; k < 4; ++k) places[k] = missing >> k & 1 ? nullptr : values + k;
        EXPECT_EQ(getimpdim(places[0], places[1], places[2], places[3]), 1);
        for (int k = 0; k < 4; ++k) EXPECT_EQ(values[k], places[k] ? k / 2 : 7) << missing << " " << k;
    }
}

TEST(OutputDevice, ItsPensAreTheReservedAndTheDrawingColours) {
    for (INT drawing : {32, 8, 128}) {
        grx_affecte_max_couleur_trace(drawing);
        EXPECT_EQ(getimpnbpen(), grx_recup_max_couleur_reserve() + drawing);
    }
    EXPECT_EQ(grx_recup_max_couleur_reserve(), 8);
}

TEST(OutputDevice, ItsListsAreEmpty) {
    EXPECT_EQ(chnListPortSerie, nullptr);
    EXPECT_EQ(chnListBaud, nullptr);
    EXPECT_EQ(chnListDataBits, nullptr);
    EXPECT_EQ(chnListStopBits, nullptr);
    EXPECT_EQ(chnListPortParallele, nullptr);
    EXPECT_EQ(chnListQueueReseau, nullptr);
    EXPECT_EQ(nbQueue, 0);
    static_assert(sizeof *chnListPortSerie == 20);
}

TEST(OutputDevice, RefreshingTheQueuesLeavesThemEmpty) {
    nbQueue = 3; // the application's to change: refreshing does nothing
    EXPECT_EQ(ActualiseQueueReseau(), 0);
    EXPECT_EQ(nbQueue, 3);
    EXPECT_EQ(chnListQueueReseau, nullptr);
}

// --- the life of a document ---------------------------------------------------------------------------------------

TEST(OutputDevice, StartingChoosesDevice0) {
    ASSERT_NE(device_output, 0);
    EXPECT_EQ(InitDeviceOutput(), 1);
    EXPECT_EQ(device_output, 0);
    device_output = 5;
    EXPECT_EQ(InitDeviceOutput(), 1);
    EXPECT_EQ(device_output, 0);
}

TEST(OutputDevice, TheRestOfTheLifeOfADocumentAnswers1AndKeepsTheDevice) {
    device_output = 5;
    EXPECT_EQ(ModifyDeviceOutput(), 1);
    EXPECT_EQ(ModifyDeviceOutput(1, "x", nullptr), 1);
    EXPECT_EQ(StartDocumentOutput(), 1);
    EXPECT_EQ(StartDocumentOutput("plan", 3), 1);
    EXPECT_EQ(EndDocumentOutput(), 1);
    EXPECT_EQ(EndDocumentOutput(2), 1);
    EXPECT_EQ(ReleaseDeviceOutput(), 1);
    EXPECT_EQ(ReleaseDeviceOutput(nullptr), 1);
    EXPECT_EQ(device_output, 5);
}

TEST(OutputDevice, DrawingOnItDoesNothing) {
    const StdoutCapture capture;
    const std::size_t allocations = heap().allocations();
    imp_trace_point({});
    imp_trace_segment({});
    imp_trace_polyline({});
    imp_trace_rectangle({});
    imp_trace_arc({});
    imp_remplit_rectangle({});
    imp_remplit_arc({});
    imp_remplit_polygone({});
    imp_remplit_triangle({});
    imp_trace_texte({});
    uchar pixels[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const std::vector<uchar> before(pixels, pixels + 12);
    imp_stretch_image(pixels, pixels, 2, 2, 0, 0, 8, 8);
    imp_stretch_image(nullptr, nullptr, INT_MAX, INT_MAX, 0, 0, INT_MAX, INT_MIN);
    EXPECT_EQ(before, std::vector<uchar>(pixels, pixels + 12));
    EXPECT_EQ(heap().allocations(), allocations);
}

TEST(OutputDevice, HasNoMessages) {
    INT number = 7;
    EXPECT_EQ(getDevMessOrChn(1, 2, &number), nullptr);
    EXPECT_EQ(getDevMessOrChn(INT_MIN, INT_MAX, nullptr), nullptr);
    EXPECT_EQ(number, 7);
    char text[] = "as it is";
    LoadAbortPlotterComm(1, 2, text);
    LoadAbortPlotterComm(1, 2, nullptr);
    EXPECT_STREQ(text, "as it is");
}

} // namespace
} // namespace grxtest
