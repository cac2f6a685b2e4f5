// The last error of the display, as the application reads it.
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "tests/display/display/start_kit.h"
#include "tests/support/stdout_capture.h"

#include <X11/extensions/XShm.h>

#include <climits>

namespace {

using namespace grxtest;

class LastErrorTest : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        permit_x_errors();
        grx_init_erreur_affichage(&error_);
    }

    GRX_ERREUR_AFFICHAGE error_{};
};

TEST_F(LastErrorTest, IsAbsentAtFirst) {
    error_.code = 5;
    EXPECT_EQ(grx_recup_erreur_affichage(&error_), GRX_ECHEC_ABSENT);
    EXPECT_EQ(error_.code, 0);
    EXPECT_EQ(error_.nombre, 0);
    EXPECT_STREQ(error_.texte, "");
}

TEST_F(LastErrorTest, SaysWhatWasRefused) {
    const auto serial = NextRequest(x11_disp);
    const Outcome outcome = outcome_of([] {
        XMapWindow(x11_disp, 0x12345);
        return XSync(x11_disp, False);
    });
    EXPECT_EQ(outcome.printed, "");
    ASSERT_EQ(grx_recup_erreur_affichage(&error_), 1);
    EXPECT_EQ(error_.nombre, 1);
    EXPECT_EQ(error_.code, BadWindow);
    EXPECT_EQ(error_.requete, 8);
    EXPECT_EQ(error_.sous_requete, 0);
    EXPECT_EQ(error_.ressource, 0x12345U);
    EXPECT_EQ(error_.numero, static_cast<UNSIGNED_INT>(serial));
    EXPECT_STREQ(error_.texte, "BadWindow (invalid Window parameter)");
    EXPECT_STREQ(error_.nom_requete, "X_MapWindow");
}

TEST_F(LastErrorTest, NamesTheRequestsOfExtensions) {
    ASSERT_TRUE(XShmQueryExtension(x11_disp));
    XShmSegmentInfo segment{};
    segment.shmid = -1;
    XShmAttach(x11_disp, &segment);
    XSync(x11_disp, False);
    ASSERT_EQ(grx_recup_erreur_affichage(&error_), 1);
    EXPECT_GE(error_.requete, 128);
    EXPECT_EQ(error_.sous_requete, 1);
    EXPECT_EQ(std::string_view(error_.nom_requete), "X_ShmAttach");
}

TEST_F(LastErrorTest, IsForgottenWithoutItsCount) {
    for (int i = 0; i < 3; ++i) XMapWindow(x11_disp, 0x12345);
    XSync(x11_disp, False);
    EXPECT_EQ(grx_oublie_erreur_affichage(), 1);
    EXPECT_EQ(grx_recup_erreur_affichage(&error_), GRX_ECHEC_ABSENT);
    EXPECT_EQ(error_.nombre, 3);
    XMapWindow(x11_disp, 0x12345);
    XSync(x11_disp, False);
    EXPECT_EQ(grx_recup_erreur_affichage(&error_), 1);
    EXPECT_EQ(error_.nombre, 4);
}

TEST_F(LastErrorTest, BadRecordsAreRefused) {
    EXPECT_EQ(grx_init_erreur_affichage(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_erreur_affichage(nullptr), GRX_ECHEC_PARAMETRE);
    for (INT size : {0, -1, 4, INT_MIN}) {
        error_.taille = size;
        error_.code = 77;
        EXPECT_EQ(grx_recup_erreur_affichage(&error_), GRX_ECHEC_PARAMETRE) << size;
        EXPECT_EQ(error_.code, 77);
    }
}

TEST_F(LastErrorTest, ReadingItAsksTheServerNothing) {
    Cost cost(x11_disp);
    grx_recup_erreur_affichage(&error_);
    grx_oublie_erreur_affichage();
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

} // namespace
