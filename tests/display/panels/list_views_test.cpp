// Lists of every kind read by the application: what is selected, what is in view and where, modes, columns.
#include "tests/display/panels/list_kit.h"

#include <climits>

namespace {

using namespace grxtest;
using Positions = std::vector<INT>;

class ListViews : public ListTest {
  protected:
    static Positions view_of(INT list) {
        INT first = -1, count = -1;
        EXPECT_EQ(grx_recup_vue_liste(list, &first, &count), 1);
        return {first, count};
    }
    static bool in_view(INT list, INT position) {
        INT y = -1, height = -1;
        if (grx_recup_cadre_element_liste(list, position, nullptr, &y, nullptr, &height) != 1) return false;
        return y + height <= resource<Dimension>(widget_of_list(list), XmNheight);
    }

    // Columns in which something is drawn, in the row of an entry: pairs of where ink begins after 10 blank pixels.
    std::vector<int> ink_begins(INT list, INT position) {
        INT x = 0, y = 0, width = 0, height = 0;
        EXPECT_EQ(grx_recup_cadre_element_liste(list, position, &x, &y, &width, &height), 1);
        drain();
        const Pixels row = grab(x11_disp, XtWindow(widget_of_list(list)), {x, y, width, height});
        const auto ground = row.at(width - 2, height / 2);
        std::vector<int> begins;
        int blank = 100;
        for (int column = 1; column < width - 1; ++column) {
            bool ink = false;
            for (int line = 1; line < height - 1; ++line) ink = ink || row.at(column, line) != ground;
            if (ink && blank > 8) begins.push_back(column + x);
            blank = ink ? 0 : blank + 1;
        }
        return begins;
    }
};

TEST_F(ListViews, AListOfOneSelectsTheLastOneNamed) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"a", "b", "c"}), 1);
        EXPECT_EQ(grx_recup_mode_liste(list), GRX_LISTE_UNE);
        EXPECT_EQ(selected(list, {1, 3}), 1);
        EXPECT_EQ(selection_of(list), Positions{3});
        EXPECT_EQ(grx_is_element_selectionne(list, 3), 1);
        EXPECT_EQ(grx_is_element_selectionne(list, 1), 0);
        EXPECT_EQ(deselected(list, {1}), 1);
        EXPECT_EQ(selection_of(list), Positions{3});
        EXPECT_EQ(grx_deselectionne_tout_liste(list), 1);
        EXPECT_EQ(selection_of(list), Positions{});
        EXPECT_EQ(told_selection(list), Positions{});
        settle();
        EXPECT_EQ(events.types(), std::vector<INT>{}) << "what the program does makes no record";
    }
}

TEST_F(ListViews, SeveralBesideThoseThatAreSelected) {
    for (const ListOf kind : list_kinds) {
        for (const INT mode : {GRX_LISTE_PLUSIEURS, GRX_LISTE_ETENDUE}) {
            SCOPED_TRACE(static_cast<int>(kind) * 10 + mode);
            const INT list = list_of(kind);
            ASSERT_EQ(filled(list, numbered_entries(6)), 1);
            ASSERT_EQ(grx_affecte_mode_liste(list, mode), 1);
            EXPECT_EQ(grx_recup_mode_liste(list), mode);
            EXPECT_EQ(selected(list, {5, 2}), 1);
            EXPECT_EQ(selected(list, {4, 5}), 1) << "one that is selected stays so";
            EXPECT_EQ(selection_of(list), (Positions{2, 4, 5}));
            EXPECT_EQ(told_selection(list), (Positions{2, 4, 5}));
            INT few[] = {0, 0, -7};
            EXPECT_EQ(grx_recup_selection_liste(list, 2, few), 3);
            EXPECT_EQ(few[0], 2);
            EXPECT_EQ(few[1], 4);
            EXPECT_EQ(few[2], -7);
            EXPECT_EQ(deselected(list, {5, 1}), 1);
            EXPECT_EQ(selection_of(list), (Positions{2, 4}));
            EXPECT_EQ(grx_affecte_mode_liste(list, GRX_LISTE_UNE), 1);
            EXPECT_EQ(selection_of(list), Positions{2}) << "the first one is kept";
            EXPECT_EQ(told_selection(list), Positions{2});
            settle();
            EXPECT_EQ(events.types(), std::vector<INT>{});
        }
    }
}

TEST_F(ListViews, ClicksSelectSeveral) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, numbered_entries(5)), 1);
        ASSERT_EQ(grx_affecte_mode_liste(list, GRX_LISTE_PLUSIEURS), 1);
        ASSERT_TRUE(click(list, 1));
        const auto record = click(list, 3);
        ASSERT_TRUE(record);
        if (kind == ListOf::control) {
            EXPECT_EQ(record->element_clique.nobou, list);
            EXPECT_EQ(record->element_clique.double_click, 0);
            EXPECT_STREQ(record->element_clique.chaine, "entry 2");
        }
        EXPECT_EQ(selection_of(list), (Positions{1, 3}));
        EXPECT_EQ(told_selection(list), (Positions{1, 3}));
        ASSERT_TRUE(click(list, 1));
        EXPECT_EQ(selection_of(list), Positions{3});
        ASSERT_EQ(grx_affecte_mode_liste(list, GRX_LISTE_ETENDUE), 1);
        ASSERT_TRUE(click(list, 2));
        EXPECT_EQ(selection_of(list), Positions{2});
        ASSERT_TRUE(click(list, 4, XK_Shift_L));
        EXPECT_EQ(selection_of(list), (Positions{2, 3, 4}));
        ASSERT_TRUE(click(list, 3, XK_Control_L));
        EXPECT_EQ(selection_of(list), (Positions{2, 4}));
        EXPECT_EQ(told_selection(list), (Positions{2, 4}));
    }
}

TEST_F(ListViews, TheSelectionIsSeen) {
    const INT list = list_control();
    ASSERT_EQ(filled(list, numbered_entries(4)), 1);
    drain();
    const Pixels before = grab(x11_disp, XtWindow(control(list)));
    ASSERT_EQ(selected(list, {2}), 1);
    drain();
    EXPECT_FALSE(same(before, grab(x11_disp, XtWindow(control(list)))));
    ASSERT_EQ(grx_deselectionne_tout_liste(list), 1);
    drain();
    EXPECT_TRUE(same(before, grab(x11_disp, XtWindow(control(list)))));
}

TEST_F(ListViews, AnEntryIsBroughtIntoView) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, numbered_entries(200)), 1);
        drain();
        EXPECT_EQ(view_of(list)[0], 1);
        const INT seen = view_of(list)[1];
        EXPECT_GT(seen, 2);
        EXPECT_LT(seen, 20);
        EXPECT_EQ(grx_recup_cadre_element_liste(list, 100, nullptr, nullptr, nullptr, nullptr), GRX_ECHEC_ABSENT);
        ASSERT_EQ(grx_montre_element_liste(list, 100), 1);
        drain();
        EXPECT_TRUE(in_view(list, 100));
        const INT top = view_of(list)[0];
        EXPECT_LT(top, 100);
        EXPECT_GT(top, 100 - seen - 1) << "no farther than needed";
        ASSERT_EQ(grx_montre_element_liste(list, top + 1), 1);
        EXPECT_EQ(view_of(list)[0], top) << "what is in view stays where it is";
        ASSERT_EQ(grx_montre_element_liste(list, 3), 1);
        EXPECT_EQ(view_of(list)[0], 3);
        ASSERT_EQ(grx_montre_element_liste(list, 200), 1);
        EXPECT_TRUE(in_view(list, 200));
        ASSERT_EQ(grx_vide_liste(list), 1);
        EXPECT_EQ(view_of(list), (Positions{0, 0}));
        EXPECT_EQ(grx_montre_element_liste(list, 1), GRX_ECHEC_PARAMETRE);
    }
}

TEST_F(ListViews, ThePositionAtAPoint) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, numbered_entries(100)), 1);
        ASSERT_EQ(grx_montre_element_liste(list, 50), 1);
        for (INT position = view_of(list)[0]; in_view(list, position); ++position) {
            INT x = 0, y = 0, width = 0, height = 0;
            ASSERT_EQ(grx_recup_cadre_element_liste(list, position, &x, &y, &width, &height), 1);
            EXPECT_EQ(grx_recup_position_point_liste(list, x + width / 2, y + height / 2), position);
        }
        for (const auto& [x, y] : {std::pair{-1, 40}, {40, -1}, {30000, 40}, {40, 30000}, {INT_MIN, INT_MAX}, {0, 0}})
            EXPECT_EQ(grx_recup_position_point_liste(list, x, y), 0) << x << ',' << y;
        ASSERT_EQ(filled(list, {"one"}), 1);
        EXPECT_EQ(grx_recup_position_point_liste(list, 20, 60), 0) << "below the last one";
    }
}

// -- columns

TEST_F(ListViews, ColumnsLineUpByThemselves) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"a\tone\tx", "abcdef\tt\tx"}), 1);
        const auto first = ink_begins(list, 1), second = ink_begins(list, 2);
        ASSERT_EQ(first.size(), 3U);
        ASSERT_EQ(second.size(), 3U);
        EXPECT_NEAR(first[1], second[1], 3);
        EXPECT_NEAR(first[2], second[2], 3);
        ASSERT_EQ(appended(list, {"abcdefghij\tu\tx"}), 1);
        const auto wider = ink_begins(list, 1), longest = ink_begins(list, 3);
        ASSERT_EQ(wider.size(), 3U);
        EXPECT_GT(wider[1], first[1] + 10) << "the column got wider";
        ASSERT_EQ(longest.size(), 3U);
        EXPECT_NEAR(wider[2], longest[2], 3);
        ASSERT_EQ(filled(list, {"a\tb", "c\td"}), 1);
        EXPECT_LT(ink_begins(list, 1).at(1), first[1]) << "measured anew";
    }
}

TEST_F(ListViews, ColumnsStandWhereTheyAreWanted) {
    const INT list = list_control();
    ASSERT_EQ(filled(list, {"a\tb\tx", "cc\td\tx"}), 1);
    const int left = ink_begins(list, 1).at(0);
    const INT stops[] = {60, 110};
    ASSERT_EQ(grx_affecte_colonnes_liste(list, 2, stops, GRX_COLONNE_PIXELS), 1);
    EXPECT_NEAR(ink_begins(list, 1).at(1), left + 60, 3);
    EXPECT_NEAR(ink_begins(list, 2).at(2), left + 110, 3);
    const INT characters[] = {5};
    ASSERT_EQ(grx_affecte_colonnes_liste(list, 1, characters, GRX_COLONNE_CARACTERES), 1);
    EXPECT_NEAR(ink_begins(list, 1).at(1), left + 5 * W, 3);
    ASSERT_EQ(appended(list, {"longer than that\ty"}), 1);
    EXPECT_NEAR(ink_begins(list, 1).at(1), left + 17 * W, 4) << "pushed, for all lines: they stay below each other";
    EXPECT_EQ(grx_affecte_colonnes_liste(list, 0, nullptr, GRX_COLONNE_PIXELS), 1);
}

TEST_F(ListViews, StopsThatAreNone) {
    const INT list = list_control();
    const INT falling[] = {10, 10}, negative[] = {-1}, zero[] = {0}, far[] = {INT_MAX};
    std::vector<INT> growing;
    for (INT i = 1; i <= GRX_COLONNES_MAX; ++i) growing.push_back(i);
    for (const INT unit : {GRX_COLONNE_PIXELS, GRX_COLONNE_CARACTERES}) {
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 2, falling, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 1, negative, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 1, zero, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 1, far, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 1, nullptr, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, -1, nullptr, unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, GRX_COLONNES_MAX, growing.data(), unit), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, GRX_COLONNES_MAX - 1, growing.data(), unit), 1);
    }
    EXPECT_EQ(grx_affecte_colonnes_liste(list, 0, nullptr, 2), GRX_ECHEC_PARAMETRE);
    ASSERT_EQ(filled(list, {std::string(100, '\t'), "a\tb"}), 1);
    EXPECT_EQ(text_at(list, 1), std::string(100, '\t') + " ");
    drain();
}

TEST_F(ListViews, BadInputChangesNothing) {
    const INT list = list_control();
    ASSERT_EQ(filled(list, {"a", "b"}), 1);
    ASSERT_EQ(selected(list, {2}), 1);
    for (const INT position : {0, -1, 3, INT_MIN, INT_MAX}) {
        EXPECT_EQ(selected(list, {position}), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(deselected(list, {2, position}), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_is_element_selectionne(list, position), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_montre_element_liste(list, position), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(
            grx_recup_cadre_element_liste(list, position, nullptr, nullptr, nullptr, nullptr), GRX_ECHEC_PARAMETRE);
    }
    EXPECT_EQ(grx_selectionne_elements_liste(list, -1, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_selectionne_elements_liste(list, 1, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_selectionne_elements_liste(list, 0, nullptr), 1);
    EXPECT_EQ(grx_affecte_mode_liste(list, 3), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_affecte_mode_liste(list, -1), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_vue_liste(list, nullptr, nullptr), 1);
    EXPECT_EQ(selection_of(list), Positions{2});
    EXPECT_EQ(grx_recup_mode_liste(-1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_recup_position_point_liste(999, 1, 1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_recup_vue_liste(GRX_LISTE_PANNEAU, nullptr, nullptr), GRX_ECHEC_NUMERO);
}

} // namespace
