// Searching the queue for an event of one type.
#include "tests/display/events/keys_kit.h"

#include <X11/keysym.h>

#include <climits>
#include <thread>

namespace {

using namespace grxtest;

class Search : public Keys {
  protected:
    // The server has sent all that was injected.
    void arrive() { XSync(x11_disp, False); }
};

TEST_F(Search, AnEmptyQueueGivesNothing) {
    for (INT type : {2, 3, 0, 1, 4, -1, INT_MAX}) {
        GRX_EVENEMENT event = patterned_event();
        EXPECT_EQ(grx_cherche_evenement(type, &event, 0), 0) << type;
        EXPECT_EQ(event.type_evenement, 0) << type;
    }
}

TEST_F(Search, AKeyIsFound) {
    pointer().move_in(widget_of(window_), 60, 70);
    keyboard().key(XK_k);
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
    EXPECT_EQ(event.carac_appui.nofen, window_);
    EXPECT_EQ(event.carac_appui.carac, 'k');
    EXPECT_EQ(std::memcmp(&event, &evt_global, sizeof event), 0) << "the whole record";
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 0) << "once";
    EXPECT_EQ(event.type_evenement, 0);
    drain();
    EXPECT_GE(events.count(GRX_EVT_SOURIS_BOUGE), 1) << "what was before it waits still";
}

TEST_F(Search, AMousePressIsFoundBeforeAKey) {
    keyboard().key(XK_k);
    pointer().click();
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(event.bouton_appui.x, 30);
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 2) << "then the key";
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
    EXPECT_EQ(event.carac_appui.carac, 'k');
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 0);
}

TEST_F(Search, AMousePressIsNoKey) {
    pointer().click();
    arrive();
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << "it is still there";
}

TEST_F(Search, OtherTypesTakeNothing) {
    pointer().click();
    keyboard().key(XK_k);
    arrive();
    for (INT type : {0, 1, 4, 6, 15, -3, INT_MAX, INT_MIN})
        for (INT blocking : {0, 1}) {
            GRX_EVENEMENT event = patterned_event();
            EXPECT_EQ(grx_cherche_evenement(type, &event, blocking), 0);
            EXPECT_EQ(event.type_evenement, 0);
        }
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1);
}

TEST_F(Search, AKeyThatPostsNothingDoesNotBringTheLastRecordBack) {
    keyboard().key(XK_k);
    arrive();
    GRX_EVENEMENT event{};
    ASSERT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    keyboard().press(XK_Shift_L);
    keyboard().release(XK_Shift_L);
    arrive();
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, 0);
}

TEST_F(Search, BlockingTakesWhatIsThere) {
    keyboard().key(XK_k);
    pointer().click();
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(2, &event, 1), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(grx_cherche_evenement(3, &event, 1), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
}

TEST_F(Search, BlockingWaits) {
    for (INT type : {2, 3}) {
        const std::string name = server().name();
        std::thread user([&] { // its own connection: input comes while the search waits
            const InputConnection connection(name);
            if (type == 2)
                Pointer(connection).click(3);
            else
                Keyboard(connection).key(XK_m);
        });
        GRX_EVENEMENT event{};
        EXPECT_EQ(grx_cherche_evenement(type, &event, 7), 1);
        user.join();
        EXPECT_EQ(event.type_evenement, type);
        if (type == 2) {
            EXPECT_EQ(event.bouton_appui.bouton, 3);
        } else {
            EXPECT_EQ(event.carac_appui.carac, 'm');
        }
        drain();
    }
}

} // namespace
