// The button base: what a number stands for, without a display.
#include "tests/support/window_kit.h"
#include "tests/support/controls.h"
#include "tests/support/stdout_capture.h"

#include <climits>

namespace {

using namespace grxtest;

constexpr const char* overflow_line = "Depassement de taille de la base des boutons\n";

Widget fake_widget(std::uintptr_t n) {
    return reinterpret_cast<Widget>(n);
}

class ButtonBase : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(grx_alloue_base_boutons(), 0); }
    void TearDown() override { grx_desalloue_base_boutons(); }
};

TEST_F(ButtonBase, HasAThousandFreeEntries) {
    for (INT n = 0; n < 1000; ++n) {
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr);
        expect_free(n);
    }
    EXPECT_EQ(grx_affecte_objet_bout(999, fake_widget(8)), 1);
    EXPECT_EQ(grx_affecte_objet_bout(1000, fake_widget(8)), 0);
}

TEST_F(ButtonBase, WidgetsAreStoredAndFound) {
    EXPECT_EQ(grx_affecte_objet_bout(0, fake_widget(8)), 1);
    EXPECT_EQ(grx_affecte_objet_bout(17, fake_widget(16)), 1);
    EXPECT_EQ(grx_affecte_objet_bout(20, fake_widget(16)), 1);
    for (INT n : {-1, -2, 1000, 1001, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_affecte_objet_bout(n, fake_widget(8)), 0) << n;
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr) << n;
    }
    EXPECT_EQ(grx_recup_objet_bout(0), fake_widget(8));
    EXPECT_EQ(grx_recup_objet_bout(17), fake_widget(16));
    EXPECT_EQ(grx_recup_objet_bout(1), nullptr);
    EXPECT_EQ(grx_recup_indice_bout(fake_widget(8)), 0);
    EXPECT_EQ(grx_recup_indice_bout(fake_widget(16)), 17) << "the first one";
    EXPECT_EQ(grx_recup_indice_bout(fake_widget(24)), -1);
    EXPECT_EQ(grx_recup_indice_bout(nullptr), -1) << "though free entries hold null";
}

TEST_F(ButtonBase, TheLowestFreeNumberComesFirst) {
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0) << "it is not reserved";
    for (INT n = 0; n < 5; ++n) grx_affecte_objet_bout(n, fake_widget(8));
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 5);
    grx_libere_indice_objet_bout(3);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 3);
}

TEST_F(ButtonBase, UseIsTheWidgetsNotTheRecords) {
    grx_affecte_structure_bouton(0, 5, 6, 7);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
}

TEST_F(ButtonBase, AFullBasePrintsItsLine) {
    for (INT n = 0; n < 1000; ++n) grx_affecte_objet_bout(n, fake_widget(8));
    const Outcome outcome = outcome_of(grx_recup_indice_objet_bout_libre);
    EXPECT_EQ(outcome.result, -1);
    EXPECT_EQ(outcome.printed, overflow_line);
    grx_libere_indice_objet_bout(999);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 999);
}

TEST_F(ButtonBase, RecordsAreFilledInFourFields) {
    button_record(17).image = 55;
    button_record(17).type = 66;
    grx_affecte_structure_bouton(17, 100, 200, 3);
    EXPECT_EQ(button_record(17).nobou, 17);
    EXPECT_EQ(button_record(17).nofen, 3);
    EXPECT_EQ(button_record(17).no_fo, 100);
    EXPECT_EQ(button_record(17).valeur, 200);
    EXPECT_EQ(button_record(17).image, 55U);
    EXPECT_EQ(button_record(17).type, 66);
    button_record(17).image = 0;
}

TEST_F(ButtonBase, AFreedEntryKeepsTypeAndImage) {
    grx_affecte_objet_bout(17, fake_widget(8));
    grx_affecte_structure_bouton(17, 100, 200, 3);
    button_record(17).type = 66;
    EXPECT_EQ(grx_libere_indice_objet_bout(17), 1);
    EXPECT_EQ(grx_recup_objet_bout(17), nullptr);
    expect_free(17);
    EXPECT_EQ(button_record(17).type, 66) << "until the next creation";
    EXPECT_EQ(grx_libere_indice_objet_bout(17), 1) << "twice is harmless";
    expect_free(17);
    for (INT n : {-1, -2, 1000, INT_MAX, INT_MIN}) EXPECT_EQ(grx_libere_indice_objet_bout(n), 0) << n;
}

TEST_F(ButtonBase, RecordsOutsideAreNotTouched) {
    STRUCTURE_BOUTON* record = nullptr;
    for (INT n : {-1, 1000, INT_MAX, INT_MIN}) {
        grx_recup_structure_bouton(n, &record);
        EXPECT_EQ(record, nullptr) << n;
        grx_affecte_structure_bouton(n, 1, 2, 3);
    }
}

TEST_F(ButtonBase, RecordsNeverMove) {
    STRUCTURE_BOUTON* first = &button_record(0);
    for (INT n = 0; n < 1000; ++n) grx_affecte_structure_bouton(n, n, n, n);
    EXPECT_EQ(&button_record(0), first);
    EXPECT_EQ(&button_record(999), first + 999);
}

TEST(ActiveButton, IsOnlyKept) {
    EXPECT_EQ(grx_recup_nobou_actif(), -1);
    for (INT n : {5, 0, -9, INT_MAX}) {
        grx_affecte_nobou_actif(n);
        EXPECT_EQ(grx_recup_nobou_actif(), n);
    }
}

TEST(NoButtonBase, AnswersBeforeItsAllocation) {
    EXPECT_EQ(grx_recup_objet_bout(0), nullptr);
    EXPECT_EQ(grx_recup_indice_bout(fake_widget(8)), -1);
    EXPECT_EQ(grx_affecte_objet_bout(0, fake_widget(8)), 0);
    EXPECT_EQ(grx_libere_indice_objet_bout(0), 0);
    const Outcome outcome = outcome_of(grx_recup_indice_objet_bout_libre);
    EXPECT_EQ(outcome.result, -1);
    EXPECT_EQ(outcome.printed, overflow_line);
    EXPECT_EQ(grx_desalloue_base_boutons(), 0);
    EXPECT_EQ(grx_recup_couleur_init_fond_bouton(), 0);
    EXPECT_EQ(grx_recup_couleur_init_trace_bouton(), 0);
}

TEST(NoButtonBase, MemoryComesFromTheHostAndGoesBack) {
    const NoLeak no_leak;
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    EXPECT_GE(heap().blocks(), 3U) << "widgets, records, pictures";
    EXPECT_EQ(grx_desalloue_base_boutons(), 0);
    EXPECT_EQ(grx_desalloue_base_boutons(), 0) << "twice is harmless";
}

TEST(NoButtonBase, EachFailingAllocation) {
    for (std::size_t n = 1; n <= 3; ++n) {
        const NoLeak no_leak;
        heap().fail_at(n);
        const Outcome outcome = outcome_of(grx_alloue_base_boutons);
        EXPECT_TRUE(heap().failed()) << n;
        EXPECT_EQ(outcome.result, n == 3 ? 0 : 13) << n << ": the result of the picture table is not looked at";
        EXPECT_EQ(outcome.printed, "") << n;
        heap().fail_never();
        grx_recup_objet_bout(5);
        grx_affecte_objet_bout(5, nullptr);
        grx_libere_indice_objet_bout(5);
        grx_desinstalle_bitmap(5);
        EXPECT_EQ(grx_desalloue_base_boutons(), 0);
    }
}

} // namespace
