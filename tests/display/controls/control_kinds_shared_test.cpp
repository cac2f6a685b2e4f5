// What controls of all types have in common: classes, callbacks, events and the resources that several types share.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/support/fake_visual.h"
#include "tests/support/toolkit_calls.h"

#include <X11/IntrinsicP.h>

#include <algorithm>
#include <ranges>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_BOU_ATT_VISIBLE;
constexpr INT sensitive_bit = GRX_BOU_ATT_SENSIBLE;

// --- classes, callbacks, events -----------------------------------------------------------------------------------

TEST_F(ControlCreation, EachTypeIsOfItsClassAndPostsOnItsCallback) {
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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

TEST_F(ControlCreation, LabelsAreTheTitleInTheApplicationFont) {
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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
    for (const ControlType& row : control_types()) {
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
