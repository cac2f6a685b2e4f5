// Separators and labels without a number.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/support/toolkit_calls.h"

#include "drawing/control_pictures_state.h"

#include <algorithm>
#include <ranges>

namespace {

using namespace grxtest;

TEST_F(ControlCreation, ASeparatorGadgetHasAFixedName) {
    for (INT bits : {0, 0x200}) {
        GRX_BOUTON gadget = a(GRX_BOU_SEPARATEUR, bits, "Ignore");
        gadget.coul_fond = 6;
        gadget.coul_trace = 4;
        const INT before = grx_recup_indice_objet_bout_libre();
        EXPECT_EQ(grx_cree_gadget(&gadget), 0);
        EXPECT_EQ(gadget.nobou, -1);
        EXPECT_EQ(grx_recup_indice_objet_bout_libre(), before) << "no number";
        const Widget made = children_of(widget_of(window)).back();
        EXPECT_EQ(std::string(XtName(made)), "Gadget_Separateur");
        ASSERT_TRUE(is_a(made, xmSeparatorWidgetClass));
        EXPECT_EQ(resource<unsigned char>(made, XmNorientation), bits ? XmHORIZONTAL : XmVERTICAL);
        EXPECT_TRUE(XtIsManaged(made));
        EXPECT_EQ(resource<Position>(made, XmNx), 20);
        EXPECT_EQ(resource<Position>(made, XmNy), 30);
        EXPECT_EQ(extent_of(made), (Extent{120, 80}));
        EXPECT_EQ(resource<Pixel>(made, XmNbackground), pixel_of(6));
        EXPECT_EQ(resource<Pixel>(made, XmNforeground), pixel_of(4));
        EXPECT_EQ(grx_recup_indice_bout(made), -1);
    }
}

TEST_F(ControlCreation, ALabelGadgetIsNamedAfterItsTitle) {
    GRX_BOUTON gadget = a(GRX_BOU_LABEL, 0, "Une note");
    gadget.coul_fond = 6;
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    const Widget made = children_of(widget_of(window)).back();
    ASSERT_TRUE(is_a(made, xmLabelWidgetClass));
    EXPECT_EQ(std::string(XtName(made)), "Une note");
    EXPECT_EQ(label_of(made), "Une note");
    EXPECT_EQ(resource<unsigned char>(made, XmNalignment), XmALIGNMENT_BEGINNING);
    EXPECT_EQ(grx::Mypixmap, 2U);
    const WidgetCreation* creation = asked.creation_of("Une note");
    ASSERT_TRUE(creation);
    EXPECT_EQ(creation->arguments.at(XmNarmColor), 6) << "the index itself";
    EXPECT_EQ(creation->arguments.at(XmNbackground), static_cast<XtArgVal>(pixel_of(6)));
    EXPECT_EQ(creation->arguments.at(XmNfontList), reinterpret_cast<XtArgVal>(fontlist));
    const std::vector<std::string> order{
        XmNfontList, XmNx, XmNy, XmNheight, XmNwidth, XmNforeground, XmNarmColor, XmNbackground};
    gadget.coul_trace = 4;
    asked.forget();
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    EXPECT_TRUE(std::ranges::equal(order, asked.creation_of("Une note")->names | std::views::take(order.size())));
    gadget.x = gadget.y = gadget.largeur = gadget.hauteur = gadget.coul_fond = gadget.coul_trace = -1;
    asked.forget();
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    const std::vector<std::string> least{XmNfontList, XmNlabelString, XmNalignment};
    EXPECT_EQ(asked.creation_of("Une note")->names, least);
    EXPECT_TRUE(std::ranges::none_of(
        asked.handlers, [](const HandlerAddition& h) { return h.function == &grx_gere_evenements_bouton; }));
}

TEST_F(ControlCreation, ALabelGadgetShowsItsIcon) {
    const std::string path = plain_icon("icon.bmp", 12);
    GRX_BOUTON gadget = a(GRX_BOU_LABEL);
    path.copy(gadget.icone, GRX_TITRE_MAX - 1);
    const INT main = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE);
    ASSERT_TRUE(wait_visible(widget_of(main)));
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    const Widget made = children_of(widget_of(window)).back();
    EXPECT_EQ(resource<unsigned char>(made, XmNlabelType), XmPIXMAP);
    EXPECT_EQ(resource<Pixmap>(made, XmNlabelPixmap), grx::Mypixmap);
    EXPECT_GT(grx::Mypixmap, 2U);
    EXPECT_EQ(pixmap_extent(grx::Mypixmap), (Extent{16, 8}));
    EXPECT_EQ(grab(x11_disp, grx::Mypixmap).at(3, 3), static_cast<Pixel>(grx_recup_couleur_icone(12)));
    gadget.icone[0] = '\0';
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    EXPECT_EQ(grx::Mypixmap, 2U);
    EXPECT_EQ(resource<unsigned char>(children_of(widget_of(window)).back(), XmNlabelType), XmSTRING);
}

TEST_F(ControlCreation, TheIconOfAGadgetGoesWithIt) {
    const std::string path = plain_icon("icon.bmp", 12);
    const auto pixmaps = [&] {
        drain();
        return server_resources(test_display(), XtWindow(widget_of(window)))["PIXMAP"];
    };
    const auto round = [&] {
        GRX_BOUTON gadget = a(GRX_BOU_LABEL);
        gadget.fen_mere = make(GRX_FEN_ALPHA);
        path.copy(gadget.icone, GRX_TITRE_MAX - 1);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(grx_cree_gadget(&gadget), 0);
        grx_detruit_fenetre(gadget.fen_mere);
    };
    round();
    const auto before = pixmaps();
    for (int i = 0; i < 5; ++i) round();
    EXPECT_EQ(pixmaps(), before);
}

TEST_F(ControlCreation, AGadgetWithoutBackgroundTakesTheApplicationColour) {
    grx_affecte_couleur_application(6);
    GRX_BOUTON gadget = a(GRX_BOU_LABEL);
    EXPECT_EQ(grx_cree_gadget(&gadget), 0);
    EXPECT_EQ(resource<Pixel>(children_of(widget_of(window)).back(), XmNbackground), pixel_of(6));
}

TEST_F(ControlCreation, GadgetsOfOtherTypesAndOtherWindows) {
    for (INT type : {1, 2, 4, 32, 128, 0, -1, 1024}) {
        GRX_BOUTON gadget = a(type);
        asked.forget();
        EXPECT_EQ(grx_cree_gadget(&gadget), 0) << type;
        EXPECT_TRUE(asked.creations.empty()) << type;
    }
    for (INT parent : {-1, 0, 50, 100, INT_MIN, INT_MAX}) {
        GRX_BOUTON gadget = a(GRX_BOU_LABEL);
        gadget.fen_mere = parent;
        grx::Mypixmap = 4711;
        EXPECT_EQ(grx_cree_gadget(&gadget), -1) << parent;
        EXPECT_EQ(grx::Mypixmap, 2U) << "even so";
    }
}

} // namespace
