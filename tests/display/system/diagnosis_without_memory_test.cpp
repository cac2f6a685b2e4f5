// Bad news and bookkeeping need no memory of the application's: they work when it has none left to give.
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "tests/support/controls.h"
#include "tests/support/heap.h"
#include "tests/support/window_kit.h"

#include <string>

namespace {

using namespace grxtest;

class DiagnosisWithoutMemory : public DisplayTest {
  protected:
    // Answers of all functions, 1 where they have done their work.
    void use_all() const {
        const std::string file = home().text() + "/told.txt";
        GRX_INVENTAIRE counted{};
        GRX_ERREUR_AFFICHAGE error{};
        EXPECT_EQ(grx_ouvre_journal(file.c_str(), 0), 1);
        EXPECT_EQ(grx_ecrit_journal("a line"), 1);
        EXPECT_LT(grx_recup_rang_fenetre(99), 0);
        EXPECT_GT(grx_recup_rang_fenetre(1), 0);
        EXPECT_GT(grx_recup_rang_bouton(0), 0);
        EXPECT_EQ(grx_init_inventaire(&counted), 1);
        EXPECT_EQ(grx_recup_inventaire(&counted), 1);
        EXPECT_EQ(counted.nb_fenetres, 1);
        EXPECT_EQ(grx_ecrit_inventaire(file.c_str()), 1);
        EXPECT_EQ(grx_init_erreur_affichage(&error), 1);
        EXPECT_EQ(grx_recup_erreur_affichage(&error), GRX_ECHEC_ABSENT);
        EXPECT_EQ(grx_oublie_erreur_affichage(), 1);
        EXPECT_EQ(grx_affecte_fonction_secours([](void*) {}, nullptr), 1);
        EXPECT_EQ(grx_affecte_fonction_secours(nullptr, nullptr), 1);
        EXPECT_EQ(grx_ferme_journal(), 1);
    }
};

TEST_F(DiagnosisWithoutMemory, DoesItsWork) {
    ASSERT_EQ(make(GRX_FEN_BOUTONS), 1);
    GRX_BOUTON button = button_at(GRX_BOU_TEXTE, 1, {10, 10, 80, 30});
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    ASSERT_EQ(button.nobou, 0);
    EXPECT_EQ(fail_each_allocation([&] { use_all(); }), 0) << "nothing is allocated that could fail";
    const std::string told = home().read("told.txt");
    EXPECT_NE(told.find("a line\n"), std::string::npos);
    EXPECT_NE(told.find("refused value: grx_recup_rang_fenetre, nofen = 99: "), std::string::npos);
}

} // namespace
