// Lists of every kind filled, added to, replaced and taken away, by their numbers.
#include "tests/display/panels/list_kit.h"

#include "tests/support/heap.h"
#include "tests/support/sanitized.h"

#include <climits>
#include <ctime>

namespace {

using namespace grxtest;
using Texts = std::vector<std::string>;
using Positions = std::vector<INT>;

class ListChanges : public ListTest {};

Texts many(int count) {
    return numbered_entries(count, "an entry of usual length ");
}

TEST_F(ListChanges, FillReplacesAllEntries) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"a", "b", "c", "d"}), 1);
        ASSERT_EQ(selected(list, {3}), 1);
        ASSERT_EQ(filled(list, {"x", "y"}), 1);
        EXPECT_EQ(texts_of(list), (Texts{"x", "y"}));
        EXPECT_EQ(selection_of(list), Positions{});
        EXPECT_EQ(told_selection(list), Positions{});
        EXPECT_EQ(grx_vide_liste(list), 1);
        EXPECT_EQ(grx_recup_nombre_elements_liste(list), 0);
        EXPECT_EQ(grx_remplit_liste(list, 0, nullptr), 1);
        drain();
        EXPECT_EQ(appended(list, {"again"}), 1);
        EXPECT_EQ(texts_of(list), (Texts{"again"}));
    }
}

TEST_F(ListChanges, EntriesGoWhereTheyAreWanted) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"b", "d"}), 1);
        EXPECT_EQ(appended(list, {"e", "f"}), 1);
        EXPECT_EQ(inserted(list, 1, {"a"}), 1);
        EXPECT_EQ(inserted(list, 3, {"c", "c2"}), 1);
        EXPECT_EQ(inserted(list, 8, {"g"}), 1) << "one behind the last";
        EXPECT_EQ(texts_of(list), (Texts{"a", "b", "c", "c2", "d", "e", "f", "g"}));
        EXPECT_EQ(replaced(list, 3, {"C", "C2"}), 1);
        EXPECT_EQ(grx_supprime_elements_liste(list, 6, 3), 1);
        EXPECT_EQ(texts_of(list), (Texts{"a", "b", "C", "C2", "d"}));
        const Positions gone{5, 1, 3, 1};
        EXPECT_EQ(grx_supprime_positions_liste(list, 4, gone.data()), 1) << "in any order, one named twice";
        EXPECT_EQ(texts_of(list), (Texts{"b", "C2"}));
        EXPECT_EQ(grx_supprime_elements_liste(list, 1, 2), 1);
        EXPECT_EQ(texts_of(list), Texts{});
    }
}

TEST_F(ListChanges, WhatIsSelectedStaysSo) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(grx_affecte_mode_liste(list, GRX_LISTE_PLUSIEURS), 1);
        ASSERT_EQ(filled(list, {"same", "b", "same", "d", "same"}), 1);
        ASSERT_EQ(selected(list, {3, 4}), 1);
        ASSERT_EQ(inserted(list, 1, {"same", "y"}), 1);
        EXPECT_EQ(selection_of(list), (Positions{5, 6})) << "also where others have the same text";
        ASSERT_EQ(inserted(list, 6, {"same"}), 1);
        EXPECT_EQ(selection_of(list), (Positions{5, 7}));
        ASSERT_EQ(appended(list, {"d"}), 1);
        ASSERT_EQ(grx_supprime_elements_liste(list, 1, 2), 1);
        EXPECT_EQ(selection_of(list), (Positions{3, 5}));
        ASSERT_EQ(replaced(list, 2, {"B", "S", "X", "D"}), 1);
        EXPECT_EQ(selection_of(list), (Positions{3, 5})) << "a replaced entry as well";
        EXPECT_EQ(texts_of(list), (Texts{"same", "B", "S", "X", "D", "same", "d"}));
        EXPECT_EQ(told_selection(list), (Positions{3, 5}));
        const Positions gone{3, 1};
        ASSERT_EQ(grx_supprime_positions_liste(list, 2, gone.data()), 1);
        EXPECT_EQ(selection_of(list), (Positions{3}));
        EXPECT_EQ(told_selection(list), (Positions{3}));
        EXPECT_EQ(text_at(list, 3), "D");
    }
}

TEST_F(ListChanges, InAListOfOneToo) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"a", "b", "c"}), 1);
        ASSERT_EQ(selected(list, {2}), 1);
        ASSERT_EQ(inserted(list, 1, {"0"}), 1);
        EXPECT_EQ(selection_of(list), Positions{3});
        ASSERT_EQ(replaced(list, 3, {"B"}), 1);
        EXPECT_EQ(selection_of(list), Positions{3});
        ASSERT_EQ(grx_supprime_elements_liste(list, 1, 2), 1);
        EXPECT_EQ(selection_of(list), Positions{1});
        EXPECT_EQ(told_selection(list), Positions{1});
        ASSERT_EQ(grx_supprime_elements_liste(list, 1, 1), 1);
        EXPECT_EQ(selection_of(list), Positions{});
        EXPECT_EQ(told_selection(list), Positions{});
    }
}

TEST_F(ListChanges, TextsComeBackAsTheyWentIn) {
    const Texts texts{" ", "plain", std::string(5000, 'w'),
        "Pi\xe8"
        "ce",
        "Pi\xc3\xa8"
        "ce",
        "a\tb\t\tc", "\t ", "two\nlines", "x\ty\nz\tt\n", "Pi\xe8\tce \xe9t\xe9", " blanks ", "1\t\xc3\xa9"};
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, texts), 1);
        EXPECT_EQ(texts_of(list), texts);
        drain();
        char cut[4] = "???";
        EXPECT_EQ(grx_recup_texte_element_liste(list, 2, cut, 4), 5);
        EXPECT_STREQ(cut, "pla");
        EXPECT_EQ(replaced(list, 1, {"no longer empty"}), 1);
        EXPECT_EQ(replaced(list, 2, {""}), 1);
        EXPECT_EQ(text_at(list, 2), " ");
    }
}

TEST_F(ListChanges, OnlyEmptyTexts) {
    for (const ListOf kind : list_kinds) {
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"", ""}), 1);
        drain();
        const char* const missing[] = {nullptr, nullptr};
        EXPECT_EQ(grx_ajoute_elements_liste(list, 2, missing), 1) << "null reads as empty";
        EXPECT_EQ(texts_of(list), (Texts(4, " ")));
        for (const char* const thin : {"\t", "\n", "\t\n\t"}) {
            ASSERT_EQ(filled(list, {thin, thin}), 1);
            drain();
            EXPECT_EQ(texts_of(list), Texts(2, thin + std::string(" ")));
        }
        ASSERT_EQ(filled(list, {"", "", "", ""}), 1);
        EXPECT_EQ(grx_montre_element_liste(list, 4), 1);
        EXPECT_GE(grx_recup_position_point_liste(list, 20, 20), 0);
        drain();
    }
}

// -- beside the contract's functions

TEST_F(ListChanges, TheContractsFunctionsGoOnWithAControl) {
    const INT list = list_control();
    ASSERT_EQ(filled(list, {"a\tA", "b"}), 1);
    char first[] = "first", text[300] = "";
    grx_ajoute_element_dans_liste(list, first);
    EXPECT_EQ(grx_recup_nombre_elements_dans_list(list), 3);
    EXPECT_EQ(grx_recup_element_dans_liste(list, 2, text), 1);
    EXPECT_STREQ(text, "a\tA");
    EXPECT_EQ(texts_of(list), (Texts{"first", "a\tA", "b"}));
    const auto record = click(list, 2);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->element_clique.nobou, list);
    EXPECT_STREQ(record->element_clique.chaine, "a\tA");
    EXPECT_EQ(selection_of(list), Positions{2});
}

TEST_F(ListChanges, APanelListIsReloadedFromTheHost) {
    const INT list = panel_list();
    EXPECT_EQ(list, GRX_LISTE_PANNEAU + slot_of(list_panel, list_key));
    EXPECT_EQ(grx_recup_liste_panneau(list_panel, list_key + 1), GRX_ECHEC_NUMERO);
    ASSERT_EQ(filled(list, numbered_entries(50)), 1);
    ASSERT_EQ(selected(list, {40}), 1);
    grx_modif_items_liste(list_key);
    EXPECT_EQ(texts_of(list), (Texts{"from the host", "second", "third"}));
    EXPECT_EQ(told_selection(list), Positions{});
    ASSERT_EQ(filled(list, {"a", "b"}), 1);
    const auto record = click(list, 2);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->element_clique.no_fo, list - GRX_LISTE_PANNEAU);
    EXPECT_EQ(record->element_clique.nobou, 1) << "its records count from 0";
    EXPECT_EQ(told_selection(list), Positions{2});
    EXPECT_EQ(selection_of(list), Positions{2});
    grx_supprime_item_liste(list_panel, list_key);
    EXPECT_EQ(grx_vide_liste(list), GRX_ECHEC_NUMERO);
}

TEST_F(ListChanges, ADialogListReadsMoreThanItWasMadeWith) {
    const INT list = dialog_list();
    ASSERT_EQ(grx_affecte_mode_liste(list, GRX_LISTE_PLUSIEURS), 1);
    ASSERT_EQ(filled(list, numbered_entries(300)), 1);
    Positions all;
    for (INT i = 1; i <= 300; ++i) all.push_back(i);
    ASSERT_EQ(selected(list, all), 1);
    EXPECT_EQ(told_selection(list), all);
    const auto record = click(list, 2);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->element_clique.nofen, -1 - list_slot);
    EXPECT_EQ(record->element_clique.nobou, 2);
    all.erase(all.begin() + 1);
    EXPECT_EQ(told_selection(list), all);
    grx_detruit_liste(list_slot, dialog_widget_);
    EXPECT_EQ(filled(list, numbered_entries(400)), 1) << "the list lives on";
}

// -- bad input

TEST_F(ListChanges, BadInputChangesNothing) {
    const INT label = make(button_at(GRX_BOU_LABEL, window, {1, 1, 50, 20}));
    const char* const one[] = {"one"};
    const INT first[] = {1};
    for (const INT number : {-1, INT_MIN, INT_MAX, 999, 1000, GRX_LISTE_PANNEAU, GRX_LISTE_PANNEAU + 9,
             GRX_LISTE_PANNEAU + 10, GRX_LISTE_DIALOGUE, GRX_LISTE_DIALOGUE + 9, GRX_LISTE_DIALOGUE + 10, label}) {
        const INT code = number == label ? GRX_ECHEC_GENRE : GRX_ECHEC_NUMERO;
        EXPECT_EQ(grx_remplit_liste(number, 1, one), code) << number;
        EXPECT_EQ(grx_vide_liste(number), code);
        EXPECT_EQ(grx_ajoute_elements_liste(number, 1, one), code);
        EXPECT_EQ(grx_insere_elements_liste(number, 1, 1, one), code);
        EXPECT_EQ(grx_remplace_elements_liste(number, 1, 1, one), code);
        EXPECT_EQ(grx_supprime_elements_liste(number, 1, 1), code);
        EXPECT_EQ(grx_supprime_positions_liste(number, 1, first), code);
        EXPECT_EQ(grx_recup_nombre_elements_liste(number), code);
    }
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        ASSERT_EQ(filled(list, {"a", "b"}), 1);
        EXPECT_EQ(grx_remplit_liste(list, -1, one), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_remplit_liste(list, 1, nullptr), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_ajoute_elements_liste(list, INT_MIN, one), GRX_ECHEC_PARAMETRE);
        for (const INT position : {0, -1, 4, INT_MIN, INT_MAX}) {
            EXPECT_EQ(grx_insere_elements_liste(list, position, 1, one), GRX_ECHEC_PARAMETRE) << position;
            EXPECT_EQ(grx_remplace_elements_liste(list, position, 1, one), GRX_ECHEC_PARAMETRE) << position;
            EXPECT_EQ(grx_supprime_elements_liste(list, position, 1), GRX_ECHEC_PARAMETRE) << position;
            EXPECT_EQ(grx_supprime_positions_liste(list, 1, &position), GRX_ECHEC_PARAMETRE) << position;
            EXPECT_LT(grx_recup_texte_element_liste(list, position, nullptr, 0), 0) << position;
        }
        EXPECT_EQ(grx_supprime_elements_liste(list, 2, 2), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_supprime_elements_liste(list, 1, INT_MAX), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_supprime_elements_liste(list, 1, -1), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_supprime_positions_liste(list, 1, nullptr), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(texts_of(list), (Texts{"a", "b"}));
    }
}

TEST_F(ListChanges, AfterTheWindowIsGone) {
    std::vector<INT> lists;
    for (const ListOf kind : list_kinds) {
        lists.push_back(list_of(kind));
        ASSERT_EQ(filled(lists.back(), {"a\tb"}), 1);
    }
    grx_detruit_fenetre(window);
    drain();
    for (const INT list : lists) {
        EXPECT_EQ(appended(list, {"x"}), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_recup_selection_liste(list, 0, nullptr), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_affecte_colonnes_liste(list, 0, nullptr, GRX_COLONNE_PIXELS), GRX_ECHEC_NUMERO);
    }
}

TEST_F(ListChanges, ShortOfMemoryAnEntryIsInOrNot) {
    for (const ListOf kind : list_kinds) {
        SCOPED_TRACE(static_cast<int>(kind));
        const INT list = list_of(kind);
        grx_affecte_mode_liste(list, GRX_LISTE_PLUSIEURS);
        fail_each_allocation([&] {
            filled(list, {"a", "b"});
            selected(list, {1, 2});
            const INT before = grx_recup_nombre_elements_liste(list);
            const INT code = appended(list, {"x\ty", "z"});
            EXPECT_TRUE(code == 1 || code == GRX_ECHEC_MEMOIRE) << code;
            EXPECT_EQ(grx_recup_nombre_elements_liste(list), before + (code == 1 ? 2 : 0));
            const INT replaced_code = before > 0 ? replaced(list, 1, {"r"}) : 1;
            EXPECT_TRUE(replaced_code == 1 || replaced_code == GRX_ECHEC_MEMOIRE) << replaced_code;
            const INT last = grx_recup_nombre_elements_liste(list);
            const INT gone = last > 0 ? grx_supprime_positions_liste(list, 1, &last) : 1;
            EXPECT_TRUE(gone == 1 || gone == GRX_ECHEC_MEMOIRE) << gone;
            for (const INT position : told_selection(list))
                EXPECT_LE(position, grx_recup_nombre_elements_liste(list)) << "nobody reads beyond the end";
        });
    }
}

TEST_F(ListChanges, FiveHundredRoundsKeepNothing) {
    for (const ListOf kind : list_kinds) {
        const INT list = list_of(kind);
        filled(list, {"a\tb", "c"});
        const auto round = [&] {
            filled(list, {"a\tb", "c\td", "e"});
            selected(list, {2});
            inserted(list, 1, {"new\tone"});
            replaced(list, 2, {"r\tr"});
            grx_supprime_elements_liste(list, 1, 2);
            grx_vide_liste(list);
        };
        round();
        const NoLeak no_leak;
        for (int i = 0; i < amount(500); ++i) round();
        drain();
    }
}

// -- many

// Of this process alone: the machine has other work.
double seconds_of(const std::function<void()>& action) {
    const std::clock_t begin = std::clock();
    action();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

struct BigList {
    const char* what;
    std::function<void(INT list, int count)> action;
};

// What is done to a list of n entries, half of them selected, takes no more than the double for 2n; the limit leaves
// room for the machine's other work, and four times would be the square.
TEST_F(ListChanges, TimeGrowsAsTheNumberOfEntriesDoes) {
    constexpr int all = amount(80000);
    const INT list = list_control();
    grx_affecte_mode_liste(list, GRX_LISTE_PLUSIEURS);
    const Texts texts = many(all);
    const auto pointers = pointers_to(texts);
    Positions odd;
    for (INT i = 1; i <= all; i += 2) odd.push_back(i);
    const auto prepare = [&](int count) {
        grx_remplit_liste(list, count, pointers.data());
        grx_selectionne_elements_liste(list, count / 2, odd.data());
    };
    const std::vector<BigList> table{
        {"fill", [&](INT l, int n) { grx_remplit_liste(l, n, pointers.data()); }},
        {"append", [&](INT l, int n) { grx_ajoute_elements_liste(l, n / 2, pointers.data()); }},
        {"insert", [&](INT l, int n) { grx_insere_elements_liste(l, n / 2, n / 2, pointers.data()); }},
        {"replace", [&](INT l, int n) { grx_remplace_elements_liste(l, n / 4, n / 2, pointers.data()); }},
        {"take away", [&](INT l, int n) { grx_supprime_elements_liste(l, n / 4, n / 2); }},
        {"take away some", [&](INT l, int n) { grx_supprime_positions_liste(l, n / 4, odd.data()); }},
        {"deselect", [&](INT l, int n) { grx_deselectionne_elements_liste(l, n / 4, odd.data()); }},
        {"empty", [&](INT l, int) { grx_vide_liste(l); }},
    };
    for (const BigList& line : table) {
        double ratio = 9;
        for (int tries = 0; tries < 5 && ratio > 3; ++tries) {
            prepare(all / 2);
            const double small = seconds_of([&] { line.action(list, all / 2); });
            prepare(all);
            const double large = seconds_of([&] { line.action(list, all); });
            ratio = large < 0.02 ? 1 : large / small;
        }
        EXPECT_LE(ratio, 3) << line.what;
    }
}

TEST_F(ListChanges, AHundredThousandEntriesWithinASecond) {
    const INT list = list_control();
    constexpr int all = sanitized ? 2000 : 100000; // the second holds for a program as it is delivered
    Texts texts = many(all);
    for (const char* const ending : {"", "\tof many\tin columns"}) {
        for (std::string& text : texts) text += ending;
        const auto pointers = pointers_to(texts);
        double best = 9;
        for (int tries = 0; tries < 5 && best > 1; ++tries) {
            grx_vide_liste(list);
            best = std::min(best, seconds_of([&] { grx_remplit_liste(list, all, pointers.data()); }));
        }
        EXPECT_LT(best, 1) << ending;
        EXPECT_EQ(grx_recup_nombre_elements_liste(list), all);
        EXPECT_EQ(text_at(list, all - 1), texts[all - 2]);
        drain();
    }
}

} // namespace
