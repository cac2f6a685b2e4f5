// Tips of controls while something else is before the user: a box, a context menu, work in progress.
#include "tests/display/controls/tips_kit.h"
#include "tests/display/dialogs/box_kit.h"

#include <functional>
#include <string>

namespace {
using namespace grxtest;

class TipsBeneath : public Boxes<TipsTest> {
  protected:
    void SetUp() override {
        Boxes<TipsTest>::SetUp();
        write_menu("#:PIECE\n{\nITEM||Ouvrir||101|\n}\n", "piece");
        XRaiseWindow(x11_disp, XtWindow(shell_of(window_)));
        grx_affecte_delais_bulles(60, 0);
        button_ = control(GRX_BOU_DESSINE, 20);
        grey_ = control(GRX_BOU_DESSINE, 120, 0, false);
        EXPECT_EQ(grx_affecte_bulle(button_, "Circle"), 1);
        EXPECT_EQ(grx_affecte_bulle(grey_, "Square"), 1);
        drain();
    }
    void TearDown() override {
        grx_ferme_menu_contextuel();
        while (grx_avancement_finit() == 1) continue;
        close_boxes();
        drain();
        Boxes<TipsTest>::TearDown();
    }
    void show_box() {
        const GRX_BOITE_MESSAGE told = message(GRX_BOITE_INFORMATION, "Fini");
        number_ = grx_affiche_boite_message(&told);
        ASSERT_GT(number_, 0);
        ASSERT_TRUE(wait_for([this] { return box() != nullptr; }));
    }
    INT button_ = 0, grey_ = 0, number_ = 0;
};

TEST_F(TipsBeneath, NoneComesBesideABox) {
    show_box();
    for (const INT nobou : {button_, grey_}) {
        point_at(nobou);
        EXPECT_TRUE(stays_away()) << nobou;
        take_pointer_away();
        drain();
    }
    EXPECT_EQ(grx_detruit_boite(number_), 1);
    drain();
    for (const INT nobou : {button_, grey_}) {
        point_at(nobou);
        EXPECT_TRUE(comes(nobou == button_ ? "Circle" : "Square")) << "afterwards";
        take_pointer_away();
        ASSERT_TRUE(goes());
    }
}

TEST_F(TipsBeneath, OneOnShowGoesWhenABoxComes) {
    for (const INT nobou : {button_, grey_}) {
        point_at(nobou);
        ASSERT_TRUE(comes(nobou == button_ ? "Circle" : "Square"));
        show_box();
        EXPECT_TRUE(goes()) << nobou;
        EXPECT_EQ(grx_detruit_boite(number_), 1);
        take_pointer_away();
        drain();
    }
}

TEST_F(TipsBeneath, NorBesideAContextMenuThatTheProgramOpens) {
    point_at(button_);
    ASSERT_TRUE(comes("Circle"));
    ASSERT_EQ(grx_ouvre_menu_contextuel(window_, "piece", "#:PIECE", 300, 20), 1);
    EXPECT_TRUE(goes());
    EXPECT_TRUE(stays_away());
    EXPECT_EQ(grx_ferme_menu_contextuel(), 1);
    drain();
    take_pointer_away();
    drain();
    point_at(button_);
    EXPECT_TRUE(comes("Circle")) << "afterwards";
}

TEST_F(TipsBeneath, WorkInProgressTakesItAway) {
    point_at(button_);
    ASSERT_TRUE(comes("Circle"));
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.delai = 0;
    ASSERT_EQ(grx_avancement_commence(&told), 1);
    EXPECT_TRUE(wait_until([this] { return widget_called("avancement") != nullptr && tip() == None; },
        [] { grx_avancement_avance(1, nullptr); }));
    EXPECT_EQ(grx_avancement_finit(), 1);
}

} // namespace
