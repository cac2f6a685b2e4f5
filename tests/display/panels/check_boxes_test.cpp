// Check boxes, exclusive groups and toggles: made, pressed by the user and by the program, read.
#include "tests/display/panels/item_kit.h"

#include "grx_plus_boutons.h"
#include "grx_plus_erreurs.h"
#include "tests/support/heap.h"
#include "tests/support/stdout_capture.h"

#include <climits>

namespace {

using namespace grxtest;

class CheckBoxes : public Items {
  protected:
    GRX_CASE box_of(const char* text = "Afficher la grille") {
        GRX_CASE box;
        EXPECT_EQ(grx_init_case(&box), 1);
        box.nofen = window;
        box.x = 40;
        box.y = 50;
        box.no_fo = 812;
        box.texte = text;
        return box;
    }
    GRX_GROUPE group_of(INT count = 3) {
        static const char* const texts[] = {"Millim\xe8tres", "Centim\xe8tres", "M\xe8tres", "Pouces"};
        GRX_GROUPE group;
        EXPECT_EQ(grx_init_groupe(&group), 1);
        group.nofen = window;
        group.x = 40;
        group.y = 90;
        group.no_fo = 813;
        group.nb = count;
        group.textes = texts;
        return group;
    }
    INT made(const GRX_CASE& box) { return seen(grx_cree_case(&box)); }
    INT made(const GRX_GROUPE& group) { return seen(grx_cree_groupe(&group)); }

    // A real click on a toggle, and its type 6.
    std::optional<GRX_EVENEMENT> click(Widget toggle) {
        forget();
        pointer().click_in(toggle, 8, resource<Dimension>(toggle, XmNheight) / 2);
        return events.wait(GRX_EVT_EXEC_FONCTION);
    }
    static std::vector<Widget> toggles_in(Widget outer) {
        std::vector<Widget> result;
        for (Widget w : children_of(outer)) {
            if (XmIsToggleButton(w)) result.push_back(w);
            if (XmIsRowColumn(w)) result = toggles_in(w);
        }
        return result;
    }

  private:
    INT seen(INT number) {
        EXPECT_GE(number, 0);
        if (number >= 0) EXPECT_TRUE(wait_visible(control(number)));
        settle();
        return number;
    }
};

TEST_F(CheckBoxes, ABoxSaysWhatItIs) {
    GRX_CASE described = box_of();
    described.etat = 1;
    const INT box = made(described);
    EXPECT_EQ(grx_recup_etat_bascule(box), 1);
    EXPECT_EQ(rect_of(box).x, 40);
    EXPECT_EQ(rect_of(box).y, 50);
    const auto cleared = click(control(box));
    ASSERT_TRUE(cleared) << events.describe();
    EXPECT_EQ(cleared->exec_fonction.nofen, window);
    EXPECT_EQ(cleared->exec_fonction.nobou, box);
    EXPECT_EQ(cleared->exec_fonction.no_fo, 812);
    EXPECT_EQ(cleared->exec_fonction.valeur, 0);
    EXPECT_EQ(grx_recup_etat_bascule(box), 0);
    const auto ticked = click(control(box));
    ASSERT_TRUE(ticked);
    EXPECT_EQ(ticked->exec_fonction.valeur, 1);
    settle();
    EXPECT_EQ(grx_affecte_etat_bascule(box, 0), 1);
    EXPECT_EQ(grx_affecte_etat_bascule(box, -9), 1) << "anything but 0 ticks it";
    EXPECT_EQ(grx_recup_etat_bascule(box), 1);
    settle();
    EXPECT_EQ(events.types(), std::vector<INT>{});
}

TEST_F(CheckBoxes, ALongTextIsShownWhole) {
    const std::string text(200, 'm');
    const INT box = made(box_of(text.c_str()));
    EXPECT_EQ(label_of(control(box)), text);
    EXPECT_GT(rect_of(box).width, 200 * W);
    const INT empty = made(box_of(nullptr));
    EXPECT_EQ(label_of(control(empty)), "");
}

TEST_F(CheckBoxes, ABoxIsAnItem) {
    GRX_CASE described = box_of();
    described.ipan = 1;
    described.item = 4;
    const INT box = made(described);
    EXPECT_EQ(recorded(1, 4), (std::vector<Recorded>{{box, 1}}));
    EXPECT_EQ(grx_recup_choix_item(1, 4), 0);
    EXPECT_EQ(grx_affecte_choix_item(1, 4, 1), 1);
    EXPECT_EQ(grx_recup_etat_bascule(box), 1);
    EXPECT_EQ(grx_affecte_choix_item(1, 4, 2), GRX_ECHEC_PARAMETRE);
    char title[] = "Autre";
    grx_change_titre_item(1, 4, title);
    EXPECT_EQ(label_of(control(box)), "Autre");
    grx_supprime_items(1);
    EXPECT_EQ(grx_recup_choix_item(1, 4), GRX_ECHEC_NUMERO);
}

TEST_F(CheckBoxes, AGroupTellsItsChoiceOnce) {
    for (const char* const title : {"", "Unit\xe9s"}) {
        for (const INT horizontal : {0, 1}) {
            SCOPED_TRACE(title);
            GRX_GROUPE described = group_of();
            described.titre = title;
            described.horizontal = horizontal;
            described.choix = 1;
            const INT group = made(described);
            const auto toggles = toggles_in(control(group));
            ASSERT_EQ(toggles.size(), 3U);
            EXPECT_EQ(grx_recup_choix_groupe(group), 1);
            const auto record = click(toggles[2]);
            ASSERT_TRUE(record) << events.describe();
            EXPECT_EQ(record->exec_fonction.nofen, window);
            EXPECT_EQ(record->exec_fonction.nobou, group);
            EXPECT_EQ(record->exec_fonction.no_fo, 813);
            EXPECT_EQ(record->exec_fonction.valeur, 2);
            EXPECT_EQ(grx_recup_choix_groupe(group), 2);
            settle();
            EXPECT_EQ(grx_affecte_choix_groupe(group, 0), 1);
            settle();
            EXPECT_EQ(events.types(), std::vector<INT>{});
            EXPECT_EQ(grx_recup_choix_groupe(group), 0);
            const auto next = click(toggles[1]);
            ASSERT_TRUE(next) << events.describe();
            EXPECT_EQ(next->exec_fonction.valeur, 1);
            for (std::size_t i = 0; i < 3; ++i)
                EXPECT_EQ(XmToggleButtonGetState(toggles[i]) != False, i == 1) << "one alone is pressed";
            EXPECT_EQ(grx_affecte_choix_groupe(group, -1), 1);
            EXPECT_EQ(grx_recup_choix_groupe(group), GRX_ECHEC_ABSENT);
            const auto again = click(toggles[0]);
            ASSERT_TRUE(again);
            EXPECT_EQ(again->exec_fonction.valeur, 0);
            EXPECT_EQ(grx_affecte_choix_groupe(group, 3), GRX_ECHEC_PARAMETRE);
            EXPECT_EQ(grx_desactive_choix_groupe(group, 1, 1), 1);
            EXPECT_FALSE(XtIsSensitive(toggles[1]));
            EXPECT_EQ(grx_desactive_choix_groupe(group, 1, 0), 1);
            EXPECT_TRUE(XtIsSensitive(toggles[1]));
            const int taken = taken_numbers();
            grx_detruit_bouton(group);
            drain();
            EXPECT_EQ(taken_numbers(), taken - 1);
            EXPECT_EQ(grx_recup_choix_groupe(group), GRX_ECHEC_NUMERO);
        }
    }
}

TEST_F(CheckBoxes, TheSameAlternativeOnceMoreTellsNothing) {
    const INT group = made(group_of());
    const auto toggles = toggles_in(control(group));
    ASSERT_TRUE(click(toggles[1]));
    settle();
    pointer().click_in(toggles[1], 8, 8);
    drain();
    for (const INT type : events.types()) EXPECT_NE(type, GRX_EVT_EXEC_FONCTION);
}

TEST_F(CheckBoxes, GroupsOfPanelsAndDropDownChoices) {
    for (const INT type : {GRX_ITEM_BASCULES, GRX_ITEM_BASCULES_HORIZ, GRX_ITEM_CHOIX}) {
        SCOPED_TRACE(type);
        const auto made_of = build(type, "Units-mm-cm-m", [](GRX_MSG& m) { m.ival = 1; });
        settle();
        const INT item = last_item();
        EXPECT_EQ(grx_recup_choix_item(1, item), 1);
        EXPECT_EQ(grx_affecte_choix_item(1, item, 2), 1);
        EXPECT_EQ(grx_recup_choix_item(1, item), 2);
        EXPECT_EQ(grx_affecte_choix_item(1, item, 3), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_recup_choix_item(1, item), 2);
        const bool group = type != GRX_ITEM_CHOIX;
        EXPECT_EQ(grx_affecte_choix_item(1, item, -1), group ? 1 : GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_recup_choix_item(1, item), group ? GRX_ECHEC_ABSENT : 2);
        EXPECT_EQ(grx_recup_choix_groupe(made_of[1].first), group ? GRX_ECHEC_ABSENT : GRX_ECHEC_GENRE);
        if (!group) continue;
        EXPECT_EQ(grx_affecte_etat_bascule(made_of[1].first, 1), 1);
        EXPECT_EQ(grx_affecte_etat_bascule(made_of[3].first, 1), 1);
        EXPECT_EQ(grx_recup_etat_bascule(made_of[1].first), 0) << "the others are released";
        EXPECT_EQ(grx_recup_choix_groupe(made_of[2].first), 2);
        ASSERT_TRUE(click(control(made_of[2].first)));
        EXPECT_EQ(grx_recup_choix_item(1, item), 1) << "and the user goes on from there";
        EXPECT_EQ(grx_recup_etat_bascule(made_of[3].first), 0);
    }
    build(GRX_ITEM_BOUTON, "Button");
    EXPECT_EQ(grx_recup_choix_item(1, last_item()), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_affecte_choix_item(1, last_item(), 0), GRX_ECHEC_GENRE);
}

TEST_F(CheckBoxes, BadInput) {
    const INT label = make(button_at(GRX_BOU_LABEL, window, {1, 1, 50, 20}));
    for (const INT number : {-1, 999, 1000, INT_MIN, INT_MAX, label}) {
        const INT code = number == label ? GRX_ECHEC_GENRE : GRX_ECHEC_NUMERO;
        EXPECT_EQ(grx_recup_etat_bascule(number), code);
        EXPECT_EQ(grx_affecte_etat_bascule(number, 1), code);
        EXPECT_EQ(grx_recup_choix_groupe(number), code);
        EXPECT_EQ(grx_affecte_choix_groupe(number, 0), code);
        EXPECT_EQ(grx_desactive_choix_groupe(number, 0, 1), code);
        EXPECT_EQ(grx_recup_choix_item(number, number), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_affecte_choix_item(1, number, 0), GRX_ECHEC_NUMERO);
    }
    EXPECT_EQ(grx_init_case(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_groupe(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_cree_case(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_cree_groupe(nullptr), GRX_ECHEC_PARAMETRE);
    GRX_CASE box = box_of();
    box.taille = 0;
    EXPECT_EQ(grx_cree_case(&box), GRX_ECHEC_PARAMETRE);
    for (const INT none : {-1, 0, 77, 100, INT_MAX}) {
        box = box_of();
        box.nofen = none;
        EXPECT_EQ(grx_cree_case(&box), GRX_ECHEC_NUMERO) << none;
        GRX_GROUPE group = group_of();
        group.nofen = none;
        EXPECT_EQ(grx_cree_groupe(&group), GRX_ECHEC_NUMERO) << none;
    }
    box = box_of();
    box.ipan = 1;
    box.item = items_of_a_panel;
    EXPECT_EQ(grx_cree_case(&box), GRX_ECHEC_NUMERO);
    for (const auto& [count, choice] : {std::pair{0, -1}, {-1, -1}, {GRX_GROUPE_MAX + 1, 0}, {3, 3}, {3, -2}}) {
        GRX_GROUPE group = group_of();
        group.nb = count;
        group.choix = choice;
        EXPECT_EQ(grx_cree_groupe(&group), GRX_ECHEC_PARAMETRE) << count << ' ' << choice;
    }
    GRX_GROUPE group = group_of();
    group.textes = nullptr;
    EXPECT_EQ(grx_cree_groupe(&group), GRX_ECHEC_PARAMETRE);
}

TEST_F(CheckBoxes, WhenAllNumbersAreTaken) {
    GRX_BOUTON label = button_at(GRX_BOU_LABEL, window, {1, 1, 5, 5});
    INT last_number = -1;
    while (taken_numbers() < 1000 && grx_cree_bouton(&label) == 0) last_number = label.nobou;
    ASSERT_GE(last_number, 0);
    const GRX_CASE box = box_of();
    const GRX_GROUPE group = group_of();
    StdoutCapture capture;
    EXPECT_EQ(grx_cree_case(&box), GRX_ECHEC_PLEIN);
    EXPECT_EQ(grx_cree_groupe(&group), GRX_ECHEC_PLEIN);
    EXPECT_EQ(capture.text(), "") << "additions print nothing";
}

TEST_F(CheckBoxes, ShortOfMemoryABoxIsMadeOrNot) {
    const int taken = taken_numbers();
    fail_each_allocation([&] {
        GRX_CASE box = box_of();
        box.ipan = box.item = 1;
        const INT number = grx_cree_case(&box);
        EXPECT_TRUE(number >= 0 || number == GRX_ECHEC_MEMOIRE || number == GRX_ECHEC_GENRE) << number;
        if (number < 0) return;
        grx_supprime_items(1);
        grx_detruit_bouton(number);
    });
    drain();
    EXPECT_EQ(taken_numbers(), taken);
}

TEST_F(CheckBoxes, FiveHundredRoundsKeepNothing) {
    const auto round = [&] {
        GRX_GROUPE group = group_of();
        group.titre = "Titre";
        const INT numbers[] = {grx_cree_groupe(&group), [&] {
                                   const GRX_CASE box = box_of();
                                   return grx_cree_case(&box);
                               }()};
        grx_affecte_choix_groupe(numbers[0], 2);
        grx_affecte_etat_bascule(numbers[1], 1);
        for (const INT number : numbers) grx_detruit_bouton(number);
        drain();
    };
    round();
    const int taken = taken_numbers();
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(taken_numbers(), taken);
}

} // namespace
