// Creation of controls: what each type is made of, and what all of them have in common.
#include "tests/display/control_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/toolkit_calls.h"
#include "tests/support/stdout_capture.h"

#include "xt_prive.h"

#include <malloc.h>

#include <algorithm>
#include <ranges>
#include <set>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_BOU_ATT_VISIBLE;
constexpr INT sensitive_bit = GRX_BOU_ATT_SENSIBLE;
constexpr int icon_colour_as_index = 8;

// What the library's own handler of a control listens to; 0 when there is none or its data is not the record.
EventMask listened_mask(const ToolkitCalls& asked, INT nobou) {
    for (const HandlerAddition& handler : asked.handlers)
        if (handler.widget == control(nobou) && handler.function == &grx_gere_evenements_bouton)
            return handler.data == &button_record(nobou) ? handler.mask : 0;
    return 0;
}

// Names of the callbacks that somebody listens to.
std::set<std::string> callbacks_of(Widget widget) {
    std::set<std::string> result;
    for (const char* name : {XmNactivateCallback, XmNarmCallback, XmNdisarmCallback, XmNvalueChangedCallback,
             XmNdragCallback, XmNbrowseSelectionCallback, XmNdefaultActionCallback, XmNsingleSelectionCallback,
             XmNmultipleSelectionCallback, XmNextendedSelectionCallback, XmNlosingFocusCallback, XmNfocusCallback,
             XmNmodifyVerifyCallback, XmNmotionVerifyCallback, XmNexposeCallback, XmNresizeCallback, XmNinputCallback,
             XmNhelpCallback})
        if (XtHasCallbacks(widget, name) == XtCallbackHasSome) result.insert(name);
    return result;
}

class ControlCreation : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        window = shown();
        asked.forget();
    }

    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }
    Widget make_widget(const GRX_BOUTON& description) { return control(placed(description)); }

    ToolkitCalls asked;
    INT window = -1;
};

// --- the table ----------------------------------------------------------------------------------------------------

struct Row {
    ControlKind kind;
    WidgetClass widget_class;
    std::set<std::string> callbacks;
};

std::vector<Row> table() {
    const std::set<std::string> none, activate{XmNactivateCallback}, changed{XmNvalueChangedCallback};
    const std::set<std::string> text{XmNactivateCallback, XmNlosingFocusCallback};
    const std::set<std::string> scale{XmNvalueChangedCallback, XmNdragCallback};
    const std::set<std::string> list{XmNbrowseSelectionCallback, XmNdefaultActionCallback};
    return {{{"drawn", 1, 0}, xmDrawnButtonWidgetClass, activate},
        {{"flat", 1, 0x1000}, xmDrawnButtonWidgetClass, activate},
        {{"toggle", 2, 0}, xmToggleButtonWidgetClass, changed},
        {{"push", 4, 0x2000}, xmPushButtonWidgetClass, activate},
        {{"drawn push", 4, 0}, xmDrawnButtonWidgetClass, activate},
        {{"arrow", 8, 0}, xmArrowButtonWidgetClass, activate}, {{"label", 16, 0}, xmLabelWidgetClass, none},
        {{"field", 32, 0}, xmTextFieldWidgetClass, text}, {{"scrolled text", 32, 0x100}, xmTextWidgetClass, text},
        {{"scale", 64, 0}, xmScaleWidgetClass, scale}, {{"list", 128, 0}, xmListWidgetClass, list},
        {{"scrolled list", 128, 0x100}, xmListWidgetClass, list},
        {{"simple", 512, 0}, xmPushButtonWidgetClass, activate}, {{"separator", 768, 0}, xmSeparatorWidgetClass, none},
        {{"area", 1024, 0}, xmDrawingAreaWidgetClass, none}, {{"colour", 4096, 0}, xmDrawnButtonWidgetClass, activate}};
}

TEST_F(ControlCreation, EachTypeIsOfItsClassAndPostsOnItsCallback) {
    for (const Row& row : table()) {
        const INT n = placed(control_of(row.kind, window));
        EXPECT_TRUE(is_a(control(n), row.widget_class))
            << row.kind.name << ": " << XtClass(control(n))->core_class.class_name;
        EXPECT_EQ(callbacks_of(control(n)), row.callbacks) << row.kind.name;
        EXPECT_TRUE(XtIsManaged(control(n))) << row.kind.name;
        EXPECT_EQ(std::string(XtName(control(n))), "Text") << row.kind.name;
        const STRUCTURE_BOUTON& record = button_record(n);
        EXPECT_EQ(record.nobou, n);
        EXPECT_EQ(record.nofen, window);
        EXPECT_EQ(record.no_fo, 700);
        EXPECT_EQ(record.valeur, 31);
        EXPECT_EQ(record.type, row.kind.type);
        EXPECT_EQ(record.image != 0, row.kind.type == GRX_BOU_ZONE_DESSIN) << row.kind.name;
        EXPECT_EQ(grx_recup_indice_bout(control(n)), n);
        EXPECT_EQ(grx_detruit_bouton(n), 0);
    }
}

TEST_F(ControlCreation, OnlyTheNumberIsWrittenIntoTheDescription) {
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        description.nobou = 4711;
        GRX_BOUTON before = description;
        ASSERT_EQ(grx_cree_bouton(&description), 0) << kind.name;
        before.nobou = description.nobou;
        EXPECT_EQ(std::memcmp(&before, &description, sizeof before), 0) << kind.name;
        grx_detruit_bouton(description.nobou);
    }
}

TEST_F(ControlCreation, EachTypeListensToItsEvents) {
    constexpr EventMask pointer_moves =
        PointerMotionMask | Button1MotionMask | Button2MotionMask | Button3MotionMask | ButtonMotionMask;
    constexpr EventMask common =
        KeyPressMask | ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask | pointer_moves;
    for (const Row& row : table()) {
        const INT n = placed(control_of(row.kind, window));
        const INT type = row.kind.type;
        const EventMask expected = type == GRX_BOU_TEXTE         ? common | KeyReleaseMask
                                   : type == GRX_BOU_ZONE_DESSIN ? ButtonPressMask | ButtonReleaseMask | ExposureMask
                                                                 : common | OwnerGrabButtonMask;
        EXPECT_EQ(listened_mask(asked, n), expected) << row.kind.name;
        grx_detruit_bouton(n);
    }
}

// The record is the data of each callback: an activation without an event behind it is posted with its numbers.
TEST_F(ControlCreation, CallbacksGetTheRecord) {
    for (const Row& row : table()) {
        if (row.callbacks.empty() || row.kind.type == GRX_BOU_LISTE) continue;
        const INT n = placed(control_of(row.kind, window));
        evt_global = patterned_event();
        XmScaleCallbackStruct call{};
        call.value = 31;
        XtCallCallbacks(control(n), row.callbacks.begin()->c_str(), &call);
        if (row.kind.type == GRX_BOU_ECHELLE) XtCallCallbacks(control(n), XmNvalueChangedCallback, &call);
        EXPECT_EQ(evt_global.type_evenement, 6) << row.kind.name;
        EXPECT_EQ(evt_global.exec_fonction.nofen, window) << row.kind.name;
        EXPECT_EQ(evt_global.exec_fonction.nobou, n) << row.kind.name;
        EXPECT_EQ(evt_global.exec_fonction.no_fo, 700) << row.kind.name;
        EXPECT_EQ(evt_global.exec_fonction.valeur, row.kind.type == GRX_BOU_TEXTE ? untouched : 31) << row.kind.name;
        grx_detruit_bouton(n);
    }
}

// --- resources that several types share ---------------------------------------------------------------------------

bool has_label(INT type) {
    return type == 1 || type == 2 || type == 4 || type == 16 || type == 512 || type == 4096;
}

TEST_F(ControlCreation, LabelsAreTheTitleInTheApplicationFont) {
    for (const Row& row : table()) {
        if (!has_label(row.kind.type)) continue;
        const Widget w = make_widget(control_of(row.kind, window, "Le titre"));
        EXPECT_EQ(label_of(w), "Le titre") << row.kind.name;
        EXPECT_EQ(resource<unsigned char>(w, XmNlabelType), XmSTRING) << row.kind.name;
        EXPECT_FALSE(resource<Boolean>(w, XmNrecomputeSize)) << row.kind.name;
        const WidgetCreation* creation = asked.creation_of("Le titre");
        ASSERT_TRUE(creation) << row.kind.name;
        EXPECT_EQ(creation->arguments.at(XmNfontList), reinterpret_cast<XtArgVal>(fontlist)) << row.kind.name;
        asked.forget();
    }
}

TEST_F(ControlCreation, EveryTypeGetsTheFontButTwo) {
    for (const Row& row : table()) {
        asked.forget();
        make_widget(control_of(row.kind, window, "Fonte"));
        const WidgetCreation* creation = asked.creation_of("Fonte");
        ASSERT_TRUE(creation) << row.kind.name;
        const bool expected = row.kind.type != GRX_BOU_SEPARATEUR;
        EXPECT_EQ(creation->arguments.contains(XmNfontList), expected) << row.kind.name;
        EXPECT_EQ(creation->arguments.contains(XmNlabelString), expected) << row.kind.name;
        EXPECT_EQ(creation->arguments.contains(XmNrecomputeSize), expected) << row.kind.name;
        EXPECT_EQ(creation->arguments.contains(XmNfillOnArm), expected) << row.kind.name;
    }
}

TEST_F(ControlCreation, MarginsAndHighlights) {
    for (const Row& row : table()) {
        const INT type = row.kind.type;
        if (type == GRX_BOU_SEPARATEUR || type == GRX_BOU_LISTE) continue;
        const Widget w = make_widget(control_of(row.kind, window));
        const int margin = type == GRX_BOU_LABEL ? 0 : 2;
        if (type != GRX_BOU_FLECHE && type != GRX_BOU_ECHELLE) {
            EXPECT_EQ(resource<Dimension>(w, XmNmarginWidth), margin) << row.kind.name;
            EXPECT_EQ(resource<Dimension>(w, XmNmarginHeight), margin) << row.kind.name;
        }
        if (type != GRX_BOU_ZONE_DESSIN) { // a manager has no highlight
            EXPECT_EQ(resource<Dimension>(w, XmNhighlightThickness), 0) << row.kind.name;
        }
    }
}

// Kinds whose widget has no margin of that name, or another one inside: what they are asked for.
TEST_F(ControlCreation, MarginsOfScalesArrowsAndLists) {
    for (const Row& row : table()) {
        const INT type = row.kind.type;
        if (type != GRX_BOU_ECHELLE && type != GRX_BOU_FLECHE && type != GRX_BOU_LISTE) continue;
        asked.forget();
        const Widget w = make_widget(control_of(row.kind, window, "Marge"));
        for (const auto& [name, value] :
            {std::pair{XmNmarginWidth, 2}, std::pair{XmNmarginHeight, 2}, std::pair{XmNhighlightThickness, 0}}) {
            ASSERT_TRUE(asked.creation_of("Marge")->arguments.contains(name)) << row.kind.name;
            EXPECT_EQ(asked.creation_of("Marge")->arguments.at(name), value) << row.kind.name << " " << name;
        }
        if (type != GRX_BOU_LISTE) continue;
        EXPECT_EQ(resource<Dimension>(w, XmNlistMarginWidth), 2);
        EXPECT_EQ(resource<Dimension>(w, XmNlistMarginHeight), 2);
    }
}

TEST_F(ControlCreation, GeneralResourcesComeInTheirOrderBeforeThoseOfTheType) {
    GRX_BOUTON description = a(GRX_BOU_LABEL, 0, "Ordre");
    description.coul_fond = 6;
    description.coul_trace = 4;
    description.attache = 15;
    make_widget(description);
    const std::vector<std::string> expected{XmNx, XmNy, XmNlabelString, XmNfillOnArm, XmNfontList, XmNrecomputeSize,
        XmNcolormap, XmNdepth, XmNvisual, XmNforeground, XmNarmColor, XmNbackground, XmNheight, XmNwidth,
        XmNbottomAttachment, XmNbottomOffset, XmNtopAttachment, XmNtopOffset, XmNrightAttachment, XmNrightOffset,
        XmNleftAttachment, XmNleftOffset, XmNmarginWidth, XmNmarginHeight, XmNhighlightThickness, XmNalignment};
    ASSERT_TRUE(asked.creation_of("Ordre"));
    EXPECT_EQ(asked.creation_of("Ordre")->names, expected);
}

TEST_F(ControlCreation, TheLibrarysColormapDepthAndVisual) {
    for (const Row& row : table()) {
        asked.forget();
        const Widget w = make_widget(control_of(row.kind, window, "Visuel"));
        EXPECT_EQ(resource<Colormap>(w, XmNcolormap), x11_cmap) << row.kind.name;
        EXPECT_EQ(resource<int>(w, XmNdepth), grx_recup_profondeur_ecran()) << row.kind.name;
        const WidgetCreation* creation = asked.creation_of("Visuel");
        ASSERT_TRUE(creation) << row.kind.name;
        ASSERT_TRUE(creation->arguments.contains(XmNvisual)) << row.kind.name;
        EXPECT_EQ(creation->arguments.at(XmNvisual), reinterpret_cast<XtArgVal>(x11_vis)) << row.kind.name;
    }
}

TEST_F(ControlCreation, PlaceAndSizeAreThoseGiven) {
    const INT plain = shown(GRX_FEN_ALPHA);
    for (const ControlKind& kind : control_kinds) {
        const INT n = placed(control_of(kind, plain));
        const Widget w = outermost(control(n));
        drain();
        EXPECT_EQ(resource<Position>(w, XmNx), 20) << kind.name;
        EXPECT_EQ(resource<Position>(w, XmNy), 30) << kind.name;
        EXPECT_EQ(extent_of(control(n)), (Extent{120, 80})) << kind.name;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlCreation, PlaceAndSizeNotGivenAreLeftToTheToolkit) {
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window, "Libre");
        description.x = description.y = description.largeur = description.hauteur = -1;
        if (kind.type == GRX_BOU_TEXTE) description.tabi[GRX_BOU_TABI_COLONNES] = 5;
        asked.forget();
        const INT n = placed(description);
        const WidgetCreation* creation = asked.creation_of("Libre");
        ASSERT_TRUE(creation) << kind.name;
        for (const char* name : {XmNx, XmNy, XmNwidth, XmNheight, XmNscaleWidth, XmNscaleHeight})
            EXPECT_FALSE(creation->arguments.contains(name)) << kind.name << " " << name;
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlCreation, ColoursByIndex) {
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        description.coul_fond = 6;
        description.coul_trace = 4;
        const INT n = placed(description);
        EXPECT_EQ(resource<Pixel>(control(n), XmNbackground), pixel_of(6)) << kind.name;
        EXPECT_EQ(resource<Pixel>(control(n), XmNforeground), pixel_of(4)) << kind.name;
        if (is_a(control(n), xmPushButtonWidgetClass)) {
            EXPECT_EQ(resource<Pixel>(control(n), XmNarmColor), pixel_of(6)) << kind.name;
        }
        grx_detruit_bouton(n);
    }
}

TEST_F(ControlCreation, WithoutColoursTheToolkitsAreKept) {
    ASSERT_EQ(grx_recup_couleur_application(), 0);
    const Widget raw = XmCreatePushButton(widget_of(window), const_cast<char*>("raw"), nullptr, 0);
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_COULEUR) continue;
        const Widget w = make_widget(control_of(kind, window));
        EXPECT_EQ(resource<Pixel>(w, XmNbackground), resource<Pixel>(raw, XmNbackground)) << kind.name;
        EXPECT_EQ(resource<Pixel>(w, XmNforeground), resource<Pixel>(raw, XmNforeground)) << kind.name;
    }
    EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_init_fond_bouton()), resource<Pixel>(raw, XmNbackground));
    EXPECT_EQ(static_cast<Pixel>(grx_recup_couleur_init_trace_bouton()), resource<Pixel>(raw, XmNforeground));
}

TEST_F(ControlCreation, WithoutABackgroundTheApplicationColourIsTaken) {
    grx_affecte_couleur_application(6);
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_COULEUR) continue;
        asked.forget();
        const Widget w = make_widget(control_of(kind, window, "Fond"));
        EXPECT_EQ(resource<Pixel>(w, XmNbackground), pixel_of(6)) << kind.name;
        EXPECT_FALSE(asked.creation_of("Fond")->arguments.contains(XmNarmColor))
            << kind.name << ": only the background";
    }
    EXPECT_EQ(grx_recup_couleur_application(), 6);
    GRX_BOUTON own = a(GRX_BOU_SIMPLE);
    own.coul_fond = 4;
    EXPECT_EQ(resource<Pixel>(make_widget(own), XmNbackground), pixel_of(4)) << "a colour of its own wins";
}

class ControlCreationOn24 : public On24 {
  protected:
    void before_start() override { write_menu(""); }
};

TEST_F(ControlCreationOn24, AnApplicationColourThatIsNoIndexIsAPixel) {
    const INT window = make(GRX_FEN_ALPHA);
    grx_affecte_couleur_application(0xC0C0C0);
    EXPECT_EQ(resource<Pixel>(control(make(control_of(GRX_BOU_LABEL, 0, window))), XmNbackground), 0xC0C0C0U);
    const INT last = grx_dernier_index_rendu();
    grx_affecte_couleur_application(last);
    EXPECT_EQ(
        resource<Pixel>(control(make(control_of(GRX_BOU_LABEL, 0, window))), XmNbackground), static_cast<Pixel>(last));
}

TEST_F(ControlCreation, EachSideIsAttachedWithItsOffset) {
    struct Side {
        INT bit;
        const char* attachment;
        const char* offset;
    };
    const std::array sides{Side{1, XmNbottomAttachment, XmNbottomOffset}, Side{2, XmNtopAttachment, XmNtopOffset},
        Side{4, XmNrightAttachment, XmNrightOffset}, Side{8, XmNleftAttachment, XmNleftOffset}};
    for (const ControlKind& kind : control_kinds)
        for (INT bits = 1; bits < 16; ++bits) {
            GRX_BOUTON description = control_of(kind, window, "Attache");
            description.attache = bits;
            for (INT i = 0; i < 4; ++i) description.tabi[i] = 11 + i;
            asked.forget();
            const INT n = make(description);
            ASSERT_GE(n, 0);
            for (std::size_t i = 0; i < sides.size(); ++i) {
                const bool wanted = (bits & sides[i].bit) != 0;
                EXPECT_EQ(asked.creation_of("Attache")->arguments.contains(sides[i].attachment), wanted)
                    << kind.name << " " << bits << " " << i;
                if (!wanted) continue;
                EXPECT_EQ(resource<unsigned char>(outermost(control(n)), sides[i].attachment), XmATTACH_FORM)
                    << kind.name << " " << bits << " " << i;
                EXPECT_EQ(resource<int>(outermost(control(n)), sides[i].offset), 11 + static_cast<int>(i)) << kind.name;
            }
            grx_detruit_bouton(n);
        }
}

// The longest list of resources of all: none of them may be lost.
TEST_F(ControlCreation, AScaleWithEverythingKeepsAllOfIt) {
    GRX_BOUTON description = a(GRX_BOU_ECHELLE, GRX_BOU_ATT_ECHELLE_VALEUR, "Tout");
    description.coul_fond = 6;
    description.coul_trace = 4;
    description.attache = 15;
    const std::array<INT, 5> numbers{3, 10, 90, 40, 31};
    std::ranges::copy(numbers, description.tabi);
    const Widget w = make_widget(description);
    EXPECT_EQ(resource<int>(w, XmNminimum), 10);
    EXPECT_EQ(resource<int>(w, XmNmaximum), 90);
    EXPECT_EQ(resource<int>(w, XmNvalue), 40);
    EXPECT_EQ(resource<unsigned char>(w, XmNorientation), XmVERTICAL);
    EXPECT_EQ(resource<unsigned char>(w, XmNprocessingDirection), XmMAX_ON_BOTTOM);
    EXPECT_TRUE(resource<Boolean>(w, XmNshowValue));
    EXPECT_EQ(tagged_text(w, XmNtitleString, "tag1"), "Tout");
    EXPECT_EQ(resource<Pixel>(w, XmNforeground), pixel_of(4));
    EXPECT_EQ(resource<int>(w, XmNbottomOffset), 3);
    EXPECT_EQ(resource<int>(w, XmNleftOffset), 40);
}

TEST_F(ControlCreation, VisibleAndSensitiveAreTheirBits) {
    for (const ControlKind& kind : control_kinds)
        for (INT bits : {0, visible_bit, sensitive_bit, visible_bit | sensitive_bit}) {
            GRX_BOUTON description = control_of(kind, window);
            description.attrib = kind.bits | bits;
            const INT n = make(description);
            ASSERT_GE(n, 0) << kind.name;
            EXPECT_EQ(resource<Boolean>(outermost(control(n)), XmNmappedWhenManaged), (bits & visible_bit) != 0)
                << kind.name << " " << bits;
            EXPECT_EQ(resource<Boolean>(control(n), XmNsensitive), (bits & sensitive_bit) != 0)
                << kind.name << " " << bits;
            EXPECT_TRUE(XtIsManaged(control(n))) << kind.name;
            EXPECT_EQ(on_screen(n), (bits & visible_bit) != 0) << kind.name << " " << bits;
            grx_detruit_bouton(n);
        }
}

TEST_F(ControlCreation, ARecordWithDefaultsIsADrawnButton) {
    GRX_BOUTON description{};
    grx_init_bouton(&description);
    description.fen_mere = window;
    set_title(description, "Simple");
    const INT n = placed(description);
    ASSERT_TRUE(is_a(control(n), xmDrawnButtonWidgetClass));
    EXPECT_EQ(resource<unsigned char>(control(n), XmNshadowType), 8);
    EXPECT_TRUE(resource<Boolean>(control(n), XmNpushButtonEnabled));
    EXPECT_TRUE(on_screen(n));
    EXPECT_TRUE(XtIsSensitive(control(n)));
    EXPECT_EQ(label_of(control(n)), "Simple");
    const XmString label = XmStringCreate(description.titre, const_cast<char*>("tag1"));
    const Widget raw = XtVaCreateManagedWidget("Simple", xmDrawnButtonWidgetClass, widget_of(window), XmNlabelString,
        label, XmNfontList, fontlist, XmNmarginWidth, 2, XmNmarginHeight, 2, XmNhighlightThickness, 0,
        XmNpushButtonEnabled, True, nullptr);
    XmStringFree(label);
    EXPECT_EQ(extent_of(control(n)), extent_of(raw)) << "as large as the toolkit makes it";
    EXPECT_EQ(button_record(n).no_fo, -1);
    EXPECT_EQ(button_record(n).valeur, 0);
}

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

GRX_BOUTON scale(INT window, INT bits, INT minimum, INT maximum, INT value) {
    GRX_BOUTON description = control_of(GRX_BOU_ECHELLE, bits, window, "Echelle");
    description.tabi[GRX_BOU_TABI_MINI] = minimum;
    description.tabi[GRX_BOU_TABI_MAXI] = maximum;
    description.tabi[GRX_BOU_TABI_INITIAL] = value;
    return description;
}

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

// --- icons --------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, AnIconStandsInsteadOfTheTitle) {
    const std::string path = icon_file("icon.bmp", 16, 8, [](int x, int y) { return (x + 2 * y) % 16; });
    for (const Row& row : table()) {
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
    for (const Row& row : table()) {
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

TEST_F(ControlCreation, AThousandLiveControlsFillTheBase) {
    GRX_BOUTON description = a(GRX_BOU_SEPARATEUR);
    description.no_fo = 5;
    const Widget holder = XmCreateBulletinBoard(widget_of(window), const_cast<char*>("holder"), nullptr, 0);
    description.ref_fen_mere = holder;
    const INT first = grx_recup_indice_objet_bout_libre();
    for (INT n = first; n < 1000; ++n) ASSERT_EQ(make(description), n);
    StdoutCapture capture;
    const std::size_t children = children_of(holder).size();
    description.nobou = -1;
    EXPECT_EQ(grx_cree_bouton(&description), -3);
    EXPECT_EQ(capture.text(), "Depassement de taille de la base des boutons\n");
    EXPECT_EQ(children_of(holder).size(), children + 1) << "the widget stays, without a number";
    EXPECT_EQ(description.nobou, -1);
    capture.restore();
    EXPECT_EQ(grx_detruit_bouton(17), 0);
    EXPECT_EQ(grx_recup_objet_bout(17), nullptr);
    EXPECT_EQ(make(description), 17);
    EXPECT_EQ(make(description), -3);
    grx_detruit_bouton(999);
    grx_detruit_bouton(500);
    EXPECT_EQ(make(description), 500) << "the lowest first";
    EXPECT_EQ(make(description), 999);
}

TEST_F(ControlCreation, ANewOwnerOfANumberHasNothingOfTheOldOne) {
    const std::string path = plain_icon("icon.bmp", 12);
    GRX_BOUTON first = a(GRX_BOU_DESSINE);
    path.copy(first.icone, GRX_TITRE_MAX - 1);
    const INT n = placed(first);
    ASSERT_NE(button_record(n).image, 0U);
    grx_enfonce_bouton(n);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1);
    grx_detruit_bouton(n);
    GRX_BOUTON second = a(GRX_BOU_SIMPLE, 0, "Neuf");
    second.no_fo = 12;
    second.tabi[GRX_BOU_TABI_VALEUR] = 9;
    ASSERT_EQ(placed(second), n);
    EXPECT_EQ(button_record(n).image, 0U);
    EXPECT_EQ(button_record(n).type, GRX_BOU_SIMPLE);
    EXPECT_EQ(button_record(n).no_fo, 12);
    EXPECT_EQ(button_record(n).valeur, 9);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0);
    grx_desinstalle_bitmap(n);
    drain();
    EXPECT_EQ(label_of(control(n)), "Neuf");
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

// --- gadgets ------------------------------------------------------------------------------------------------------

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

// --- the character cell -------------------------------------------------------------------------------------------

TEST_F(ControlCreation, TheCharacterCellIsMeasuredWithThrowAwayControls) {
    const auto measured = [&](INT type, INT columns, const char* title) {
        GRX_BOUTON description = a(type, 0, title);
        description.largeur = description.hauteur = -1;
        description.tabi[GRX_BOU_TABI_COLONNES] = columns;
        const INT n = placed(description);
        const Extent size = extent_of(control(n));
        grx_detruit_bouton(n);
        return size;
    };
    const Extent one = measured(GRX_BOU_TEXTE, 1, "test"), two = measured(GRX_BOU_TEXTE, 2, "test");
    const Extent label = measured(GRX_BOU_LABEL, 0, "A");
    for (auto set : {grx_affecte_lar_carac_alpha, grx_affecte_hau_carac_alpha, grx_affecte_hau_exact_carac_alpha,
             grx_affecte_lar_sup_alpha})
        set(-99);
    const std::size_t children = children_of(widget_of(window)).size();
    const INT free_number = grx_recup_indice_objet_bout_libre();
    asked.forget();
    affecte_carac_font(widget_of(window));
    ASSERT_EQ(asked.creations.size(), 3U);
    const auto made = [&](std::size_t i, const char* title, WidgetClass kind, INT place) {
        EXPECT_EQ(asked.creations[i].name, title) << i;
        EXPECT_EQ(asked.creations[i].widget_class, kind) << i;
        EXPECT_EQ(asked.creations[i].arguments.at(XmNx), place) << i;
        EXPECT_EQ(asked.creations[i].arguments.at(XmNy), place) << i;
    };
    made(0, "test", xmTextFieldWidgetClass, 0);
    made(1, "test", xmTextFieldWidgetClass, 10);
    made(2, "A", xmLabelWidgetClass, 0);
    EXPECT_EQ(asked.creations[0].arguments.at(XmNcolumns), 1);
    EXPECT_EQ(asked.creations[1].arguments.at(XmNcolumns), 2);
    EXPECT_EQ(grx_recup_hau_carac_alpha(), one.height);
    EXPECT_EQ(grx_recup_lar_carac_alpha(), two.width - one.width);
    EXPECT_EQ(grx_recup_lar_sup_alpha(), two.width - 2 * (two.width - one.width));
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), label.height);
    EXPECT_GT(grx_recup_lar_carac_alpha(), 0);
    drain();
    EXPECT_EQ(children_of(widget_of(window)).size(), children);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), free_number);
}

// --- controls of a window that is gone ----------------------------------------------------------------------------

void try_every_operation(INT n) {
    char text[64] = "avant";
    INT first = 77, second = 78;
    INT list[1] = {n};
    const auto w = [](const char* s) { return const_cast<char*>(s); };
    EXPECT_EQ(grx_affiche_boutons(list, 1), 0);
    EXPECT_EQ(grx_affiche_bouton(n), 0);
    EXPECT_EQ(grx_cache_bouton(n), 0);
    EXPECT_EQ(grx_efface_bouton(n), 0);
    EXPECT_EQ(grx_desactive_bouton(n, 1), 0);
    EXPECT_EQ(grx_force_focus_sur_bouton(n), 0);
    EXPECT_EQ(grx_flush_dessin_bouton(n), 0);
    EXPECT_EQ(grx_change_texte(n, w("x")), 0);
    EXPECT_EQ(grx_affecte_champ_bouton(n, w("x")), 0);
    EXPECT_EQ(grx_affecte_champ_texte(n, w("x")), 0);
    EXPECT_EQ(grx_ajoute_texte(n, w("x")), 0);
    EXPECT_EQ(grx_recup_texte_bouton(n, text), 0);
    EXPECT_EQ(grx_selectionne_champ(n), 0);
    EXPECT_EQ(grx_selectionne_champ_focus(n), 0);
    EXPECT_EQ(grx_ajoute_element_dans_liste(n, w("x")), 0);
    EXPECT_EQ(grx_recup_nombre_elements_dans_list(n), -1);
    EXPECT_EQ(grx_recup_element_dans_liste(n, 1, text), -1);
    EXPECT_EQ(grx_change_couleur_bouton(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_trace_bouton(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_bouton_indice_direct(n, 3), 0);
    EXPECT_EQ(grx_change_couleur_trace_bouton_indice_direct(n, 3), 0);
    EXPECT_EQ(grx_remet_couleur_initiale_bouton(n, 3), 0);
    grx_recup_couleur_bouton(n);
    grx_recup_couleur_trace_bouton(n);
    EXPECT_EQ(grx_change_taille_bouton(n, 5, 5), 0);
    EXPECT_EQ(grx_recup_taille_bouton(n, &first, &second), 0);
    EXPECT_EQ(grx_change_position_bouton(n, 5, 5), 0);
    EXPECT_EQ(grx_recup_position_bouton(n, &first, &second), 0);
    EXPECT_EQ(grx_enfonce_bouton(n), 0);
    EXPECT_EQ(grx_bouton_est_il_enfonce(n), 0);
    EXPECT_EQ(grx_relache_bouton(n), 0);
    EXPECT_EQ(grx_souligne_bouton(n), 0);
    EXPECT_EQ(grx_relache_bouton_ras(n), 0);
    EXPECT_EQ(grx_change_icone_bouton(n, w("/nowhere.bmp")), 0);
    EXPECT_EQ(grx_change_couleur_fond_icone_bouton(n, w("/nowhere.bmp"), 3), 0);
    EXPECT_EQ(grx_affecte_icone_bouton1_bouton2(n, n), 0);
    EXPECT_EQ(grx_change_valeur_echelle(n, 3), 0);
    EXPECT_EQ(grx_change_bornes_echelle(n, 3, 4), 0);
    EXPECT_EQ(std::string(text), "avant");
    EXPECT_EQ(first, 77);
    EXPECT_EQ(second, 78);
}

TEST_F(ControlCreation, ControlsOfADestroyedWindowKeepTheirNumbersAndDoNothing) {
    const std::string path = plain_icon("icon.bmp", 12);
    const INT dying = shown();
    std::vector<INT> numbers;
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, dying);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        numbers.push_back(placed(description));
    }
    grx_detruit_fenetre(dying);
    drain();
    for (INT n : numbers) {
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr) << n;
        try_every_operation(n);
    }
    const INT next = placed(a(GRX_BOU_LABEL));
    EXPECT_EQ(std::ranges::count(numbers, next), 0) << "their numbers are still theirs";
    for (INT n : numbers) EXPECT_EQ(grx_libere_indice_objet_bout(n), 1) << n;
    EXPECT_EQ(placed(a(GRX_BOU_LABEL)), numbers.front());
    drain();
}

TEST_F(ControlCreation, ControlsOfAClosedWindowDoNothing) {
    const INT dying = shown();
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.fen_mere = dying;
    const INT n = placed(description);
    ask_to_close(test_display(), XtWindow(shell_of(dying)));
    ASSERT_TRUE(events.wait(GRX_EVT_DESTRUCTION));
    drain();
    EXPECT_EQ(grx_recup_objet_bout(n), nullptr);
    try_every_operation(n);
    EXPECT_EQ(grx_libere_indice_objet_bout(n), 1);
    EXPECT_EQ(placed(a(GRX_BOU_LABEL)), n);
}

TEST_F(ControlCreation, DestroyingTheControlsOfADestroyedWindowFreesTheirNumbers) {
    const INT dying = shown();
    std::vector<INT> numbers;
    for (const ControlKind& kind : control_kinds) numbers.push_back(placed(control_of(kind, dying)));
    grx_detruit_fenetre(dying);
    drain();
    const std::size_t before = heap().blocks();
    for (INT n : numbers) EXPECT_EQ(grx_detruit_bouton(n), 0);
    EXPECT_LE(heap().blocks(), before);
    std::vector<INT> again;
    for (const ControlKind& kind : control_kinds) again.push_back(placed(control_of(kind, window)));
    drain();
    for (INT n : again) EXPECT_NE(control(n), nullptr);
}

// A number given away and taken again before the old widget is really gone: the new owner stays.
TEST_F(ControlCreation, ANumberTakenAgainInsideADispatchStaysTaken) {
    struct Swap {
        GRX_BOUTON description;
        INT old_number, new_number;
    } swap{a(GRX_BOU_SIMPLE, 0, "Second"), -1, -1};
    swap.old_number = placed(a(GRX_BOU_SIMPLE, 0, "First"));
    XtAddCallback(
        control(swap.old_number), XmNactivateCallback,
        [](Widget, XtPointer data, XtPointer) {
            auto* job = static_cast<Swap*>(data);
            grx_detruit_bouton(job->old_number);
            job->new_number = make(job->description);
        },
        &swap);
    pointer().click_in(control(swap.old_number), 20, 20);
    ASSERT_TRUE(wait_for([&] { return swap.new_number >= 0; }));
    drain();
    EXPECT_EQ(swap.new_number, swap.old_number);
    ASSERT_NE(control(swap.new_number), nullptr);
    EXPECT_EQ(label_of(control(swap.new_number)), "Second");
}

TEST_F(ControlCreation, DestroyingAControlTakesItsScrolledWindowAlong) {
    for (const ControlKind& kind : control_kinds) {
        const std::size_t before = children_of(widget_of(window)).size();
        const INT n = placed(control_of(kind, window));
        EXPECT_EQ(children_of(widget_of(window)).size(), before + 1) << kind.name;
        EXPECT_EQ(grx_detruit_bouton(n), 0);
        EXPECT_EQ(grx_recup_objet_bout(n), nullptr) << kind.name;
        EXPECT_EQ(button_record(n).nobou, -1) << kind.name;
        drain();
        EXPECT_EQ(children_of(widget_of(window)).size(), before) << kind.name;
        EXPECT_EQ(grx_detruit_bouton(n), 0) << "a second time";
    }
}

// --- memory -------------------------------------------------------------------------------------------------------

TEST_F(ControlCreation, EachFailingAllocationIsSurvived) {
    const std::string path = plain_icon("icon.bmp", 12);
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const std::size_t before = heap().blocks();
        fail_each_allocation([&] {
            const INT n = make(description);
            EXPECT_TRUE(n >= 0 || n == -2) << kind.name << " " << n;
            if (n >= 0) grx_detruit_bouton(n);
            drain();
        });
        EXPECT_EQ(heap().blocks(), before) << kind.name;
    }
    GRX_BOUTON gadget = a(GRX_BOU_LABEL);
    path.copy(gadget.icone, GRX_TITRE_MAX - 1);
    const std::size_t before = heap().blocks();
    fail_each_allocation([&] { EXPECT_EQ(grx_cree_gadget(&gadget), 0); });
    EXPECT_EQ(heap().blocks(), before);
    drain();
}

TEST_F(ControlCreation, NineHundredPushButtonsLeaveNoMoreThanTheToolkitDoes) {
    constexpr int count = 900, rounds = 4;
    asked.stop();
    const Widget holder = XmCreateBulletinBoard(widget_of(window), const_cast<char*>("holder"), nullptr, 0);
    XtManageChild(holder);
    GRX_BOUTON description = a(GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR);
    description.ref_fen_mere = holder;
    const auto with_library = [&] {
        std::vector<INT> numbers;
        for (int i = 0; i < count; ++i) numbers.push_back(make(description));
        drain();
        for (INT n : numbers) EXPECT_EQ(grx_detruit_bouton(n), 0);
        drain();
    };
    const auto with_toolkit = [&] {
        std::vector<Widget> made;
        for (int i = 0; i < count; ++i) {
            const XmString label = XmStringCreate(description.titre, const_cast<char*>("tag1"));
            made.push_back(XtVaCreateManagedWidget("Text", xmPushButtonWidgetClass, holder, XmNlabelString, label, XmNx,
                20, XmNy, 30, XmNwidth, 120, XmNheight, 80, XmNfontList, fontlist, nullptr));
            XmStringFree(label);
        }
        drain();
        for (Widget widget : made) XtDestroyWidget(widget);
        drain();
    };
    const auto growth = [&](const auto& round) {
        round(); // tables grow once
        const auto before = static_cast<long>(mallinfo2().uordblks);
        for (int i = 0; i < rounds; ++i) round();
        return static_cast<long>(mallinfo2().uordblks) - before;
    };
    with_library();
    const auto resources = server_resources(test_display(), XtWindow(widget_of(window)));
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const long library = growth(with_library);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window))), resources);
    EXPECT_LT(library, growth(with_toolkit) + count * rounds * 32L) << "a pointer or two at most, each";
}

TEST_F(ControlCreation, TenOfEachKindWithIconsLeaveNothing) {
    const std::string path = plain_icon("icon.bmp", 12);
    for (const ControlKind& kind : control_kinds) {
        GRX_BOUTON description = control_of(kind, window);
        path.copy(description.icone, GRX_TITRE_MAX - 1);
        const auto once = [&] {
            grx_detruit_bouton(make(description));
            drain();
        };
        once();
        const auto resources = server_resources(test_display(), XtWindow(widget_of(window)));
        const std::size_t bytes = heap().bytes();
        for (int i = 0; i < 10; ++i) once();
        EXPECT_EQ(heap().bytes(), bytes) << kind.name;
        EXPECT_EQ(server_resources(test_display(), XtWindow(widget_of(window))), resources) << kind.name;
    }
}

// --- visuals other than the root's --------------------------------------------------------------------------------

class ControlVisualOn24 : public On24 {
  protected:
    void before_start() override {
        write_menu("");
        visual.emplace(FakeVisual::Kind::alt32);
    }
    std::optional<FakeVisual> visual;
};

TEST_F(ControlVisualOn24, EveryTypeIsMadeWithoutAnError) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    for (const ControlKind& kind : control_kinds) {
        const INT n = make(control_of(kind, window));
        ASSERT_GE(n, 0) << kind.name;
        EXPECT_TRUE(wait_visible(control(n))) << kind.name;
        XWindowAttributes attributes{};
        ASSERT_TRUE(XGetWindowAttributes(x11_disp, XtWindow(control(n)), &attributes));
        EXPECT_EQ(attributes.depth, grx_recup_profondeur_ecran()) << kind.name;
        EXPECT_EQ(attributes.colormap, x11_cmap) << kind.name;
    }
    drain();
}

} // namespace
