// What is recorded of the screen.
#include "tests/display/display/start_kit.h"

namespace {

using namespace grxtest;

TEST_F(StartUp, RecordsTheScreen) {
    EXPECT_EQ(lar_ecran, 1280);
    EXPECT_EQ(hau_ecran, 1024);
    EXPECT_EQ(lar_ecran_mm, DisplayWidthMM(x11_disp, x11_screen));
    EXPECT_EQ(hau_ecran_mm, DisplayHeightMM(x11_disp, x11_screen));
    EXPECT_EQ(grx_recup_lar_ecran(), lar_ecran);
    EXPECT_EQ(grx_recup_hau_ecran(), hau_ecran);
    EXPECT_EQ(grx_recup_lar_ecran_mm(), lar_ecran_mm);
    EXPECT_EQ(grx_recup_hau_ecran_mm(), hau_ecran_mm);
}

TEST_F(StartUp, TheRecordedSizeIsNotReadAgainAndTheOtherIs) {
    lar_ecran = 11;
    hau_ecran = 12;
    lar_ecran_mm = 13;
    hau_ecran_mm = 14;
    EXPECT_EQ(grx_recup_lar_ecran(), 11);
    EXPECT_EQ(grx_recup_hau_ecran(), 12);
    EXPECT_EQ(grx_recup_lar_ecran_mm(), 13);
    EXPECT_EQ(grx_recup_hau_ecran_mm(), 14);
    INT width = 0, height = 0;
    grx_recup_taille_ecran(&width, &height);
    EXPECT_EQ(width, 1280);
    EXPECT_EQ(height, 1024);
    grx_recup_taille_ecran_mm(&width, &height);
    EXPECT_EQ(width, DisplayWidthMM(x11_disp, x11_screen));
    EXPECT_EQ(height, DisplayHeightMM(x11_disp, x11_screen));
}

class SmallScreen : public DisplayTest {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.width = 1024;
        options.height = 768;
        return options;
    }
};

TEST_F(SmallScreen, IsTheSizeThatIsRecorded) {
    EXPECT_EQ(grx_recup_lar_ecran(), 1024);
    EXPECT_EQ(grx_recup_hau_ecran(), 768);
}

TEST_F(StartUp, TheDepthIsStoredAndReadBack) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), test_planes());
    EXPECT_EQ(profondeur_ecran, test_planes());
    grx_affecte_profondeur_ecran(17);
    EXPECT_EQ(grx_recup_profondeur_ecran(), 17);
    EXPECT_EQ(profondeur_ecran, 17);
    grx_affecte_profondeur_ecran(test_planes());
    EXPECT_EQ(prof_24, 1);
}

TEST_F(StartUp, TheApplicationsPixelCountsAreOnlyKept) {
    EXPECT_EQ(grx_get_nbr_xpel_crt(), 0);
    EXPECT_EQ(grx_get_nbr_ypel_crt(), 0);
    grx_put_nbr_xpel_crt(-7);
    grx_put_nbr_ypel_crt(2000000000);
    EXPECT_EQ(grx_get_nbr_xpel_crt(), -7);
    EXPECT_EQ(grx_get_nbr_ypel_crt(), 2000000000);
    EXPECT_EQ(nbr_xpel_crt, -7);
    EXPECT_EQ(nbr_ypel_crt, 2000000000);
}

TEST_F(StartUp, SmallAnswersThatDoNothing) {
    EXPECT_EQ(grx_charge_icones(), 1);
    EXPECT_EQ(grx_selection_fonte_dialogue(), 0);
    EXPECT_EQ(grx_selection_fonte_status(), 0);
    EXPECT_EQ(grx_is_objet_valide(nullptr), 0);
    EXPECT_EQ(grx_is_objet_valide(widget_of(make(GRX_FEN_ALPHA))), 1);
    EXPECT_EQ(grx_is_objet_valide(reinterpret_cast<Widget>(-2)), 1) << "any pointer but null";
}

TEST_F(StartUp, TheLowestBitOfAMask) {
    EXPECT_EQ(decode_decalage(0), 32);
    for (int bit = 0; bit < 32; ++bit) {
        EXPECT_EQ(decode_decalage(1UL << bit), bit);
        EXPECT_EQ(decode_decalage(0xFFFFFFFFUL << bit & 0xFFFFFFFFUL), bit);
    }
}

} // namespace
