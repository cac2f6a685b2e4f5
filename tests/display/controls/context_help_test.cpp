// Help in context menus: texts of their entries, records of them, and the help key while one is open.
#include "tests/display/menus/context_kit.h"
#include "tests/support/control_kit.h"

#include "grx_plus.h"

#include <X11/keysym.h>

#include <string>
#include <vector>

namespace {

using namespace grxtest;

class ContextHelpTest : public ContextMenuTest {
  protected:
    void SetUp() override {
        ContextMenuTest::SetUp();
        main_ = main_window();
        window_ = graphic_window(640, 300);
        GRX_FENETRE panel = described(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 200, 100);
        panel.x = 20;
        panel.y = 20;
        label_ = make(control_of(GRX_BOU_LABEL, 0, make(panel), "Ready"));
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(label_)));
        EXPECT_EQ(grx_affecte_bouton_aide_menu(label_), 1);
        EXPECT_EQ(grx_affecte_aide_menu(101, "Opens a drawing"), 1);
        EXPECT_EQ(grx_affecte_aide_menu(130, "Writes PNG"), 1);
    }
    std::string shown_text() { return text_resource(grx_recup_objet_bout(label_), XmNlabelString); }
    void open() {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window_, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        drain();
        events.clear();
    }
    void press(KeySym symbol) {
        keyboard().key(symbol);
        drain();
        drain();
    }
    std::vector<GRX_EXEC_FONCTION> told(INT source) {
        std::vector<GRX_EXEC_FONCTION> all;
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_AIDE && e.exec_fonction.valeur == source) all.push_back(e.exec_fonction);
        return all;
    }

    INT main_ = 0, window_ = 0, label_ = 0;
};

TEST_F(ContextHelpTest, TextsOfTheHighlightedEntryAreShown) {
    open();
    EXPECT_EQ(shown_text(), "Opens a drawing") << "the first entry is highlighted from the start";
    press(XK_Down);
    EXPECT_EQ(shown_text(), "Ready");
    press(XK_Up);
    EXPECT_EQ(shown_text(), "Opens a drawing");
    press(XK_Escape);
    ASSERT_TRUE(wait_closed());
    EXPECT_EQ(shown_text(), "Ready");
}

TEST_F(ContextHelpTest, OfSubmenusAsWell) {
    open();
    for (const KeySym symbol : {XK_Down, XK_Down, XK_Right, XK_Down, XK_Right}) press(symbol);
    EXPECT_EQ(shown_text(), "Writes PNG");
    press(XK_Return);
    EXPECT_EQ(chosen(130), 1) << events.describe();
    ASSERT_TRUE(wait_closed());
    EXPECT_EQ(shown_text(), "Ready");
}

enum class End { escape, choice, closed, window_gone };

TEST_F(ContextHelpTest, RecordsNameItsWindowHoweverItEnds) {
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_MENU), 1);
    for (const End end : {End::escape, End::choice, End::closed, End::window_gone}) {
        open();
        press(XK_Down);
        switch (end) {
        case End::escape: press(XK_Escape); break;
        case End::choice: press(XK_Return); break;
        case End::closed: EXPECT_EQ(grx_ferme_menu_contextuel(), 1); break;
        case End::window_gone: grx_detruit_fenetre(window_); break;
        }
        drain();
        const auto records = told(GRX_AIDE_MENU);
        ASSERT_GE(records.size(), 2U) << events.describe();
        for (const GRX_EXEC_FONCTION& record : records) EXPECT_EQ(record.nofen, window_) << static_cast<int>(end);
        EXPECT_EQ(records[records.size() - 2].no_fo, 102);
        EXPECT_EQ(records.back().no_fo, GRX_AUCUN);
        EXPECT_EQ(shown_text(), "Ready");
    }
}

TEST_F(ContextHelpTest, TheHelpKeyAsksAboutTheEntryAndClosesTheMenu) {
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), 1);
    for (int round = 0; round < 3; ++round) {
        if (round == 1) lock_numbers();
        if (round == 2) new_layout("fr");
        open();
        press(XK_Down);
        press(XK_F1);
        const auto records = told(GRX_AIDE_TOUCHE);
        ASSERT_EQ(records.size(), 1U) << events.describe();
        EXPECT_EQ(records[0].nofen, window_);
        EXPECT_EQ(records[0].nobou, GRX_AUCUN);
        EXPECT_EQ(records[0].no_fo, 102);
        ASSERT_TRUE(wait_closed());
        EXPECT_TRUE(input_is_free());
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0);
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0);
    }
}

TEST_F(ContextHelpTest, UnaskedTheHelpKeyTellsNothing) {
    open();
    press(XK_F1); // with which the toolkit closes menus
    press(XK_Escape);
    ASSERT_TRUE(wait_closed());
    EXPECT_EQ(events.count(GRX_EVT_AIDE), 0);
    EXPECT_TRUE(input_is_free());
}

TEST_F(ContextHelpTest, AnInsensitiveEntryOfThatKeyHasItDoNothing) {
    write_menu(menu_zone("POPUP||A|\n{\nITEM||help|F1|77|\n}\n"));
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    EXPECT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), 1);
    pointer().move_in(widget_of(main_), 60, 200);
    drain();
    events.clear();
    press(XK_F1);
    EXPECT_EQ(chosen(77), 1);
    EXPECT_EQ(grx_desactive_entree_menu(77, 1, 0), 1);
    drain();
    events.clear();
    press(XK_F1);
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0);
    EXPECT_EQ(events.count(GRX_EVT_AIDE), 0);
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0);
    EXPECT_EQ(grx_initialise_entrees_menu(), 1);
    drain();
    events.clear();
    press(XK_F1);
    EXPECT_EQ(chosen(77), 1);
}

} // namespace
