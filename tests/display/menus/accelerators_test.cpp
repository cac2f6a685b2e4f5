// The keys of menu entries.
#include "tests/display/menus/menu_kit.h"

#include <Xm/XmAll.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

TEST_F(MenuTest, AcceleratorsReadBackAsStated) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||plain||1|\nITEM||key|F5|2|\nITEM||ctrl|Ctrl+S|3|\n"
                          "ITEM||list|Ctrl+W,Ctrl+F4|4|\nITEM||blanks|  Ctrl + K  |5|\nITEM||two|Ctrl+Shift+T|6|\n"
                          "ITEM||-|Ctrl+Q|7|\n}\n"));
    const std::vector<std::array<std::string, 3>> expected{{"key", "<Key>F5:", "F5"}, {"ctrl", "Ctrl<Key>S:", "Ctrl+S"},
        {"list", "Ctrl<Key>W:", "Ctrl+W"}, {"two", "Ctrl Shift<Key>T:", "Ctrl+Shift+T"}};
    for (const auto& [label, translation, text] : expected) {
        char* value = nullptr;
        XtVaGetValues(entry_named(label), XmNaccelerator, &value, nullptr);
        ASSERT_NE(value, nullptr) << label;
        EXPECT_EQ(value, translation);
        XtFree(value);
        EXPECT_EQ(text_resource(entry_named(label), XmNacceleratorText), text);
    }
    char* none = nullptr;
    XtVaGetValues(entry_named("plain"), XmNaccelerator, &none, nullptr);
    EXPECT_TRUE(none == nullptr || *none == '\0');
    XtFree(none);
}

TEST_F(MenuTest, KeysChooseOncePerPress) {
    const INT window = main_window(menu_of_keys);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    ASSERT_FALSE(events.seen().empty());
    const auto& record = *std::ranges::find_if(
        events.seen(), [](const GRX_EVENEMENT& e) { return e.type_evenement == GRX_EVT_BOUTON_APPUI; });
    EXPECT_EQ(record.bouton_appui.nofen, window);
    EXPECT_EQ(record.bouton_appui.bouton, 1);
    EXPECT_EQ(chosen_by_key(12, XK_F5), 1);
    EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1);
    EXPECT_EQ(chosen_by_key(15, XK_t, ControlMask | ShiftMask), 1);
    EXPECT_EQ(chosen_by_key(17, XK_Delete, ShiftMask), 1);
    EXPECT_EQ(chosen_by_key(18, XK_F5, ControlMask), 1);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

TEST_F(MenuTest, KeysWithOtherModifiersChooseNothing) {
    main_window(menu_of_keys);
    const std::vector<std::pair<KeySym, unsigned>> others{{XK_s, 0}, {XK_s, Mod1Mask}, {XK_s, ControlMask | Mod1Mask},
        {XK_s, ControlMask | ShiftMask}, {XK_F5, Mod1Mask}, {XK_t, ControlMask}, {XK_x, 0}, {XK_q, ControlMask},
        {XK_Delete, 0}};
    for (const auto& [symbol, modifiers] : others) {
        chosen_by_key(0, symbol, modifiers);
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << symbol << " with " << modifiers;
    }
}

TEST_F(MenuTest, OnlyTheFirstKeyOfAListCounts) {
    main_window(menu_of_keys);
    EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(14, XK_F4, ControlMask), 0);
}

TEST_F(MenuTest, LocksDoNotMatter) {
    main_window(menu_of_keys);
    for (int locks = 0; locks < 4; ++locks) {
        if (locks & 1) lock_numbers();
        if (locks & 2) lock_capitals();
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << locks;
        EXPECT_EQ(chosen_by_key(12, XK_F5), 1) << locks;
        EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << locks;
        release_locks();
    }
}

TEST_F(MenuTest, InsensitiveAndUnmanagedEntriesAreNotChosen) {
    main_window(menu_of_keys);
    XtSetSensitive(entry_named("s"), False);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
    XtSetSensitive(entry_named("s"), True);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    XtUnmanageChild(entry_named("f5"));
    EXPECT_EQ(chosen_by_key(12, XK_F5), 0);
    XtManageChild(entry_named("f5"));
    EXPECT_EQ(chosen_by_key(12, XK_F5), 1);
}

// A key without the modifier that was meant is another key.
TEST_F(MenuTest, UnknownModifiersChooseNothing) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||s|Maj+S|11|\nITEM||f5|Rien+F5|12|\nITEM||x|Ctrl+Rien+X|13|\n"
                          "ITEM||t|Super+T|14|\nITEM||w|Ctrl+W|15|\n}\n"));
    EXPECT_EQ(text_resource(entry_named("s"), XmNacceleratorText), "Maj+S");
    for (const unsigned modifiers : {0U, unsigned{ShiftMask}, unsigned{ControlMask}, unsigned{Mod1Mask}}) {
        EXPECT_EQ(chosen_by_key(11, XK_s, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(12, XK_F5, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(13, XK_x, modifiers), 0) << modifiers;
        EXPECT_EQ(chosen_by_key(14, XK_t, modifiers), 0) << modifiers;
    }
    EXPECT_EQ(chosen_by_key(15, XK_w, ControlMask), 1);
}

class FrenchKeys : public MenuTest {
  protected:
    void before_start() override { keyboard().layout("fr"); }
};

TEST_F(FrenchKeys, KeysAreThoseOfTheLayout) {
    main_window(menu_of_keys);
    EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(16, XK_q, ControlMask), 0);
}

TEST_F(FrenchKeys, AccentedMnemonicsWork) {
    main_window(menu_zone("POPUP||&\351dition|\n{\nITEM||a&\350re||21|\n}\n"));
    EXPECT_EQ(shown_bar(), "\351dition_\351{a\350re_\350}");
    keyboard().key(XK_eacute, Mod1Mask);
    ASSERT_TRUE(wait_visible(all_of_bar().at(1)));
    drain();
    keyboard().key(XK_egrave);
    ASSERT_TRUE(wait_for([&] { return chosen(21) == 1; })) << events.describe();
}

// The layout that the keyboard gets while the bar is up.
TEST_F(MenuTest, KeysFollowANewLayout) {
    main_window(menu_of_keys);
    for (int i = 0; i < 3; ++i) {
        new_layout("fr");
        EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(16, XK_q, ControlMask), 0) << i; // where the letter was
        EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << i;
        new_layout("us");
        EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(14, XK_w, ControlMask), 1) << i;
        EXPECT_EQ(chosen_by_key(14, XK_z, ControlMask), 0) << i;
    }
}

TEST_F(MenuTest, KeyThatOnlyTheNewLayoutHasWorksThen) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||e|Ctrl+eacute|31|\n}\n"));
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(31, XK_eacute, ControlMask), 1);
    new_layout("us");
    EXPECT_EQ(chosen_by_key(31, XK_2, ControlMask), 0);
}

TEST_F(MenuTest, ManyLayoutsLeaveNothing) {
    const INT window = main_window(menu_of_keys);
    const auto bytes = heap().bytes();
    const auto grabs = server_resources(test_display(), x_window(window));
    for (const char* layout : {"fr", "us", "fr", "de", "us"}) new_layout(layout);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), grabs);
    grx_detruit_menu_bar();
    new_layout("fr");
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(16, XK_a, ControlMask), 1);
    grx_detruit_fenetre(grx_recup_nofen_principale());
    new_layout("fr"); // no bar any more
}

} // namespace
