// Context menus: where they open, what they answer, how they close.
#include "tests/display/menus/context_kit.h"

#include <string>
#include <vector>

namespace {

using namespace grxtest;

TEST_F(ContextMenuTest, IsBuiltOfItsZone) {
    const INT window = graphic_window();
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), window);
    ASSERT_TRUE(wait_shown());
    EXPECT_EQ(shown_menu(), context_shown);
    const Point work = root_position(widget_of(window)), corner = root_position(menu());
    EXPECT_EQ(corner.x, work.x + 100);
    EXPECT_EQ(corner.y, work.y + 100); // of 300
}

TEST_F(ContextMenuTest, AClickOnAnEntryAnswersLikeTheBar) {
    const INT window = graphic_window();
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
    ASSERT_TRUE(wait_shown());
    events.clear();
    pointer().click_in(entry("Grille"));
    const auto record = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->bouton_appui.nofen, window);
    EXPECT_EQ(record->bouton_appui.nobou, GRX_AUCUN);
    EXPECT_EQ(record->bouton_appui.no_fo, 102);
    EXPECT_TRUE(wait_closed());
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << events.describe();
    EXPECT_TRUE(input_is_free());
}

// As applications do: at the record of the press. The release that follows at once leaves it open.
TEST_F(ContextMenuTest, APressOfTheRightButtonOpensItAndTheReleaseLeavesIt) {
    const INT window = graphic_window();
    pointer().move_in(widget_of(window), 100, 100);
    pointer().press(3);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, press->bouton_appui.x, press->bouton_appui.y), 1);
    pointer().release(3);
    drain();
    EXPECT_TRUE(shown());
    pointer().click_in(entry("Supprimer"));
    ASSERT_TRUE(wait_for([&] { return chosen(103) == 1; })) << events.describe();
    EXPECT_TRUE(wait_closed());
    EXPECT_TRUE(input_is_free());
}

TEST_F(ContextMenuTest, TheButtonThatIsHeldChoosesWhereItIsReleased) {
    const INT window = graphic_window();
    pointer().move_in(widget_of(window), 100, 100);
    pointer().press(3);
    ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
    ASSERT_TRUE(wait_shown());
    for (const char* label : {"Ouvrir", "Grille", "Exporter"}) {
        pointer().move_in(entry(label), 10, 5);
        drain();
    }
    ASSERT_TRUE(wait_visible(entry("DXF")));
    pointer().move_in(entry("DXF"), 10, 5);
    drain();
    pointer().release(3);
    ASSERT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
    EXPECT_TRUE(wait_closed());
    EXPECT_TRUE(input_is_free());
}

TEST_F(ContextMenuTest, EscapeAndClicksElsewhereCloseIt) {
    const INT window = graphic_window();
    for (int way = 0; way < 4; ++way) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        events.clear();
        if (way == 0) keyboard().key(XK_Escape);
        if (way == 1) pointer().click(5, 5);
        if (way == 2) pointer().click(5, 5, 3);
        if (way == 3) pointer().click_in(widget_of(window), 390, 290);
        EXPECT_TRUE(wait_closed()) << way;
        EXPECT_TRUE(input_is_free()) << way;
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << way << events.describe();
    }
}

TEST_F(ContextMenuTest, ArrowsReturnAndMnemonicsChoose) {
    const INT window = graphic_window();
    const std::vector<std::pair<std::vector<KeySym>, INT>> ways{{{XK_Down, XK_Return}, 102}, {{XK_g}, 102},
        {{XK_s}, 103}, {{XK_e, XK_d}, 120}, {{XK_Up, XK_Return}, 103},
        {{XK_Up, XK_Up, XK_Right, XK_Down, XK_Right, XK_Return}, 130}, {{XK_Return}, 101}};
    for (const auto& [keys, function] : ways) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        events.clear();
        for (KeySym key : keys) {
            keyboard().key(key);
            drain();
        }
        EXPECT_TRUE(wait_for([&] { return chosen(function) == 1; })) << function << events.describe();
        EXPECT_TRUE(wait_closed());
    }
}

} // namespace
