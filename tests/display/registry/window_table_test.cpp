// The window base: what a number stands for, without a display and with real windows.
#include "tests/support/window_kit.h"
#include "tests/support/stdout_capture.h"

#include "registry/window_table.h"

#include <climits>

namespace {

using namespace grxtest;

constexpr const char* overflow_line = "Depassement de taille de la base des fenetres\n";

Widget fake_widget(std::uintptr_t n) {
    return reinterpret_cast<Widget>(n);
}

// --- the base without a display -----------------------------------------------------------------------------

class WindowBase : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(grx_alloue_base_fenetres(), 0); }
    void TearDown() override { grx_desalloue_base_fenetres(); }
};

TEST_F(WindowBase, HasAHundredEntries) {
    EXPECT_EQ(MAXOBJETFEN, 100);
    EXPECT_EQ(grx_recup_max_objet(), 0);
    grx_init_objet_fen();
    for (INT n = 0; n < 100; ++n) {
        EXPECT_EQ(grx_recup_objet_fen(n), nullptr);
        EXPECT_EQ(record_of(n).nofen, 100);
    }
}

TEST_F(WindowBase, StoresWidgetsOf0To99) {
    EXPECT_EQ(grx_affecte_objet_fen(0, fake_widget(8)), 1);
    EXPECT_EQ(grx_affecte_objet_fen(99, fake_widget(16)), 1);
    for (INT n : {-1, 100, 101, INT_MAX, INT_MIN}) EXPECT_EQ(grx_affecte_objet_fen(n, fake_widget(8)), 0);
    EXPECT_EQ(grx::Tableau_objet_fen[0], fake_widget(8));
    EXPECT_EQ(grx_recup_objet_fen(0), nullptr) << "number 0 names no window, whatever it holds";
    EXPECT_EQ(grx_recup_objet_fen(99), fake_widget(16));
    for (INT n : {-1, 1, 98, 100, INT_MAX, INT_MIN}) EXPECT_EQ(grx_recup_objet_fen(n), nullptr);
    EXPECT_EQ(grx_affecte_objet_fen(99, nullptr), 1);
    EXPECT_EQ(grx_recup_objet_fen(99), nullptr);
}

TEST_F(WindowBase, TheLowestFreeNumberIsFoundAndNotReserved) {
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 1) << "never 0, though it is free here";
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 1);
    grx_affecte_objet_fen(1, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    grx_affecte_objet_fen(2, fake_widget(8));
    grx_affecte_objet_fen(3, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 4);
    grx_libere_indice_objet_fen(2);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
}

TEST_F(WindowBase, TheHighestNumberHandedOutStays) {
    grx_affecte_objet_fen(1, fake_widget(8));
    grx_affecte_objet_fen(2, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 3);
    EXPECT_EQ(grx_recup_max_objet(), 3);
    grx_libere_indice_objet_fen(2);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    EXPECT_EQ(grx_recup_max_objet(), 3);
    ASSERT_EQ(grx_desalloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    EXPECT_EQ(grx_recup_max_objet(), 0) << "a new base starts anew";
}

TEST_F(WindowBase, AFullBasePrintsItsLine) {
    for (INT n = 1; n < 100; ++n) grx_affecte_objet_fen(n, fake_widget(8));
    EXPECT_EQ(outcome_of(grx_recup_indice_objet_fen_libre).result, -1);
    EXPECT_EQ(outcome_of(grx_recup_indice_objet_fen_libre).printed, overflow_line);
    EXPECT_EQ(grx_recup_max_objet(), 0) << "nothing was handed out";
    grx_libere_indice_objet_fen(99);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 99);
    EXPECT_EQ(grx_recup_max_objet(), 99);
}

TEST_F(WindowBase, RecordsCarryTheirNumberWhileInUse) {
    grx_affecte_structure_fenetre(7);
    EXPECT_EQ(record_of(7).nofen, 7);
    EXPECT_EQ(grx_libere_indice_objet_fen(7), 1);
    EXPECT_EQ(record_of(7).nofen, MAXOBJETFEN);
    grx_affecte_structure_fenetre(8);
    grx_affecte_objet_fen(8, fake_widget(8));
    grx_init_objet_fen();
    EXPECT_EQ(record_of(8).nofen, MAXOBJETFEN);
    EXPECT_EQ(grx_recup_objet_fen(8), nullptr);
}

TEST_F(WindowBase, FreeingKnowsItsBounds) {
    EXPECT_EQ(grx_libere_indice_objet_fen(0), 1);
    EXPECT_EQ(grx_libere_indice_objet_fen(99), 1);
    EXPECT_EQ(grx_libere_indice_objet_fen(99), 1) << "twice is harmless";
    for (INT n : {-1, 100, INT_MAX, INT_MIN}) EXPECT_EQ(grx_libere_indice_objet_fen(n), 0);
}

TEST_F(WindowBase, LookingForNothingGivesTheSizeOfTheBase) {
    EXPECT_EQ(grx_recup_indice_fen(nullptr), 100);
    MAXOBJETFEN = 1;
    EXPECT_EQ(grx_recup_indice_fen(fake_widget(8)), 1);
    MAXOBJETFEN = 100;
}

TEST(NoWindowBase, AnswersBeforeItsAllocation) {
    EXPECT_EQ(MAXOBJETFEN, 0);
    EXPECT_EQ(grx_recup_indice_fen(fake_widget(8)), 0);
    EXPECT_EQ(grx_recup_objet_fen(1), nullptr);
    EXPECT_EQ(grx_affecte_objet_fen(1, fake_widget(8)), 0);
    EXPECT_EQ(grx_libere_indice_objet_fen(1), 0);
    EXPECT_EQ(grx_recup_max_objet(), 0);
    const Outcome search = outcome_of(grx_recup_indice_objet_fen_libre);
    EXPECT_EQ(search.result, -1);
    EXPECT_EQ(search.printed, overflow_line);
    EXPECT_EQ(grx_init_objet_fen(), 0);
    EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
}

TEST(NoWindowBase, MemoryComesFromTheHostAndGoesBack) {
    const NoLeak no_leak;
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    EXPECT_GE(heap().blocks(), 7U);
    EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
}

TEST(NoWindowBase, EachFailingAllocationBut7Gives12) {
    // KEEP: the last test looks at largeur_fen again, so that a missing hauteur_fen is not reported.
    for (std::size_t n = 1; n <= 7; ++n) {
        const NoLeak no_leak;
        heap().fail_at(n);
        const Outcome outcome = outcome_of(grx_alloue_base_fenetres);
        EXPECT_TRUE(heap().failed()) << n;
        EXPECT_EQ(outcome.result, n == 7 ? 0 : 12) << n;
        EXPECT_EQ(outcome.printed, "") << n;
        heap().fail_never();
        EXPECT_EQ(MAXOBJETFEN, 100) << n;
        grx_affecte_largeur_fenetre(5, 3);
        grx_affecte_hauteur_fenetre(5, 4);
        EXPECT_EQ(grx_recup_hauteur_fenetre(5), 0) << n;
        grx_affecte_objet_fen(5, nullptr);
        grx_libere_indice_objet_fen(5);
        grx_init_objet_fen();
        grx_init_sauvegarde_fenetre();
        EXPECT_EQ(grx_desalloue_base_fenetres(), 0);
    }
}

TEST(NoWindowBase, NoMemoryAtAllGives12) {
    const NoLeak no_leak;
    heap().fail_from(1);
    EXPECT_EQ(grx_alloue_base_fenetres(), 12);
    heap().fail_never();
    EXPECT_EQ(grx_recup_objet_fen(1), nullptr);
    grx_desalloue_base_fenetres();
}

// --- the base with real windows -----------------------------------------------------------------------------

class Base : public DisplayTest {
  protected:
    bool alive(Drawable drawable) {
        XSync(x11_disp, False);
        Window root = None;
        int x = 0, y = 0;
        unsigned width = 0, height = 0, border = 0, depth = 0;
        return XGetGeometry(test_display(), drawable, &root, &x, &y, &width, &height, &border, &depth) != 0;
    }
};

TEST_F(Base, AWindowIsFoundByItsWidgetAndByItsShell) {
    INT last = 0;
    for (int i = 0; i < 5; ++i) last = make(GRX_FEN_ALPHA);
    ASSERT_EQ(last, 5);
    EXPECT_EQ(grx_recup_indice_fen(widget_of(5)), 5);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(5)), 5);
    EXPECT_EQ(grx_recup_indice_fen(XtParent(shell_of(5))), 100);
    grx_detruit_fenetre(5);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(4)), 4);
}

TEST_F(Base, ASharedShellGivesTheLowestNumber) {
    const INT outer = make(GRX_FEN_ALPHA);
    const INT inner = make(nested_in(outer, GRX_FEN_ALPHA));
    EXPECT_EQ(grx_recup_indice_fen(widget_of(inner)), inner);
    EXPECT_EQ(grx_recup_indice_fen(shell_of(inner)), outer);
    EXPECT_EQ(shell_of(inner), shell_of(outer));
}

TEST_F(Base, FreeingAGraphicWindowFreesItsPicture) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    ASSERT_NE(record_of(window).image, nullptr);
    const Pixmap picture = *record_of(window).image;
    ASSERT_TRUE(alive(picture));
    EXPECT_EQ(grx_libere_indice_objet_fen(window), 1);
    EXPECT_EQ(record_of(window).image, nullptr);
    EXPECT_FALSE(alive(picture));
    EXPECT_EQ(grx_recup_objet_fen(window), nullptr);
}

TEST_F(Base, FreeingAWindowOfAnotherKindLeavesAPictureAlone) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    const Pixmap picture = *record_of(window).image;
    record_of(window).type = GRX_FEN_ALPHA;
    grx_libere_indice_objet_fen(window);
    EXPECT_TRUE(alive(picture));
    record_of(window).type = GRX_FEN_GRAPHIQUE;
    grx_libere_indice_objet_fen(window);
    EXPECT_FALSE(alive(picture));
}

TEST_F(Base, Number0MayBeFreedAndIsStillNotGiven) {
    EXPECT_EQ(grx_libere_indice_objet_fen(0), 1);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
}

} // namespace
