// The creation of controls: the description, labels and fields, icons, refusals, the probe of the first one.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/support/window_kit.h"
#include "tests/support/controls.h"
#include "tests/support/stdout_capture.h"

#include "controls/control_creation_state.h"
#include "display/colours_state.h"

#include <climits>

namespace {

using namespace grxtest;

constexpr const char* overflow_line = "Depassement de taille de la base des boutons\n";

// --- the description ------------------------------------------------------------------------------------------------

TEST(ButtonDescription, HasItsDefaults) {
    GRX_BOUTON button;
    std::memset(static_cast<void*>(&button), 0x5A, sizeof button);
    grx_init_bouton(&button);
    EXPECT_EQ(button.nobou, -1);
    EXPECT_EQ(button.x, -1);
    EXPECT_EQ(button.y, -1);
    EXPECT_EQ(button.largeur, -1);
    EXPECT_EQ(button.hauteur, -1);
    EXPECT_EQ(button.type, 1);
    EXPECT_EQ(button.attrib, 8209);
    EXPECT_EQ(button.coul_fond, -1);
    EXPECT_EQ(button.coul_trace, -1);
    EXPECT_EQ(button.fen_mere, -1);
    for (INT value : button.tabi) EXPECT_EQ(value, 0);
    EXPECT_EQ(button.no_fo, -1);
    EXPECT_STREQ(button.titre, "");
    EXPECT_STREQ(button.icone, "");
    EXPECT_STREQ(button.icone2, "");
    EXPECT_EQ(button.attache, 0);
    EXPECT_EQ(button.ref_fen_mere, nullptr);
    grx_init_bouton(nullptr);
}

// --- creation -----------------------------------------------------------------------------------------------------

class Buttons : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        window_ = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        drain();
        events.clear();
    }

    GRX_BOUTON described_button(INT type, const char* title = "test") const {
        GRX_BOUTON button = button_at(type, window_, {10, 20, -1, -1});
        set_title(button, title);
        return button;
    }

    Widget created(GRX_BOUTON button) {
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        Widget widget = grx_recup_objet_bout(button.nobou);
        EXPECT_NE(widget, nullptr);
        return widget;
    }

    INT window_ = 0;
};

TEST_F(Buttons, AThousandLiveOnesFillTheBase) {
    const INT board = make(GRX_FEN_BOUTONS, 0); // a form would lay them all out at each one
    for (INT n = 0; n < 1000; ++n) {
        GRX_BOUTON button = described_button(GRX_BOU_LABEL);
        button.fen_mere = board;
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        ASSERT_EQ(button.nobou, n);
    }
    GRX_BOUTON button = described_button(GRX_BOU_LABEL);
    button.fen_mere = board;
    const Outcome outcome = outcome_of([&] { return grx_cree_bouton(&button); });
    EXPECT_EQ(outcome.result, -3);
    EXPECT_EQ(outcome.printed, overflow_line);
    grx_detruit_bouton(17);
    EXPECT_EQ(grx_recup_objet_bout(17), nullptr);
    EXPECT_EQ(grx_cree_bouton(&button), 0);
    EXPECT_EQ(button.nobou, 17);
}

TEST_F(Buttons, TheRecordIsFilled) {
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE}) {
        GRX_BOUTON button = described_button(type);
        button.no_fo = 321;
        button.tabi[4] = 77;
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        const STRUCTURE_BOUTON& record = button_record(button.nobou);
        EXPECT_EQ(record.nobou, button.nobou);
        EXPECT_EQ(record.nofen, window_);
        EXPECT_EQ(record.no_fo, 321);
        EXPECT_EQ(record.valeur, 77);
        EXPECT_EQ(record.type, type);
        EXPECT_EQ(record.image, 0U);
    }
}

TEST_F(Buttons, AParentWidgetWinsOverTheWindow) {
    GRX_BOUTON button = described_button(GRX_BOU_LABEL);
    Widget parent = widget_of(make(GRX_FEN_ALPHA));
    button.ref_fen_mere = parent;
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    EXPECT_EQ(XtParent(grx_recup_objet_bout(button.nobou)), parent);
    EXPECT_EQ(button_record(button.nobou).nofen, -1);
    button.fen_mere = -1;
    EXPECT_EQ(grx_cree_bouton(&button), 0);
}

TEST_F(Buttons, WithoutAParentNothingIsMade) {
    const auto blocks = heap().blocks();
    for (INT parent : {-1, 0, 50, 99, 100, INT_MAX, INT_MIN}) {
        GRX_BOUTON button = described_button(GRX_BOU_LABEL);
        button.fen_mere = parent;
        EXPECT_EQ(grx_cree_bouton(&button), -1) << parent;
    }
    EXPECT_EQ(grx_cree_bouton(nullptr), -1);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(Buttons, UnknownTypesAreRefusedBeforeANumberIsTaken) {
    for (INT type : {0, 3, 5, 7, 9, 15, 17, 33, 127, 257, 511, 513, 767, 769, 1023, 2048, 4097, -1, INT_MAX, INT_MIN}) {
        GRX_BOUTON button = described_button(type);
        EXPECT_EQ(grx_cree_bouton(&button), -2) << type;
    }
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
    EXPECT_EQ(resource<Cardinal>(widget_of(window_), XmNnumChildren), 0U) << "no widget is left";
}

// --- labels -----------------------------------------------------------------------------------------------------------

TEST_F(Buttons, ALabel) {
    Widget label = created(described_button(GRX_BOU_LABEL, "Layer"));
    EXPECT_EQ(XtClass(label), xmLabelWidgetClass);
    EXPECT_STREQ(XtName(label), "Layer") << "the title is the name too";
    EXPECT_EQ(text_resource(label, XmNlabelString), "Layer");
    EXPECT_EQ(resource<Dimension>(label, XmNmarginWidth), 0);
    EXPECT_EQ(resource<Dimension>(label, XmNmarginHeight), 0);
    EXPECT_EQ(resource<Dimension>(label, XmNhighlightThickness), 0);
    EXPECT_EQ(resource<unsigned char>(label, XmNalignment), XmALIGNMENT_BEGINNING);
    EXPECT_EQ(resource<Boolean>(label, XmNrecomputeSize), False);
    EXPECT_EQ(resource<Position>(label, XmNx), 10);
    EXPECT_EQ(resource<Position>(label, XmNy), 20);
    EXPECT_TRUE(wait_visible(label));
    EXPECT_EQ(resource<Dimension>(label, XmNheight), grx_recup_hau_exact_carac_alpha());
    EXPECT_EQ(resource<Dimension>(label, XmNwidth), 5 * XTextWidth(fontstruct, "m", 1)) << "in the one font";
}

TEST_F(Buttons, SizePlaceAndColours) {
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE}) {
        GRX_BOUTON button = described_button(type);
        button.x = 33;
        button.y = 44;
        button.largeur = 122;
        button.hauteur = 55;
        button.coul_fond = 3;
        button.coul_trace = 4;
        Widget widget = created(button);
        ASSERT_TRUE(wait_visible(widget));
        EXPECT_EQ(server_area(test_display(), XtWindow(widget)), (Area{133, 164, 122, 55}));
        EXPECT_EQ(resource<Pixel>(widget, XmNbackground), static_cast<Pixel>(grx_recup_couleur(3)));
        EXPECT_EQ(resource<Pixel>(widget, XmNforeground), static_cast<Pixel>(grx_recup_couleur(4)));
    }
}

TEST_F(Buttons, WithoutAColourTheApplicationsIsTaken) {
    grx_affecte_couleur_application(4);
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE})
        EXPECT_EQ(
            resource<Pixel>(created(described_button(type)), XmNbackground), static_cast<Pixel>(grx_recup_couleur(4)));
}

TEST_F(Buttons, VisibleAndSensitive) {
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE})
        for (INT attrib : {0x0, 0x1, 0x10, 0x11}) {
            GRX_BOUTON button = described_button(type);
            button.attrib = attrib;
            Widget widget = created(button);
            drain();
            EXPECT_EQ(visible(XtWindow(widget)), (attrib & 1) != 0) << attrib;
            EXPECT_EQ(XtIsSensitive(widget) != 0, (attrib & 0x10) != 0) << attrib;
            EXPECT_TRUE(XtIsManaged(widget));
        }
}

TEST_F(Buttons, AttachmentsTakeTheirOffsets) {
    GRX_BOUTON button = described_button(GRX_BOU_LABEL);
    button.x = button.y = -1;
    button.attache = GRX_ATTACHE_BAS | GRX_ATTACHE_HAUT | GRX_ATTACHE_DROITE | GRX_ATTACHE_GAUCHE;
    button.tabi[0] = 5;
    button.tabi[1] = 6;
    button.tabi[2] = 7;
    button.tabi[3] = 8;
    Widget label = created(button);
    ASSERT_TRUE(wait_visible(label));
    EXPECT_TRUE(wait_for([&] {
        return server_area(test_display(), XtWindow(label)) == Area{108, 126, 400 - 7 - 8, 300 - 5 - 6};
    }));
}

// --- text fields ------------------------------------------------------------------------------------------------------

TEST_F(Buttons, ATextField) {
    GRX_BOUTON button = described_button(GRX_BOU_TEXTE, "12.5");
    button.tabi[0] = 9;
    Widget field = created(button);
    EXPECT_EQ(XtClass(field), xmTextFieldWidgetClass);
    EXPECT_STREQ(XtName(field), "12.5");
    const std::unique_ptr<char, void (*)(char*)> text(XmTextFieldGetString(field), XtFree);
    EXPECT_STREQ(text.get(), "12.5");
    EXPECT_EQ(resource<short>(field, XmNcolumns), 9);
    EXPECT_EQ(resource<Dimension>(field, XmNmarginWidth), 2);
    EXPECT_EQ(resource<Dimension>(field, XmNmarginHeight), 2);
    EXPECT_EQ(resource<Dimension>(field, XmNhighlightThickness), 0);
    EXPECT_TRUE(resource<Boolean>(field, XmNeditable));
    EXPECT_TRUE(wait_visible(field));
    EXPECT_EQ(resource<Dimension>(field, XmNwidth), 9 * grx_recup_lar_carac_alpha() + grx_recup_lar_sup_alpha());
    EXPECT_EQ(resource<Dimension>(field, XmNheight), grx_recup_hau_carac_alpha());
}

TEST_F(Buttons, ColumnsFromTheWidth) {
    grx_affecte_lar_carac_alpha(8);
    GRX_BOUTON button = described_button(GRX_BOU_TEXTE);
    button.tabi[0] = -1;
    button.largeur = 200;
    EXPECT_EQ(resource<short>(created(button), XmNcolumns), 25);
    grx_affecte_lar_carac_alpha(0);
    EXPECT_NE(created(button), nullptr) << "without a measured character nothing is divided by it";
}

TEST_F(Buttons, AReadOnlyField) {
    GRX_BOUTON button = described_button(GRX_BOU_TEXTE);
    button.attrib = GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_TEXTE_LECTURE;
    EXPECT_FALSE(resource<Boolean>(created(button), XmNeditable));
}

TEST_F(Buttons, AScrolledText) {
    GRX_BOUTON button = described_button(GRX_BOU_TEXTE, "one");
    button.attrib = GRX_BOU_ATT_ACTIF | GRX_BOU_ATT_TEXTE_MULTI;
    Widget text = created(button);
    EXPECT_EQ(XtClass(text), xmTextWidgetClass);
    EXPECT_TRUE(XmIsScrolledWindow(XtParent(text)));
    EXPECT_EQ(resource<int>(text, XmNeditMode), XmMULTI_LINE_EDIT);
    EXPECT_TRUE(wait_visible(text));
}

TEST_F(Buttons, TypingGoesIntoAField) {
    Widget field = created(described_button(GRX_BOU_TEXTE, ""));
    ASSERT_TRUE(wait_visible(field));
    pointer().click_in(field);
    drain();
    keyboard().type("Ab 1");
    const auto typed = [&] {
        const std::unique_ptr<char, void (*)(char*)> text(XmTextFieldGetString(field), XtFree);
        return std::string(text.get()) == "Ab 1";
    };
    EXPECT_TRUE(wait_for(typed));
}

// --- the probe of the first creation ----------------------------------------------------------------------------------

class Probe : public Buttons {
  protected:
    // What a drawn button has when nobody says otherwise.
    struct Colours {
        INT background, foreground;
    };
    Colours toolkit_colours() {
        Widget button = XmCreateDrawnButton(widget_of(window_), const_cast<char*>("other"), nullptr, 0);
        const Colours colours{static_cast<INT>(resource<Pixel>(button, XmNbackground)),
            static_cast<INT>(resource<Pixel>(button, XmNforeground))};
        XtDestroyWidget(button);
        return colours;
    }
};

TEST_F(Probe, WasDoneByStartUp) {
    EXPECT_EQ(grx::Premier_bouton, 0);
    EXPECT_EQ(grx_recup_couleur_init_fond_bouton(), toolkit_colours().background);
    EXPECT_EQ(grx_recup_couleur_init_trace_bouton(), toolkit_colours().foreground);
    EXPECT_EQ(grx_recup_couleur_icone(8), toolkit_colours().background) << "the background of icons";
}

TEST_F(Probe, IsDoneWhileTheFlagIsSetAndClearsIt) {
    grx_affecte_couleur_application(4);
    created(described_button(GRX_BOU_LABEL));
    EXPECT_EQ(grx_recup_couleur_init_fond_bouton(), toolkit_colours().background) << "later creations do not probe";
    grx::Premier_bouton = 1;
    created(described_button(GRX_BOU_LABEL));
    EXPECT_EQ(grx::Premier_bouton, 0);
    EXPECT_EQ(grx_recup_couleur_init_fond_bouton(), grx_recup_couleur(4)) << "the application's colour wins";
    EXPECT_EQ(grx_recup_couleur_icone(8), grx_recup_couleur(4));
    EXPECT_EQ(grx_recup_couleur_application(), 4) << "and stays as it is";
    EXPECT_EQ(grx_recup_couleur_init_trace_bouton(), toolkit_colours().foreground);
}

TEST_F(Probe, LeavesNoWidgetAndNoNumber) {
    grx::Premier_bouton = 1;
    GRX_BOUTON button = described_button(GRX_BOU_LABEL);
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    EXPECT_EQ(button.nobou, 0);
    drain();
    EXPECT_EQ(XtNameToWidget(widget_of(window_), "Premier_bouton"), nullptr);
    EXPECT_EQ(resource<Cardinal>(widget_of(window_), XmNnumChildren), 1U);
}

class ApplicationColourProbe : public DisplayTest {
    void before_start() override { grx_affecte_couleur_application(6); }
};

TEST_F(ApplicationColourProbe, TakesTheColourSetBeforeTheStart) {
    EXPECT_EQ(grx_recup_couleur_init_fond_bouton(), grx_recup_couleur(6));
    EXPECT_EQ(grx_recup_couleur_icone(8), grx_recup_couleur(6));
    EXPECT_EQ(grx_recup_couleur_application(), 6);
}

// --- memory -----------------------------------------------------------------------------------------------------------

TEST_F(Buttons, EachFailingAllocationIsSurvived) {
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE}) {
        const auto attempt = [&] {
            const NoLeak no_leak;
            GRX_BOUTON button = described_button(type);
            const INT result = grx_cree_bouton(&button);
            EXPECT_TRUE(result == 0 || result == -2) << result;
            if (result == 0) grx_detruit_bouton(button.nobou);
            drain();
            EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
        };
        fail_each_allocation(attempt);
    }
}

TEST_F(Buttons, FiveHundredOfEachLeaveNothing) {
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE}) {
        const auto round = [&] {
            GRX_BOUTON button = described_button(type);
            ASSERT_EQ(grx_cree_bouton(&button), 0);
            ASSERT_EQ(button.nobou, 0);
            grx_detruit_bouton(0);
            drain();
        };
        const auto resources = [&] { return server_resources(test_display(), x_window(window_)); };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks();
        const auto before = resources();
        for (int i = 0; i < 500; ++i) round();
        EXPECT_EQ(heap().blocks(), blocks);
        EXPECT_EQ(resources(), before);
    }
}

constexpr int icon_colour_as_index = 8;

// --- icons --------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, AnIconStandsInsteadOfTheTitle) {
    const std::string path = icon_file("icon.bmp", 16, 8, [](int x, int y) { return (x + 2 * y) % 16; });
    for (const ControlType& row : control_types()) {
        if (!has_label(row.kind.type)) continue;
        GRX_BOUTON description = control_of(row.kind, window);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const INT n = placed(description);
        EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmPIXMAP) << row.kind.name;
        EXPECT_NE(button_record(n).image, 0U) << row.kind.name;
        EXPECT_EQ(resource<Pixmap>(control(n), XmNlabelPixmap), button_record(n).image) << row.kind.name;
        const Pixels picture = grab(x11_disp, button_record(n).image);
        ASSERT_EQ(picture.width, 16);
        ASSERT_EQ(picture.height, 8);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 16; ++x)
                EXPECT_EQ(picture.at(x, y), static_cast<Pixel>(grx_recup_couleur_icone((x + 2 * y) % 16)))
                    << x << "," << y;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlCreation, AnIconIsSeen) {
    const std::string path = plain_icon("icon.bmp", 12);
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    path.copy(description.icone, GRX_TITRE_MAX - 1);
    const INT n = placed(description);
    const auto red = static_cast<Pixel>(grx_recup_couleur_icone(12));
    EXPECT_TRUE(wait_for([&] { return picture(n).count(static_cast<std::uint32_t>(red)) == 16 * 8; }));
}

TEST_F(ControlCreation, AnIconThatCannotBeReadLeavesTheTitle) {
    home().write("broken.bmp", "BM");
    for (const std::string& name : {std::string("missing.bmp"), std::string("broken.bmp"), std::string()}) {
        const std::string path = (home().path() / name).string();
        GRX_BOUTON description = a(GRX_BOU_DESSINE);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const INT n = placed(description);
        EXPECT_EQ(resource<unsigned char>(control(n), XmNlabelType), XmSTRING) << name;
        EXPECT_EQ(label_of(control(n)), "Text") << name;
        EXPECT_EQ(button_record(n).image, 0U) << name;
    }
}

TEST_F(ControlCreation, AnIconOnAnAreaLeavesOneCopyOnly) {
    const std::string path = plain_icon("icon.bmp", 12);
    const auto before = server_resources(test_display(), XtWindow(widget_of(window)))["PIXMAP"];
    GRX_BOUTON description = a(GRX_BOU_ZONE_DESSIN);
    path.copy(description.icone, GRX_TITRE_MAX - 1);
    const INT n = placed(description);
    EXPECT_EQ(pixmap_extent(button_record(n).image), (Extent{120, 80}));
    grx_detruit_bouton(n);
    drain();
    EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window)))["PIXMAP"], before);
}

// --- refusals -----------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, WithoutAParentNothingIsMade) {
    for (INT parent : {-1, 0, 50, 99, 100, 1000, -2, INT_MIN, INT_MAX}) {
        GRX_BOUTON description = a(GRX_BOU_DESSINE);
        description.fen_mere = parent;
        asked.forget();
        EXPECT_EQ(grx_cree_bouton(&description), -1) << parent;
        EXPECT_EQ(description.nobou, -1) << parent;
        EXPECT_TRUE(asked.creations.empty()) << parent;
    }
}

// Not every window can hold controls; none of them may be harmed by the attempt.
TEST_F(ControlCreation, InEveryKindOfWindow) {
    const bool holds[] = {true, true, false, true};
    const INT kinds[] = {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_TEXTE, GRX_FEN_ALPHA};
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        const INT parent = shown(kinds[i]);
        for (const ControlKind& kind : control_kinds) {
            GRX_BOUTON description = control_of(kind, parent);
            const INT result = grx_cree_bouton(&description);
            if (holds[i]) {
                EXPECT_EQ(result, 0) << kinds[i] << " " << kind.name;
                EXPECT_TRUE(wait_visible(control(description.nobou))) << kinds[i] << " " << kind.name;
            } else {
                EXPECT_TRUE(result == -1 || result == -2 || result == 0) << result;
            }
            drain();
            grx_detruit_bouton(description.nobou);
        }
        EXPECT_EQ(grx_detruit_fenetre(parent), 0);
        drain();
    }
    for (INT kind : {GRX_FEN_MESSAGE, GRX_FEN_MENU}) {
        const INT parent = make(kind);
        const INT n = make(control_of(GRX_BOU_SIMPLE, 0, parent));
        drain();
        EXPECT_GE(n, -2) << kind;
        grx_detruit_bouton(n);
        grx_detruit_fenetre(parent);
        drain();
    }
}

TEST_F(ControlCreation, AParentWidgetWinsAndRecordsNoWindow) {
    const Widget inner = XtVaCreateManagedWidget("inner", xmBulletinBoardWidgetClass, widget_of(window), nullptr);
    for (INT parent : {-1, window, 999}) {
        GRX_BOUTON description = a(GRX_BOU_SIMPLE);
        description.fen_mere = parent;
        description.ref_fen_mere = inner;
        const INT n = placed(description);
        EXPECT_EQ(XtParent(control(n)), inner);
        EXPECT_EQ(button_record(n).nofen, -1);
    }
}

TEST_F(ControlCreation, UnknownTypesAreRefusedBeforeANumber) {
    const INT before = grx_recup_indice_objet_bout_libre();
    for (INT type : {0, 3, 5, 6, 7, 9, 17, 33, 48, 96, 129, 255, 257, 511, 513, 767, 769, 1023, 1025, 2048, 4095, 4097,
             8192, -1, -16, INT_MIN, INT_MAX}) {
        GRX_BOUTON description = a(type);
        asked.forget();
        EXPECT_EQ(grx_cree_bouton(&description), -2) << type;
        EXPECT_EQ(description.nobou, -1) << type;
        EXPECT_TRUE(asked.creations.empty()) << type;
    }
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), before);
}

TEST_F(ControlCreation, AWidgetThatTheToolkitRefusesIsMinusTwo) {
    asked.refused_name = "Refuse";
    const INT before = grx_recup_indice_objet_bout_libre();
    for (const ControlType& row : control_types()) {
        // The scrolled ones fetch their scrolled window from the widget, which the toolkit itself does not survive.
        if (row.widget_class == xmTextWidgetClass || row.widget_class == xmListWidgetClass) continue;
        GRX_BOUTON description = control_of(row.kind, window, "Refuse");
        EXPECT_EQ(grx_cree_bouton(&description), -2) << row.kind.name;
        EXPECT_EQ(description.nobou, -1) << row.kind.name;
    }
    asked.refused_name.clear();
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), before);
}

TEST_F(ControlCreation, ANullDescriptionIsRefused) {
    grx_init_bouton(nullptr);
    EXPECT_LT(grx_cree_bouton(nullptr), 0);
    EXPECT_LT(grx_cree_gadget(nullptr), 0);
    affecte_carac_font(nullptr);
}

// --- the probe ----------------------------------------------------------------------------------------------------

class FirstCreation : public ControlCreation {};

TEST_F(FirstCreation, ProbesTheToolkitBeforeItsOwnWidget) {
    grx::Premier_bouton = 1;
    grx::icone_pix[icon_colour_as_index] = 4711;
    const INT n = placed(a(GRX_BOU_DESSINE, 0, "Propre"));
    EXPECT_EQ(grx::Premier_bouton, 0);
    ASSERT_EQ(asked.creations.size(), 2U);
    EXPECT_EQ(asked.creations[0].name, "Premier_bouton");
    EXPECT_EQ(asked.creations[0].widget_class, xmDrawnButtonWidgetClass);
    EXPECT_EQ(asked.creations[1].name, "Propre");
    drain();
    for (Widget child : children_of(widget_of(window))) EXPECT_NE(std::string(XtName(child)), "Premier_bouton");
    EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_init_fond_bouton()), resource<Pixel>(control(n), XmNbackground));
    EXPECT_EQ(grx_recup_couleur_icone(icon_colour_as_index), grx_recup_couleur_init_fond_bouton());
    asked.forget();
    placed(a(GRX_BOU_DESSINE));
    EXPECT_EQ(asked.creations.size(), 1U) << "only the first one probes";
}

TEST_F(FirstCreation, PrefersTheApplicationColour) {
    const INT foreground = grx_recup_couleur_init_trace_bouton();
    grx_affecte_couleur_application(6);
    grx::Premier_bouton = 1;
    placed(a(GRX_BOU_DESSINE));
    EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_init_fond_bouton()), pixel_of(6));
    EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_icone(icon_colour_as_index)), pixel_of(6));
    EXPECT_EQ(grx_recup_couleur_init_trace_bouton(), foreground);
    EXPECT_EQ(grx_recup_couleur_application(), 6);
}

} // namespace
