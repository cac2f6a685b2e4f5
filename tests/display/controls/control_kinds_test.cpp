// What each type of control is made of.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/support/toolkit_calls.h"

#include <set>

namespace {

using namespace grxtest;

// --- drawn buttons, toggles, push buttons, arrows, labels ---------------------------------------------------------

TEST_F(ControlCreation, DrawnButtonsHaveAPushShadowUnlessFlat) {
    const Widget shadowed = make_widget(a(GRX_BOU_DESSINE));
    EXPECT_EQ(resource<unsigned char>(shadowed, XmNshadowType), XmSHADOW_OUT);
    EXPECT_TRUE(resource<Boolean>(shadowed, XmNpushButtonEnabled));
    const Widget flat = make_widget(a(GRX_BOU_DESSINE, GRX_BOU_ATT_PLAT));
    const Widget raw = XmCreateDrawnButton(widget_of(window), const_cast<char*>("raw"), nullptr, 0);
    EXPECT_EQ(resource<unsigned char>(flat, XmNshadowType), resource<unsigned char>(raw, XmNshadowType));
    EXPECT_FALSE(resource<Boolean>(flat, XmNpushButtonEnabled));
    const Widget default_bit = make_widget(a(GRX_BOU_DESSINE, GRX_BOU_ATT_VRAI_POUSSOIR));
    EXPECT_TRUE(is_a(default_bit, xmDrawnButtonWidgetClass)) << "that bit is another type's";
}

TEST_F(ControlCreation, TogglesHaveAnIndicatorThatSelectsInBlack) {
    const Widget w = make_widget(a(GRX_BOU_BASCULE));
    EXPECT_EQ(resource<Pixel>(w, XmNselectColor), static_cast<Pixel>(grx_noir_systeme()));
    EXPECT_EQ(resource<unsigned char>(w, XmNindicatorOn), 1);
    EXPECT_FALSE(XmToggleButtonGetState(w));
}

TEST_F(ControlCreation, PushButtonsAreRealWithTheirBitElseDrawn) {
    const Widget real = make_widget(a(GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR));
    ASSERT_TRUE(is_a(real, xmPushButtonWidgetClass));
    EXPECT_FALSE(resource<Boolean>(real, XmNfillOnArm));
    const Widget drawn = make_widget(a(GRX_BOU_POUSSOIR, GRX_BOU_ATT_PLAT));
    ASSERT_TRUE(is_a(drawn, xmDrawnButtonWidgetClass));
    EXPECT_EQ(resource<unsigned char>(drawn, XmNshadowType), XmSHADOW_OUT) << "flat is another type's bit";
    EXPECT_TRUE(resource<Boolean>(drawn, XmNpushButtonEnabled));
    const Widget simple = make_widget(a(GRX_BOU_SIMPLE));
    ASSERT_TRUE(is_a(simple, xmPushButtonWidgetClass));
    EXPECT_TRUE(resource<Boolean>(simple, XmNfillOnArm));
}

TEST_F(ControlCreation, ArrowsTakeTheFirstOfTheirDirections) {
    const Widget raw = XmCreateArrowButton(widget_of(window), const_cast<char*>("raw"), nullptr, 0);
    for (INT bits = 0; bits < 16; ++bits) {
        const Widget w = make_widget(a(GRX_BOU_FLECHE, bits * 0x100));
        const int expected = bits & 4   ? int{XmARROW_LEFT}
                             : bits & 8 ? int{XmARROW_RIGHT}
                             : bits & 2 ? int{XmARROW_DOWN}
                             : bits & 1 ? int{XmARROW_UP}
                                        : int{resource<unsigned char>(raw, XmNarrowDirection)};
        EXPECT_EQ(resource<unsigned char>(w, XmNarrowDirection), expected) << bits;
        grx_detruit_bouton(grx_recup_indice_bout(w));
    }
}

TEST_F(ControlCreation, LabelsAreFlushLeft) {
    EXPECT_EQ(resource<unsigned char>(make_widget(a(GRX_BOU_LABEL)), XmNalignment), XmALIGNMENT_BEGINNING);
}

TEST_F(ControlCreation, TitlesOfFullLength) {
    const std::string longest(GRX_TITRE_MAX - 1, 'm');
    EXPECT_EQ(label_of(make_widget(a(GRX_BOU_LABEL, 0, longest.c_str()))), longest);
    GRX_BOUTON unterminated = a(GRX_BOU_LABEL);
    std::memset(unterminated.titre, 'm', GRX_TITRE_MAX);
    const std::string shown_title = label_of(make_widget(unterminated));
    EXPECT_EQ(shown_title.substr(0, GRX_TITRE_MAX - 1), longest) << "and nothing behind the field";
    EXPECT_LE(shown_title.size(), static_cast<std::size_t>(GRX_TITRE_MAX));
}

// --- texts --------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, FieldsHoldTheTitle) {
    const INT n = placed(a(GRX_BOU_TEXTE, 0, "au depart"));
    EXPECT_EQ(text_of(n), "au depart");
    EXPECT_TRUE(resource<Boolean>(control(n), XmNeditable));
    const INT multi = placed(a(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI, "une\ndeux"));
    EXPECT_EQ(text_of(multi), "une\ndeux");
    EXPECT_EQ(resource<int>(control(multi), XmNeditMode), XmMULTI_LINE_EDIT);
    EXPECT_TRUE(resource<Boolean>(control(multi), XmNeditable));
}

TEST_F(ControlCreation, ReadOnlyTextsAreNotEditable) {
    EXPECT_FALSE(resource<Boolean>(make_widget(a(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_LECTURE)), XmNeditable));
    EXPECT_FALSE(resource<Boolean>(
        make_widget(a(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_LECTURE | GRX_BOU_ATT_TEXTE_MULTI)), XmNeditable));
}

TEST_F(ControlCreation, ColumnsAreGivenOrComeFromTheWidth) {
    struct Case {
        INT columns, width, cell;
        int expected;
    };
    for (const Case& c :
        {Case{12, -1, 8, 12}, Case{1, -1, 8, 1}, Case{-1, 200, 8, 25}, Case{-7, 90, 8, 11}, Case{-1, 200, 6, 33}}) {
        grx_affecte_lar_carac_alpha(c.cell);
        GRX_BOUTON description = a(GRX_BOU_TEXTE, 0, "Colonnes");
        description.tabi[GRX_BOU_TABI_COLONNES] = c.columns;
        description.largeur = c.width;
        description.hauteur = -1;
        asked.forget();
        const INT n = placed(description);
        ASSERT_TRUE(asked.creation_of("Colonnes")->arguments.contains(XmNcolumns)) << c.columns;
        EXPECT_EQ(
            static_cast<int>(static_cast<short>(asked.creation_of("Colonnes")->arguments.at(XmNcolumns))), c.expected);
        if (c.width == -1) {
            EXPECT_EQ(resource<short>(control(n), XmNcolumns), c.expected);
        }
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlCreation, AFieldWithoutUsableColumnsHasTheToolkitsNumber) {
    const Widget raw = XmCreateTextField(widget_of(window), const_cast<char*>("raw"), nullptr, 0);
    for (INT cell : {0, 8, -3})
        for (INT columns : {0, -1}) {
            grx_affecte_lar_carac_alpha(cell);
            GRX_BOUTON description = a(GRX_BOU_TEXTE);
            description.tabi[GRX_BOU_TABI_COLONNES] = columns;
            description.largeur = description.hauteur = -1;
            EXPECT_EQ(resource<short>(make_widget(description), XmNcolumns), resource<short>(raw, XmNcolumns));
        }
}

// No columns given is not the same as columns from the width.
TEST_F(ControlCreation, ZeroColumnsAreNotTakenFromTheWidth) {
    grx_affecte_lar_carac_alpha(8);
    GRX_BOUTON description = a(GRX_BOU_TEXTE, 0, "Zero");
    description.largeur = 200;
    make_widget(description);
    EXPECT_FALSE(asked.creation_of("Zero")->arguments.contains(XmNcolumns));
}

TEST_F(ControlCreation, AScrolledTextScrollsUpAndDownOnly) {
    const INT n = placed(a(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI));
    const Widget scrolled = XtParent(control(n));
    ASSERT_TRUE(is_a(scrolled, xmScrolledWindowWidgetClass));
    EXPECT_NE(resource<Widget>(scrolled, XmNverticalScrollBar), nullptr);
    EXPECT_EQ(resource<Widget>(scrolled, XmNhorizontalScrollBar), nullptr);
}

TEST_F(ControlCreation, WhatScrolledTextsAreAskedFor) {
    make_widget(a(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI, "Defile"));
    const WidgetCreation* creation = asked.creation_of("Defile");
    ASSERT_TRUE(creation);
    ASSERT_TRUE(creation->arguments.contains(XmNscrollBarDisplayPolicy));
    EXPECT_EQ(creation->arguments.at(XmNscrollBarDisplayPolicy), 1);
    ASSERT_TRUE(creation->arguments.contains(XmNscrollHorizontal));
    EXPECT_EQ(creation->arguments.at(XmNscrollHorizontal), 0);
    make_widget(a(GRX_BOU_TEXTE, 0, "Simple"));
    EXPECT_FALSE(asked.creation_of("Simple")->arguments.contains(XmNscrollBarDisplayPolicy));
}

// --- scales -------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, ScalesHaveTheirBoundsAndAValueStrictlyInside) {
    for (INT value : {-20, -10, -9, 0, 39, 40, 41}) {
        const Widget w = make_widget(scale(window, 0, -10, 40, value));
        EXPECT_EQ(resource<int>(w, XmNminimum), -10);
        EXPECT_EQ(resource<int>(w, XmNmaximum), 40);
        const Widget raw =
            XtVaCreateWidget("raw", xmScaleWidgetClass, widget_of(window), XmNminimum, -10, XmNmaximum, 40, nullptr);
        const bool inside = value > -10 && value < 40;
        EXPECT_EQ(resource<int>(w, XmNvalue), inside ? value : resource<int>(raw, XmNvalue)) << value;
        XtDestroyWidget(raw);
    }
}

TEST_F(ControlCreation, ScalesAreVerticalWithTheMaximumBelowUnlessHorizontal) {
    const Widget vertical = make_widget(scale(window, 0, 0, 100, 50));
    EXPECT_EQ(resource<unsigned char>(vertical, XmNorientation), XmVERTICAL);
    EXPECT_EQ(resource<unsigned char>(vertical, XmNprocessingDirection), XmMAX_ON_BOTTOM);
    EXPECT_FALSE(resource<Boolean>(vertical, XmNshowValue));
    EXPECT_EQ(resource<Dimension>(vertical, XmNscaleWidth), 120);
    EXPECT_EQ(resource<Dimension>(vertical, XmNscaleHeight), 80);
    EXPECT_EQ(extent_of(vertical), (Extent{120, 80}));
    const Widget horizontal = make_widget(scale(window, GRX_BOU_ATT_ECHELLE_HORIZ, 0, 100, 50));
    EXPECT_EQ(resource<unsigned char>(horizontal, XmNorientation), XmHORIZONTAL);
    EXPECT_EQ(resource<unsigned char>(horizontal, XmNprocessingDirection), XmMAX_ON_RIGHT);
    EXPECT_EQ(resource<Dimension>(horizontal, XmNscaleWidth), 120);
}

TEST_F(ControlCreation, ScalesAreSeenWhateverTheirWindow) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA}) {
        const INT parent = shown(kind);
        for (INT bits : {0, 0x200, 0x400, 0x600})
            for (INT size : {-1, 60}) {
                GRX_BOUTON description = scale(parent, bits, 0, 100, 50);
                description.largeur = description.hauteur = size;
                const INT n = placed(description);
                drain();
                const int least = size == -1 ? 10 : 15;
                EXPECT_GT(extent_of(control(n)).width, least) << kind << " " << bits << " " << size;
                EXPECT_GT(extent_of(control(n)).height, least) << kind << " " << bits << " " << size;
                grx_detruit_bouton(n);
            }
    }
}

TEST_F(ControlCreation, AScaleThatShowsItsValueHasATitleAndNoSizeOfItsOwn) {
    asked.forget();
    const Widget w = make_widget(scale(window, GRX_BOU_ATT_ECHELLE_VALEUR | GRX_BOU_ATT_ECHELLE_HORIZ, 0, 100, 50));
    EXPECT_TRUE(resource<Boolean>(w, XmNshowValue));
    EXPECT_EQ(tagged_text(w, XmNtitleString, "tag1"), "Echelle");
    const WidgetCreation* creation = asked.creation_of("Echelle");
    ASSERT_TRUE(creation);
    EXPECT_FALSE(creation->arguments.contains(XmNwidth));
    EXPECT_FALSE(creation->arguments.contains(XmNheight));
    EXPECT_EQ(resource<Dimension>(w, XmNscaleWidth), 120);
    asked.forget();
    make_widget(scale(window, 0, 0, 100, 50));
    EXPECT_TRUE(asked.creation_of("Echelle")->arguments.contains(XmNwidth));
    EXPECT_FALSE(asked.creation_of("Echelle")->arguments.contains(XmNtitleString));
}

TEST_F(ControlCreation, ScalesWithoutRangeAreSurvived) {
    for (const auto& [minimum, maximum] : {std::pair{0, 0}, std::pair{50, 10}, std::pair{INT_MIN, INT_MAX}}) {
        const INT n = make(scale(window, 0, minimum, maximum, minimum));
        EXPECT_GE(n, 0);
        drain();
        grx_detruit_bouton(n);
    }
}

// --- lists --------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, ListsAreOfFixedSizeAndBrowse) {
    for (INT bits : {0, GRX_BOU_ATT_LISTE_SCROLL}) {
        const Widget w = make_widget(a(GRX_BOU_LISTE, bits));
        ASSERT_TRUE(is_a(XtParent(w), xmScrolledWindowWidgetClass));
        EXPECT_EQ(resource<unsigned char>(w, XmNlistSizePolicy), 1);
        EXPECT_EQ(resource<unsigned char>(w, XmNselectionPolicy), XmBROWSE_SELECT);
        EXPECT_EQ(resource<int>(w, XmNitemCount), 0);
        EXPECT_EQ(resource<Dimension>(w, XmNhighlightThickness), 0);
    }
}

TEST_F(ControlCreation, AScrolledListAlwaysShowsItsScrollBar) {
    const Widget scrolled = XtParent(make_widget(a(GRX_BOU_LISTE, GRX_BOU_ATT_LISTE_SCROLL)));
    drain();
    const Widget bar = resource<Widget>(scrolled, XmNverticalScrollBar);
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(XtIsManaged(bar));
    EXPECT_EQ(resource<unsigned char>(scrolled, XmNscrollBarDisplayPolicy), XmSTATIC);
}

TEST_F(ControlCreation, WhatScrolledListsAreAskedFor) {
    make_widget(a(GRX_BOU_LISTE, GRX_BOU_ATT_LISTE_SCROLL, "Defile"));
    make_widget(a(GRX_BOU_LISTE, 0, "Simple"));
    const WidgetCreation *scrolled = asked.creation_of("Defile"), *plain = asked.creation_of("Simple");
    ASSERT_TRUE(scrolled && plain);
    for (const auto& [name, value] :
        {std::pair{XmNscrollingPolicy, 1}, std::pair{XmNscrollBarDisplayPolicy, 0}, std::pair{XmNvisualPolicy, 1}}) {
        ASSERT_TRUE(scrolled->arguments.contains(name)) << name;
        EXPECT_EQ(scrolled->arguments.at(name), value) << name;
    }
    EXPECT_EQ(plain->arguments.at(XmNlistSizePolicy), 1);
}

TEST_F(ControlCreation, AListWithoutThatBitShowsItsScrollBarWhenItIsNeeded) {
    const INT n = placed(a(GRX_BOU_LISTE));
    const Widget bar = resource<Widget>(XtParent(control(n)), XmNverticalScrollBar);
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(XtIsManaged(bar));
    for (int i = 0; i < 30; ++i) grx_ajoute_element_dans_liste(n, const_cast<char*>("element"));
    EXPECT_TRUE(wait_for([&] { return XtIsManaged(bar); }));
}

// --- dialog buttons -----------------------------------------------------------------------------------------------

class DialogButtons : public ControlCreation {
  protected:
    void SetUp() override {
        ControlCreation::SetUp();
        if (HasFatalFailure()) return;
        Widget parent = widget_of(window);
        for (const char* name : {"outer", "middle", "inner"}) {
            parent = XtVaCreateManagedWidget(name, xmBulletinBoardWidgetClass, parent, nullptr);
            chain.push_back(parent);
        }
    }

    GRX_BOUTON in_place(INT place) {
        GRX_BOUTON description = a(GRX_BOU_DIALOGUE, 0, "Valider");
        description.ref_fen_mere = chain.back();
        description.x = description.y = description.largeur = description.hauteur = -1;
        description.tabi[GRX_BOU_TABI_PLACE] = place;
        return description;
    }

    std::vector<Widget> chain;
};

std::vector<int> positions_of(Widget w) {
    return {resource<int>(w, XmNleftPosition), resource<int>(w, XmNrightPosition), resource<int>(w, XmNtopPosition),
        resource<int>(w, XmNbottomPosition)};
}
std::vector<int> attachments_of(Widget w) {
    return {resource<unsigned char>(w, XmNleftAttachment), resource<unsigned char>(w, XmNrightAttachment),
        resource<unsigned char>(w, XmNtopAttachment), resource<unsigned char>(w, XmNbottomAttachment)};
}

TEST_F(DialogButtons, StandInTheFormThreeLevelsUpByPosition) {
    const std::array<std::vector<int>, 3> expected{
        std::vector{5, 31, 92, 99}, std::vector{36, 62, 92, 99}, std::vector{68, 94, 92, 99}};
    for (INT place : {1, 2, 3}) {
        const INT n = placed(in_place(place));
        ASSERT_TRUE(is_a(control(n), xmPushButtonWidgetClass));
        EXPECT_EQ(XtParent(control(n)), widget_of(window));
        EXPECT_EQ(positions_of(control(n)), expected[static_cast<std::size_t>(place - 1)]) << place;
        EXPECT_EQ(attachments_of(control(n)), (std::vector<int>(4, XmATTACH_POSITION))) << place;
        EXPECT_EQ(callbacks_of(control(n)), (std::set<std::string>{XmNactivateCallback}));
        EXPECT_EQ(button_record(n).nofen, -1);
        EXPECT_NE(listened_mask(asked, n), 0U);
    }
    EXPECT_EQ(resource<int>(widget_of(window), XmNfractionBase), 100);
}

TEST_F(DialogButtons, OtherPlacesAttachNothing) {
    const Widget raw = XmCreatePushButton(widget_of(window), const_cast<char*>("raw"), nullptr, 0);
    for (INT place : {0, 4, -1, 100}) {
        const INT n = make(in_place(place));
        ASSERT_GE(n, 0);
        EXPECT_EQ(attachments_of(control(n)), attachments_of(raw)) << place;
    }
}

TEST_F(DialogButtons, TheNameIsTheLabel) {
    const INT n = placed(in_place(1));
    EXPECT_EQ(text_resource(control(n), XmNlabelString), "Valider");
    EXPECT_EQ(std::string(XtName(control(n))), "Valider");
    const WidgetCreation* creation = asked.creation_of("Valider");
    ASSERT_TRUE(creation);
    for (const char* name : {XmNlabelString, XmNfontList, XmNfillOnArm, XmNrecomputeSize})
        EXPECT_FALSE(creation->arguments.contains(name)) << name;
}

TEST_F(DialogButtons, WithoutThreeLevelsAboveNothingIsMade) {
    GRX_BOUTON description = in_place(1);
    description.ref_fen_mere = shell_of(window);
    const INT result = grx_cree_bouton(&description);
    EXPECT_TRUE(result == -1 || result == -2) << result;
    EXPECT_EQ(description.nobou, -1);
}

// --- separators ---------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, SeparatorsAreVerticalUnlessHorizontal) {
    EXPECT_EQ(resource<unsigned char>(make_widget(a(GRX_BOU_SEPARATEUR)), XmNorientation), XmVERTICAL);
    EXPECT_EQ(resource<unsigned char>(make_widget(a(GRX_BOU_SEPARATEUR, GRX_BOU_ATT_SEPARATEUR_HORIZ)), XmNorientation),
        XmHORIZONTAL);
}

// --- drawing areas ------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, ADrawingAreaHasABlackCopyOfItsSize) {
    const INT n = placed(a(GRX_BOU_ZONE_DESSIN));
    int depth = 0;
    EXPECT_EQ(pixmap_extent(button_record(n).image, &depth), (Extent{120, 80}));
    EXPECT_EQ(depth, grx_recup_profondeur_ecran());
    INT rgb[3] = {1, 1, 1};
    const Pixels copy = grab(x11_disp, button_record(n).image);
    ASSERT_FALSE(copy.empty());
    EXPECT_EQ(copy.count(copy.at(0, 0)), 120 * 80) << "one colour all over";
    XColor colour{};
    colour.pixel = copy.at(0, 0);
    XQueryColor(x11_disp, x11_cmap, &colour);
    EXPECT_EQ(colour.red + colour.green + colour.blue, 0) << "black";
    grx_recup_rgb(1, rgb);
    EXPECT_EQ(copy.at(0, 0), pixel_of(1));
}

TEST_F(ControlCreation, ADrawingAreaHasBackingStoreWhenMapped) {
    const INT n = placed(a(GRX_BOU_ZONE_DESSIN));
    XWindowAttributes attributes{};
    ASSERT_TRUE(XGetWindowAttributes(x11_disp, XtWindow(control(n)), &attributes));
    EXPECT_EQ(attributes.backing_store, WhenMapped);
    const INT other = placed(a(GRX_BOU_DESSINE));
    ASSERT_TRUE(XGetWindowAttributes(x11_disp, XtWindow(control(other)), &attributes));
    EXPECT_EQ(attributes.backing_store, NotUseful);
}

TEST_F(ControlCreation, ADrawingAreaWithoutSizeHasACopyOfItsOwn) {
    GRX_BOUTON description = a(GRX_BOU_ZONE_DESSIN);
    description.largeur = description.hauteur = -1;
    const INT n = placed(description);
    EXPECT_EQ(pixmap_extent(button_record(n).image), extent_of(control(n)));
}

TEST_F(ControlCreation, DrawingAreasOfStrangeSizesAreSurvived) {
    for (const auto& [width, height] : {std::pair{0, 0}, std::pair{1, 1}, std::pair{-5, 20}, std::pair{20, -5}}) {
        GRX_BOUTON description = a(GRX_BOU_ZONE_DESSIN);
        description.largeur = width;
        description.hauteur = height;
        const INT n = make(description);
        if (n < 0) continue;
        drain();
        EXPECT_EQ(grx_detruit_bouton(n), 0);
    }
}

// A window that is made hidden has widgets without X windows.
TEST_F(ControlCreation, EveryTypeCanBeMadeInAHiddenWindow) {
    const INT hidden = make(GRX_FEN_ALPHA, 0);
    for (const ControlKind& kind : control_kinds) {
        const INT n = make(control_of(kind, hidden));
        EXPECT_GE(n, 0) << kind.name;
        EXPECT_EQ(button_record(n).image != 0, kind.type == GRX_BOU_ZONE_DESSIN) << kind.name;
    }
    grx_detruit_fenetre(hidden);
    drain();
}

// A parent that has no X window yet: the control has none either.
TEST_F(ControlCreation, EveryTypeCanBeMadeInAnUnrealisedParent) {
    const Widget shell = XtVaAppCreateShell("shell", "Shell", topLevelShellWidgetClass, x11_disp, XmNcolormap, x11_cmap,
        XmNvisual, x11_vis, XmNdepth, grx_recup_profondeur_ecran(), XmNwidth, 200, XmNheight, 200, nullptr);
    const Widget form = XmCreateForm(shell, const_cast<char*>("form"), nullptr, 0);
    const std::string icon = plain_icon("icon.bmp", 12);
    XtManageChild(form);
    std::vector<INT> made;
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, -1);
        description.ref_fen_mere = form;
        icon.copy(description.icone, GRX_TITRE_MAX - 1);
        made.push_back(make(description));
        EXPECT_GE(made.back(), 0) << kind.name;
    }
    XtRealizeWidget(shell);
    drain();
    EXPECT_TRUE(wait_visible(control(made.front())));
    for (INT n : made) grx_detruit_bouton(n);
    XtDestroyWidget(shell);
    drain();
}

// --- colour buttons -----------------------------------------------------------------------------------------------

TEST_F(ControlCreation, AColourButtonIsPaintedAfterItsCreation) {
    grx_affecte_couleur_application(4);
    GRX_BOUTON description = a(GRX_BOU_COULEUR, GRX_BOU_ATT_PLAT, "Couleur");
    description.coul_fond = 6;
    const INT n = placed(description);
    EXPECT_EQ(asked.creation_of("Couleur")->arguments.at(XmNbackground), static_cast<XtArgVal>(pixel_of(4)))
        << "created with the application's colour";
    EXPECT_FALSE(asked.creation_of("Couleur")->arguments.contains(XmNarmColor));
    EXPECT_EQ(resource<Pixel>(control(n), XmNbackground), pixel_of(6));
    EXPECT_EQ(resource<unsigned char>(control(n), XmNshadowType), XmSHADOW_OUT) << "flat or not";
    EXPECT_TRUE(resource<Boolean>(control(n), XmNpushButtonEnabled));
    const Pixels painted = picture(n);
    EXPECT_EQ(painted.at(60, 70), pixel_of(6));
}

TEST_F(ControlCreation, AColourButtonWithoutColourHasColourZero) {
    GRX_BOUTON description = a(GRX_BOU_COULEUR);
    ASSERT_EQ(description.coul_fond, -1);
    EXPECT_EQ(resource<Pixel>(make_widget(description), XmNbackground), pixel_of(0));
}

} // namespace
