// The resolution of the screen: what the resources say, else what the screen is.
#include "tests/support/window_kit.h"

#include "grx_plus.h"

#include <X11/Xatom.h>

#include <string>

namespace {

using namespace grxtest;

class ResolutionTest : public XTest {
  protected:
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-dpi", "144"};
        return options;
    }

    INT told_with(const std::string& resources) {
        XChangeProperty(test_display(), DefaultRootWindow(test_display()), XA_RESOURCE_MANAGER, XA_STRING, 8,
            PropModeReplace, reinterpret_cast<const unsigned char*>(resources.data()),
            static_cast<int>(resources.size()));
        XSync(test_display(), False);
        EXPECT_EQ(grx_recup_resolution_ecran(), GRX_ECHEC_AFFICHAGE);
        EXPECT_TRUE(start_up());
        const Cost cost(x11_disp);
        const INT told = grx_recup_resolution_ecran();
        EXPECT_EQ(cost.requests(), 0U);
        EXPECT_EQ(grx_termine_application(), 1);
        return told;
    }
};

TEST_F(ResolutionTest, IsThatOfTheResourcesElseThatOfTheScreen) {
    struct Row {
        const char* resources;
        INT told;
    };
    for (const Row& row : {Row{"", 144}, {"Xft.dpi: 192\n", 192}, {"Xft.dpi:\t119.6\n", 120}, {"Xft.dpi: much\n", 144},
             {"Xft.dpi: 0\n", 144}, {"Xft.dpi: -96\n", 144}, {"Xft.dpi: 99999999999999999999\n", 144},
             {"*dpi: 110\n", 110}, {"Xft.dpi:\n", 144}, {"XTerm*dpi: 110\n", 144}})
        EXPECT_EQ(told_with(row.resources), row.told) << row.resources;
}

TEST_F(ResolutionTest, MakesPointsPixels) {
    ASSERT_EQ(grx_affecte_police("xft:DejaVu Sans:size=10"), 1);
    told_with("Xft.dpi: 96\n");
    ASSERT_EQ(grx_affecte_police("xft:DejaVu Sans:size=10"), 1);
    ASSERT_TRUE(start_up());
    const INT small = grx_recup_hau_exact_carac_alpha();
    ASSERT_EQ(grx_termine_application(), 1);
    ASSERT_EQ(grx_affecte_police("xft:DejaVu Sans:size=10"), 1);
    told_with("Xft.dpi: 192\n");
    ASSERT_EQ(grx_affecte_police("xft:DejaVu Sans:size=10"), 1);
    ASSERT_TRUE(start_up());
    EXPECT_GT(grx_recup_hau_exact_carac_alpha(), small * (test_planes() == 24 ? 7 : 5) / 4);
}

} // namespace
