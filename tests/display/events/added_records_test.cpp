#include "events/added_records.h"
#include "grx_plus_erreurs.h"

#include "grx_plus_erreurs.h"
#include "tests/support/display_test.h"
#include "tests/support/heap.h"
#include "tests/support/window_kit.h"

#include <string>
#include <vector>

namespace {

using namespace grxtest;

GRX_EVENEMENT record(INT type, INT number) {
    GRX_EVENEMENT made{};
    made.exec_fonction.type_evenement = type;
    made.exec_fonction.no_fo = number;
    return made;
}

class AddedRecordsTest : public DisplayTest {
  protected:
    // What one call of the loop gives.
    INT next() {
        got_ = GRX_EVENEMENT{};
        return grx_digitaliseur(&got_, 0);
    }
    GRX_EVENEMENT got_{};
};

TEST_F(AddedRecordsTest, ComeInTheirOrderAndNoneReplacesAnother) {
    settle();
    for (INT number = 1; number <= 100; ++number) ASSERT_TRUE(grx::post_added(record(GRX_EVT_MINUTERIE, number)));
    for (INT number = 1; number <= 100; ++number) {
        ASSERT_EQ(next(), 1);
        EXPECT_EQ(got_.exec_fonction.type_evenement, GRX_EVT_MINUTERIE);
        EXPECT_EQ(got_.exec_fonction.no_fo, number);
    }
    EXPECT_EQ(next(), 0);
    EXPECT_EQ(got_.type_evenement, GRX_EVT_AUCUN);
}

TEST_F(AddedRecordsTest, TheWaitingLoopWakesUp) {
    settle();
    XtAppAddTimeOut(
        contexte, 20, [](XtPointer, XtIntervalId*) { grx::post_added(record(GRX_EVT_OISIF, 4)); }, nullptr);
    GRX_EVENEMENT got{};
    while (grx_digitaliseur(&got, 1) == 0) {
    }
    EXPECT_EQ(got.exec_fonction.no_fo, 4);
}

TEST_F(AddedRecordsTest, TheyLeaveThePendingRecordEmpty) {
    settle();
    grx::post_added(record(GRX_EVT_OISIF, 4));
    ASSERT_EQ(next(), 1);
    EXPECT_EQ(evt_global.type_evenement, GRX_EVT_AUCUN);
}

TEST_F(AddedRecordsTest, DetailsAreThoseOfTheRecordDeliveredLast) {
    settle();
    const std::string path(1000, 'a');
    const char* const texts[] = {path.c_str(), "", nullptr, "last"};
    grx::post_added(record(GRX_EVT_DEPOT, 0), {3, 4, 2.5, texts});
    grx::post_added(record(GRX_EVT_MINUTERIE, 1));
    GRX_DETAIL_EVENEMENT detail;
    ASSERT_EQ(grx_init_detail_evenement(&detail), 1);
    EXPECT_EQ(grx_recup_detail_evenement(&detail), GRX_ECHEC_ABSENT);
    ASSERT_EQ(next(), 1);
    ASSERT_EQ(grx_recup_detail_evenement(&detail), 1);
    EXPECT_EQ(detail.type_evenement, GRX_EVT_DEPOT);
    EXPECT_EQ(detail.x, 3);
    EXPECT_EQ(detail.y, 4);
    EXPECT_EQ(detail.reel, 2.5);
    ASSERT_EQ(detail.nb_textes, 4);
    EXPECT_EQ(grx_recup_texte_detail_evenement(0), path);
    EXPECT_STREQ(grx_recup_texte_detail_evenement(1), "");
    EXPECT_STREQ(grx_recup_texte_detail_evenement(2), "");
    EXPECT_STREQ(grx_recup_texte_detail_evenement(3), "last");
    for (const INT rank : {4, -1, INT32_MAX, INT32_MIN}) EXPECT_EQ(grx_recup_texte_detail_evenement(rank), nullptr);
    ASSERT_EQ(next(), 1);
    ASSERT_EQ(grx_recup_detail_evenement(&detail), 1);
    EXPECT_EQ(detail.type_evenement, GRX_EVT_MINUTERIE);
    EXPECT_EQ(detail.nb_textes, 0);
    EXPECT_EQ(next(), 0);
    EXPECT_EQ(grx_recup_detail_evenement(&detail), GRX_ECHEC_ABSENT);
    EXPECT_EQ(detail.type_evenement, 0);
    EXPECT_EQ(grx_recup_texte_detail_evenement(0), nullptr);
}

TEST_F(AddedRecordsTest, RecordsOfOtherSizesAreRefused) {
    EXPECT_EQ(grx_init_detail_evenement(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_detail_evenement(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_DETAIL_EVENEMENT detail{};
    EXPECT_EQ(grx_recup_detail_evenement(&detail), GRX_ECHEC_PARAMETRE);
}

TEST_F(AddedRecordsTest, ThoseOfAThingThatIsGoneCanBeDropped) {
    settle();
    for (const INT number : {1, 2, 1, 3}) grx::post_added(record(GRX_EVT_MINUTERIE, number));
    const INT gone = 1;
    grx::drop_added([](const GRX_EVENEMENT& waiting,
                        const void* what) { return waiting.exec_fonction.no_fo == *static_cast<const INT*>(what); },
        &gone);
    ASSERT_EQ(next(), 1);
    EXPECT_EQ(got_.exec_fonction.no_fo, 2);
    ASSERT_EQ(next(), 1);
    EXPECT_EQ(got_.exec_fonction.no_fo, 3);
    EXPECT_EQ(next(), 0);
}

TEST_F(AddedRecordsTest, WithoutMemoryNothingIsPosted) {
    settle();
    heap().fail_at(1);
    EXPECT_FALSE(grx::post_added(record(GRX_EVT_MINUTERIE, 1)));
    heap().fail_never();
    EXPECT_EQ(next(), 0);
    const NoLeak no_leak;
    const char* const texts[] = {"text"};
    for (int round = 0; round < 500; ++round) {
        ASSERT_TRUE(grx::post_added(record(GRX_EVT_MINUTERIE, 1), {0, 0, 0, texts}));
        ASSERT_EQ(next(), 1);
    }
    EXPECT_EQ(next(), 0);
}

} // namespace
