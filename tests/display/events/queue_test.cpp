// Events dropped and flushed.
#include "tests/display/events/keys_kit.h"

#include <X11/keysym.h>

#include <climits>

namespace {

using namespace grxtest;

class Pending : public Keys {
  protected:
    void expose(INT window) {
        XSync(x11_disp, False);
        XClearArea(test_display(), x_window(window), 0, 0, 10, 10, True);
        XSync(test_display(), False);
    }
};

TEST_F(Pending, RedrawsOfOneWindowAreDropped) {
    GRX_FENETRE beside = described(GRX_FEN_ALPHA);
    beside.x = 600;
    const INT other = make(beside);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    drain();
    events.clear();
    expose(window_);
    expose(other);
    pointer().click();
    evt_global = patterned_event();
    EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, window_), 0);
    EXPECT_EQ(evt_global.type_evenement, untouched) << "they are absorbed";
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
    events.clear();
    expose(window_);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << "later ones are handled again";
}

TEST_F(Pending, OtherTypesDropNothing) {
    for (INT type : {0, 1, 2, 3, 16, -1, INT_MAX}) {
        expose(window_);
        EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(type, window_), 0);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << type;
        events.clear();
    }
}

TEST_F(Pending, UnknownWindowsDropNothing) {
    expose(window_);
    for (INT n : {0, -1, 50, 99, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, n), 0);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1);
}

TEST_F(Pending, FlushingHandlesEverything) {
    keyboard().key(XK_k);
    pointer().click();
    expose(window_);
    record_of(window_).affiche = 0;
    evt_global = patterned_event();
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(XEventsQueued(x11_disp, QueuedAfterReading), 0);
    EXPECT_EQ(record_of(window_).affiche, 1) << "the redraw was dispatched";
    EXPECT_NE(evt_global.type_evenement, untouched);
    drain();
    EXPECT_EQ(events.seen().size(), 0U) << events.describe();
}

TEST_F(Pending, FlushingDropsCloseRequests) {
    ask_to_close(test_display(), XtWindow(shell_of(window_)));
    pointer().click();
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(evt_global.type_evenement, GRX_EVT_BOUTON_RELACHE);
    drain();
    ASSERT_NE(widget_of(window_), nullptr);
    EXPECT_TRUE(visible(x_window(window_)));
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0);
}

TEST_F(Pending, FlushingNothingReturns) {
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
}

TEST(NoDisplayYet, SearchAndFlushAnswerNothing) {
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
    EXPECT_EQ(grx_cherche_evenement(3, &event, 1), 0);
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(4, 1), 0);
    EXPECT_EQ(grx_recup_etat_clavier(), 0);
}

} // namespace
