// Tips and the help key on check boxes and exclusive groups: a group has one number, so one tip.
#include "tests/display/controls/tips_kit.h"

#include <X11/keysym.h>

#include <array>

namespace {

using namespace grxtest;

class GroupTips : public TipsTest {
  protected:
    INT check_box(INT sensitive) {
        GRX_CASE box{};
        EXPECT_EQ(grx_init_case(&box), 1);
        box.nofen = window_;
        box.x = box.y = 20;
        box.sensible = sensitive;
        box.texte = "Grille";
        return shown(grx_cree_case(&box));
    }
    INT group(INT sensitive, const char* title) {
        const std::array<const char*, 3> texts{"Un", "Deux", "Trois"};
        GRX_GROUPE group{};
        EXPECT_EQ(grx_init_groupe(&group), 1);
        group.nofen = window_;
        group.x = 200;
        group.y = 20;
        group.nb = 3;
        group.sensible = sensitive;
        group.titre = title;
        group.textes = texts.data();
        return shown(grx_cree_groupe(&group));
    }
    INT shown(INT nobou) {
        EXPECT_GE(nobou, 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(nobou)));
        drain();
        return nobou;
    }
    // In the middle, some way down: percent of the height.
    void point_inside(INT nobou, int percent) {
        INT width = 0, height = 0;
        grx_recup_taille_bouton(nobou, &width, &height);
        point_at(nobou, width / 2, height * percent / 100);
    }
};

TEST_F(GroupTips, OneTipForAllAlternativesSensitiveOrNot) {
    grx_affecte_delais_bulles(50, 0);
    for (const char* title : {"", "Vue"}) {
        for (const INT sensitive : {1, 0}) {
            const INT nobou = group(sensitive, title);
            ASSERT_EQ(grx_affecte_bulle(nobou, "Views"), 1);
            for (const int percent : {30, 55, 85}) {
                point_inside(nobou, percent);
                EXPECT_TRUE(comes("Views")) << title << sensitive << " at " << percent;
            }
            take_pointer_away();
            EXPECT_TRUE(goes());
            grx_detruit_bouton(nobou);
        }
    }
}

TEST_F(GroupTips, ACheckBoxHasOneSensitiveOrNot) {
    grx_affecte_delais_bulles(50, 0);
    for (const INT sensitive : {1, 0}) {
        const INT nobou = check_box(sensitive);
        ASSERT_EQ(grx_affecte_bulle(nobou, "Shows the grid"), 1);
        point_inside(nobou, 50);
        EXPECT_TRUE(comes("Shows the grid")) << sensitive;
        take_pointer_away();
        EXPECT_TRUE(goes());
        grx_detruit_bouton(nobou);
    }
}

TEST_F(GroupTips, HelpIsAboutTheGroup) {
    ASSERT_EQ(grx_affecte_demande_aide(GRX_AIDE_TOUCHE), 1);
    for (const INT sensitive : {1, 0}) {
        const INT nobou = group(sensitive, "Vue");
        point_inside(nobou, 85);
        events.clear();
        keyboard().key(XK_F1);
        drain();
        drain();
        ASSERT_EQ(events.count(GRX_EVT_AIDE), 1) << events.describe();
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_AIDE) EXPECT_EQ(e.exec_fonction.nobou, nobou) << sensitive;
        grx_detruit_bouton(nobou);
        drain();
    }
}

} // namespace
