// Lists of panel 1, made, clicked and read.
#pragma once

#include "tests/display/panels/panel_kit.h"

namespace grxtest {

inline constexpr INT key = 7;
inline constexpr INT panel = 1;

class PanelLists : public PanelsTest {
  protected:
    void SetUp() override {
        PanelsTest::SetUp();
        if (x11_disp) XtSetMultiClickTime(x11_disp, 0); // clicks in a row are single ones, however fast
        std::fill(std::begin(caracs_entree), std::end(caracs_entree), -99);
    }

    GRX_MSG list_of(INT type = GRX_LISTE_SIMPLE, INT at_key = key, INT in_panel = panel) {
        GRX_MSG message{};
        grx_init_message(&message);
        message.clef = at_key + 55000;
        message.type = type;
        message.nobou = in_panel;
        message.x = 20;
        message.y = 30;
        message.largeur = 200;
        message.hauteur = 150;
        message.nb_cara = lnstate && at_key >= 0 && at_key < HOST_NB_LISTES ? lnstate[at_key] : 0;
        message.fen_mere = window;
        return message;
    }

    Widget made(GRX_MSG message) {
        Widget list = grx_cree_item_liste(&message);
        if (list) EXPECT_TRUE(wait_visible(list));
        settle();
        return list;
    }
    Widget made(INT type = GRX_LISTE_SIMPLE, INT at_key = key, INT in_panel = panel) {
        return made(list_of(type, at_key, in_panel));
    }

    // The middle of an entry, counted from 0.
    void over(Widget list, int entry) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        ASSERT_TRUE(XmListPosToBounds(list, entry + 1, &x, &y, &width, &height));
        pointer().move_in(list, x + 10, y + height / 2);
        settle();
    }

    // One click, with the record full of a pattern before.
    std::optional<GRX_EVENEMENT> click(Widget list, int entry) {
        over(list, entry);
        evt_global = patterned_event();
        std::fill(std::begin(caracs_entree), std::end(caracs_entree), -99);
        pointer().click(1);
        auto result = events.wait(GRX_EVT_ELEMENT_CLIQUE);
        drain();
        return result;
    }

    static void expect_input_state(INT double_click) {
        EXPECT_EQ(caracs_entree[1], 1);
        EXPECT_EQ(caracs_entree[2], double_click);
        for (int other : {0, 3, 4, 5, 6, 7}) EXPECT_EQ(caracs_entree[other], -99) << other;
    }
};

} // namespace grxtest
