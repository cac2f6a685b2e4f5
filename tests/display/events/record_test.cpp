// The pending record.
#include "tests/support/window_kit.h"

namespace {

using namespace grxtest;

TEST(Record, IsEmptiedInThreeFieldsOnly) {
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_init_evenement(&event), 0);
    GRX_EVENEMENT wanted = patterned_event();
    wanted.bouton_appui.type_evenement = 0;
    wanted.bouton_appui.nobou = -1;
    wanted.bouton_appui.etat = 0;
    EXPECT_EQ(std::memcmp(&event, &wanted, sizeof wanted), 0);
    EXPECT_EQ(grx_init_evenement(nullptr), 0);
}

} // namespace
