// Deliberate oddities (docs/kept.md) that no test of their own area looks at.
#include "tests/support/controls.h"

#include <gtest/gtest.h>

#include "xt_bou_f.h"
#include "xt_bou_t.h"

namespace grxtest {
namespace {

class ButtonBase : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(grx_alloue_base_boutons(), 0); }
    void TearDown() override { grx_desalloue_base_boutons(); }
};

TEST_F(ButtonBase, AFreeEntryNamesWindow1) {
    for (const INT number : {0, 1, 500, 999}) expect_free(number);
}

TEST_F(ButtonBase, AFreedEntryNamesWindow1AndKeepsTypeAndPicture) {
    grx_affecte_structure_bouton(7, 11, 22, 33);
    EXPECT_EQ(button_record(7).nobou, 7);
    EXPECT_EQ(button_record(7).nofen, 33);
    button_record(7).type = GRX_BOU_FLECHE;
    const Pixmap picture = button_record(7).image;
    EXPECT_EQ(grx_libere_indice_objet_bout(7), 1);
    expect_free(7);
    EXPECT_EQ(button_record(7).type, GRX_BOU_FLECHE);
    EXPECT_EQ(button_record(7).image, picture);
}

} // namespace
} // namespace grxtest
